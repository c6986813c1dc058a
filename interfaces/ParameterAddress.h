// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// Packs an address into the word by which proxies are registered: group in bits 22-31, index in
/// bits 11-21, element in bits 0-10.
///
/// Fields are expected to be non-negative.
// Deliberate: each field is sign-extended and OR-ed without a mask, so that a negative field spills
// into the bits above it.
constexpr quint32 packedAddress(qint16 group, qint16 index, qint16 element)
{
    const auto word = [](qint16 field) { return static_cast<quint32>(static_cast<qint32>(field)); };
    return (((word(group) << 11) | word(index)) << 11) | word(element);
}

/// The three fields of a packed address whose fields were non-negative.
struct UnpackedAddress
{
    int group;   ///< 0-1023
    int index;   ///< 0-2047
    int element; ///< 0-2047
};

/// The fields that packedAddress() packed, if none was negative.
constexpr UnpackedAddress unpackedAddress(quint32 packed)
{
    return {static_cast<int>(packed >> 22), static_cast<int>((packed >> 11) & 0x7FF),
            static_cast<int>(packed & 0x7FF)};
}

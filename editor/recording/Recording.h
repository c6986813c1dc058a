// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/ParameterSnapshot.h"

#include <QString>

#include <optional>
#include <vector>

class QIODevice;

/// Parameter traffic with times: what the values of a memory were at first, and what they became when.
///
/// In a file: a mark and a version, the layout of the values, the first values, and then a frame for each
/// moment in which something changed: its time in milliseconds, how many values changed, and of each its
/// place in the layout and what it became. An end mark closes it. All numbers are 32 bits wide, most
/// significant byte first.
struct Recording
{
    static constexpr quint32 Mark = 0x43545231;
    static constexpr quint32 Version = 1;
    /// Stands where a frame would have its time.
    static constexpr quint32 EndMark = 0xffffffff;
    /// A day, in milliseconds: longer ones are not made, and not taken.
    static constexpr quint32 LongestTime = 24 * 60 * 60 * 1000;

    struct Change
    {
        quint32 place = 0;
        qint32 value = 0;
    };
    struct Frame
    {
        quint32 time = 0; ///< milliseconds since the first values, never less than the frame before
        std::vector<Change> changes;
    };

    ParameterSnapshot first;
    std::vector<Frame> frames;

    /// Reads a file whatever is in it. Nothing, and one line in `error`, if it is no recording or not a
    /// whole one.
    static std::optional<Recording> read(const QString &fileName, QString *error);
    /// The same for what a device holds from where it stands; `error` is the reason alone.
    static std::optional<Recording> readFrom(QIODevice &device, QString *error);
};

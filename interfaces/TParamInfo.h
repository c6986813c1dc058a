// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// One parameter's address and value, as it travels through copy, paste and undo records.
struct TParamInfo
{
    qint16 group = -1;   ///< -1: none
    qint16 element = -1; ///< -1: none
    qint16 index = -1;   ///< -1: none
    qint32 value = 0;    ///< as stored in the memory

    friend bool operator==(const TParamInfo &, const TParamInfo &) = default;
};

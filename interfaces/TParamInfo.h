// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// One parameter's address and value, as it travels through copy, paste and undo records.
struct TParamInfo
{
    qint16 group = -1;
    qint16 element = -1;
    qint16 index = -1;
    qint32 value = 0;

    friend bool operator==(const TParamInfo &, const TParamInfo &) = default;
};

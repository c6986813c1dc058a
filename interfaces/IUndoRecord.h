// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/Export.h"
#include "interfaces/TParamInfo.h"

/// An undo step under construction: obtained from IMemAPI::openUndoRecord(), filled by proxies with
/// the values as they are before an edit, handed back with IMemAPI::commitUndoRecord(). GUI thread.
class CONSOLEINTERFACES_EXPORT IUndoRecord
{
public:
    virtual ~IUndoRecord() = default;

    /// Notes a parameter's present value. `key` says which part of the proxy it belongs to (a grid's
    /// cell: row * 65536 + column). A second value for the same address is ignored.
    virtual void add(int key, const TParamInfo &before) = 0;
};

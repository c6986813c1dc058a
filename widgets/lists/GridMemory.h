// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/IMemAPI.h"
#include "interfaces/MemHelpers.h"

/// What a grid reads and writes: one parameter, or (`multiMode`) a run of switches at consecutive
/// indexes that together are one number, the first being its lowest bit. GUI thread.
class GridMemory
{
public:
    using Address = IMemAPI::TSingleBaseAddress;
    static constexpr quint32 AllBits = ~quint32(0);

    /// `memory` may be null. `switches` is the length of a run, 0 for single parameters.
    GridMemory(IMemAPI *memory, int switches) : m_memory(memory), m_switches(switches) {}

    /// The number there; 0 without a memory. Of a run only the switches of `bits` are read.
    int getBitParam(const Address &at, quint32 bits = AllBits) const;
    /// Stores a number on behalf of `proxy`. Negative when it failed; a run is written up to there.
    int setBitParam(TMemProxy &proxy, const Address &at, int value) const;

    /// Notes under `key` everything that a write there may change.
    void note(IUndoRecord &record, int key, const Address &at) const;

private:
    int lengthOfRun() const;
    int readSingle(const Address &at, int offset) const;

    IMemAPI *m_memory;
    int m_switches;
};

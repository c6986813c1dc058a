// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/ParameterMemory.h"
#include "companions/memory/ParameterSnapshot.h"

/// The scenes that the program to be killed stores, so that its witness knows them.
namespace crashscenes {

constexpr int SlotsInUse = 100;

/// The slots take turns.
inline int slotOf(int number)
{
    return number % SlotsInUse + 1;
}

/// Every value depends on the scene's number, the first one is the number.
inline ParameterSnapshot scene(const ParameterMemory &memory, int number)
{
    ParameterSnapshot snapshot = memory.snapshot();
    quint32 state = static_cast<quint32>(number);
    for (qint32 &value : snapshot.values) {
        value = static_cast<qint32>(state);
        state = state * 1664525U + 1013904223U;
    }
    return snapshot;
}

} // namespace crashscenes

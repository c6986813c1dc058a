// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/ParameterMemory.h"
#include "fuzz/FuzzApplication.h"

namespace fuzz {

/// The memory of the built-in console, with an application around it; the same for all inputs.
inline ParameterMemory &memory()
{
    start();
    static auto &memory = *new ParameterMemory; // not destroyed at the exit, when Qt may be gone
    static const bool loaded = memory.load(ParameterMemory::builtInModel());
    require(loaded);
    return memory;
}

} // namespace fuzz

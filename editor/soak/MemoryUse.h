// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// What this process needs of memory, in bytes; 0 where the system does not say.
struct MemoryUse
{
    qint64 resident = 0;  ///< what the system keeps for it
    qint64 allocated = 0; ///< what of that it has asked for and not given back: no gaps, no code

    /// Now. Gives freed memory back to the system first.
    static MemoryUse present();
    /// The most that has ever been resident.
    static qint64 peak();
};

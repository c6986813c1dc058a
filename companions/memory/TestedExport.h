// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/Export.h"

// What the memory is made of and is no part of the library's face; its tests get at it, though.
#if defined(CONSOLEWIDGETS_UNTESTED)
#    define CONSOLECOMPANIONS_TESTED
#else
#    define CONSOLECOMPANIONS_TESTED CONSOLECOMPANIONS_EXPORT
#endif

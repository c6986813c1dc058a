// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

// What stands behind the controls and is no part of the library's face; its tests get at it, though.
#if defined(CONSOLEWIDGETS_UNTESTED)
#    define CONSOLEWIDGETS_TESTED
#else
#    define CONSOLEWIDGETS_TESTED CONSOLEWIDGETS_EXPORT
#endif

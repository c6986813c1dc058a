// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#if defined(CONSOLEWIDGETS_STATIC)
#    define CONSOLEWIDGETS_EXPORT
#elif defined(CONSOLEWIDGETS_BUILD)
#    define CONSOLEWIDGETS_EXPORT Q_DECL_EXPORT
#else
#    define CONSOLEWIDGETS_EXPORT Q_DECL_IMPORT
#endif

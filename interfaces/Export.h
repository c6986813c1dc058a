// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

// Classes that cross library boundaries (also the header-only ones: their type information must be
// one for casts between libraries).
#define CONSOLEINTERFACES_EXPORT Q_DECL_EXPORT

// Functions and classes that a companion library supplies.
#if defined(CONSOLEWIDGETS_STATIC)
#    define CONSOLECOMPANIONS_EXPORT
#elif defined(CONSOLECOMPANIONS_BUILD)
#    define CONSOLECOMPANIONS_EXPORT Q_DECL_EXPORT
#else
#    define CONSOLECOMPANIONS_EXPORT Q_DECL_IMPORT
#endif

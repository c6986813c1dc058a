// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

#include <QString>

#include <span>

struct QMetaObject;

/// What the headers say of the properties of the library's widgets, for those who offer them to form
/// authors. Taken from the comments while the library is built.
namespace propertynotes {

/// The first words of a property in its header.
struct Note
{
    const char *className; ///< where it is declared
    const char *property;  ///< its name
    const char *text;      ///< plain text
};

/// Every property of every public class.
std::span<const Note> all();

/// The meaning of a property of a registered class or of what it derives from; empty for Qt's own.
CONSOLEWIDGETS_EXPORT QString of(const QMetaObject &meta, const QString &property);

} // namespace propertynotes

// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/forms/WidgetRegistry.h"

#include <QString>

/// What the reference says of a widget class beside its header: picture, how it reads and writes,
/// example, and tables of its properties and signals, as text for the generator of the site. Types and
/// defaults are read from a fresh object. GUI thread.
class WidgetPage
{
public:
    explicit WidgetPage(const WidgetRegistry::Entry &entry) : m_entry(entry) {}

    /// A documentation comment for the class, whose picture is `width` wide.
    QString text(int width) const;
    /// The line that shows that picture.
    QString picture(int width) const;
    /// Properties with a number in them whose unit is not known: the tables would be incomplete.
    QStringList withoutUnit() const;

private:
    QString properties() const;
    QString signalTable() const;

    const WidgetRegistry::Entry &m_entry;
};

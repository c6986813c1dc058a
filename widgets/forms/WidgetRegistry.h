// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

#include <QString>

#include <span>

class QWidget;
struct QMetaObject;

/// The one list of the library's widget classes. Whoever offers them to others (the form loader,
/// form editors, documentation) reads it; a class is added in WidgetRegistry.cpp and nowhere else.
class CONSOLEWIDGETS_EXPORT WidgetRegistry
{
public:
    struct Entry
    {
        const QMetaObject *metaObject;
        const char *group;   ///< heading under which form editors list the class
        const char *toolTip; ///< one line: what the widget is for
        QWidget *(*make)(QWidget *parent);

        const char *className() const;
    };

    /// In the order in which they are shown.
    static std::span<const Entry> entries();
    /// Null when the library has no such class.
    static const Entry *find(const QString &className);
};

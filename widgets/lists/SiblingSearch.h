// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// The widget of that class and object name that stands nearest around `widget`: inside its parent,
/// then inside the parent's parent, up to its window. Forms that are repeated in a window find their
/// own. Null when there is none.
template<class Widget>
Widget *nearestSibling(const QWidget &widget, const QString &name)
{
    for (const QWidget *around = &widget; !around->isWindow();) {
        around = around->parentWidget();
        if (auto *found = around->findChild<Widget *>(name))
            return found;
    }
    return nullptr;
}

// SPDX-License-Identifier: MIT
#include "widgets/buttons/PullDownAccessible.h"

QAccessible::State PullDownAccessible::state() const
{
    QAccessible::State state = BoundAccessible::state();
    state.hasPopup = true;
    state.expandable = true;
    state.expanded = control().isOpen();
    state.collapsed = !control().isOpen();
    return state;
}

QStringList PullDownAccessible::actionNames() const
{
    return QStringList{showMenuAction(), pressAction()} + BoundAccessible::actionNames();
}

void PullDownAccessible::doAction(const QString &name)
{
    const bool opens = name == showMenuAction() || name == pressAction();
    if (!opens)
        BoundAccessible::doAction(name);
    else if (control().isEnabled())
        control().popup();
}

// SPDX-License-Identifier: MIT
#include "widgets/buttons/PullDownAccessible.h"

#include "widgets/buttons/CPullDownMenu.h"

namespace {

QAccessibleInterface *makeAccessible(const QString &className, QObject *object)
{
    auto *menu = className == QLatin1String("CPullDownMenu") ? qobject_cast<CPullDownMenu *>(object)
                                                             : nullptr;
    return menu ? new PullDownAccessible(*menu) : nullptr;
}

} // namespace

PullDownAccessible::PullDownAccessible(CPullDownMenu &menu)
    : BoundAccessible(&menu, menu, QAccessible::ComboBox), m_menu(menu)
{
}

QString PullDownAccessible::text(QAccessible::Text kind) const
{
    const QString shown = kind == QAccessible::Value ? m_menu.shownText() : QString();
    return shown.isEmpty() ? BoundAccessible::text(kind) : shown;
}

QAccessible::State PullDownAccessible::state() const
{
    QAccessible::State state = BoundAccessible::state();
    state.hasPopup = true;
    state.expandable = true;
    state.expanded = m_menu.isOpen();
    state.collapsed = !m_menu.isOpen();
    return state;
}

QStringList PullDownAccessible::actionNames() const
{
    return QStringList{showMenuAction(), pressAction()} + BoundAccessible::actionNames();
}

void PullDownAccessible::doAction(const QString &name)
{
    if (!m_menu.isEnabled())
        return;
    if (name == showMenuAction() || name == pressAction())
        m_menu.popup();
    else
        BoundAccessible::doAction(name);
}

void PullDownAccessible::install()
{
    [[maybe_unused]] static const bool speaks =
        (QAccessible::installFactory(makeAccessible), true);
}

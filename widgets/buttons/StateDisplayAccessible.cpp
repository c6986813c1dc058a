// SPDX-License-Identifier: MIT
#include "widgets/buttons/StateDisplayAccessible.h"

#include "widgets/buttons/StateDisplayWidget.h"

namespace {

QAccessibleInterface *makeAccessible(const QString &className, QObject *object)
{
    auto *display = className == QLatin1String("StateDisplayWidget")
                        ? qobject_cast<StateDisplayWidget *>(object)
                        : nullptr;
    return display ? new StateDisplayAccessible(*display) : nullptr;
}

} // namespace

StateDisplayAccessible::StateDisplayAccessible(StateDisplayWidget &display)
    : BoundAccessible(&display, display, QAccessible::Graphic), m_display(display)
{
}

QString StateDisplayAccessible::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Value ? m_display.shownText() : BoundAccessible::text(kind);
}

QStringList StateDisplayAccessible::actionNames() const
{
    return QStringList(pressAction()) + BoundAccessible::actionNames();
}

void StateDisplayAccessible::doAction(const QString &name)
{
    if (name == pressAction() && m_display.isEnabled())
        m_display.click();
    else
        BoundAccessible::doAction(name);
}

void StateDisplayAccessible::install()
{
    [[maybe_unused]] static const bool speaks =
        (QAccessible::installFactory(makeAccessible), true);
}

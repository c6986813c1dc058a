// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/binding/BoundAccessible.h"

/// How a control speaks whose value is what it shows rather than the memory's text for it: a `Control`
/// tells it by `shownText()`; while that is empty the memory's text stands. GUI thread.
template<class Control>
class ShownTextAccessible : public BoundAccessible
{
public:
    ShownTextAccessible(Control &control, QAccessible::Role role)
        : BoundAccessible(&control, control, role), m_control(control)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString shown = kind == QAccessible::Value ? m_control.shownText() : QString();
        return shown.isEmpty() ? BoundAccessible::text(kind) : shown;
    }

    /// Makes controls of a class speak through an `Accessible`, which is made from the control.
    template<class Accessible>
    static void install()
    {
        [[maybe_unused]] static const bool installed =
            (QAccessible::installFactory(make<Accessible>), true);
    }

    /// Says that the control shows something else now.
    static void notify(Control &control)
    {
        if (!QAccessible::isActive())
            return;
        QAccessibleValueChangeEvent event(&control, control.shownText());
        QAccessible::updateAccessibility(&event);
    }

protected:
    Control &control() const { return m_control; }

private:
    template<class Accessible>
    static QAccessibleInterface *make(const QString &className, QObject *object)
    {
        auto *control = className == QLatin1StringView(Control::staticMetaObject.className())
                            ? qobject_cast<Control *>(object)
                            : nullptr;
        return control ? new Accessible(*control) : nullptr;
    }

    Control &m_control;
};

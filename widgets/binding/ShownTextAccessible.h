// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/binding/BoundAccessible.h"

/// How a control speaks whose value is what it shows rather than what is stored: a meter, a graph, a
/// list of names. A `Control` tells it by `shownText()`; while that is empty the memory's text stands.
/// GUI thread.
template<class Control>
class ShownTextAccessible : public BoundAccessible
{
public:
    /// `control` is what speaks in that role.
    ShownTextAccessible(Control &control, QAccessible::Role role)
        : BoundAccessible(&control, control, role), m_control(control)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString shown = kind == QAccessible::Value ? m_control.shownText() : QString();
        return shown.isEmpty() ? BoundAccessible::text(kind) : shown;
    }

    /// Makes controls of exactly this class speak through an `Accessible`, which is made from the
    /// control.
    template<class Accessible>
    static void install()
    {
        [[maybe_unused]] static const bool installed =
            (QAccessible::installFactory(make<Accessible>), true);
    }

    /// Makes controls of exactly this class speak in a role, without actions of their own.
    template<QAccessible::Role Role>
    static void install()
    {
        install<InRole<Role>>();
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
    /// The control that speaks.
    Control &control() const { return m_control; }

private:
    template<QAccessible::Role Role>
    struct InRole;

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

/// The same in a fixed role.
template<class Control>
template<QAccessible::Role Role>
struct ShownTextAccessible<Control>::InRole : ShownTextAccessible<Control>
{
    explicit InRole(Control &control) : ShownTextAccessible<Control>(control, Role) {}
};

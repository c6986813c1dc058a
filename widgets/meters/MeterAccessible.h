// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/binding/BoundAccessible.h"

/// How a meter or readout speaks: its value is what it shows, not what is stored. A `Meter` tells
/// that by `shownText()`.
template<class Meter>
class MeterAccessible : public BoundAccessible
{
public:
    MeterAccessible(Meter &meter, QAccessible::Role role)
        : BoundAccessible(&meter, meter, role), m_meter(meter)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? m_meter.shownText() : BoundAccessible::text(kind);
    }

    /// Makes widgets of exactly this class speak.
    static void install(QAccessible::Role role)
    {
        static const QAccessible::Role own = role;
        QAccessible::installFactory([](const QString &name, QObject *object) {
            auto *meter = name == QLatin1StringView(Meter::staticMetaObject.className())
                              ? qobject_cast<Meter *>(object)
                              : nullptr;
            return meter ? static_cast<QAccessibleInterface *>(new MeterAccessible(*meter, own))
                         : nullptr;
        });
    }

private:
    Meter &m_meter;
};

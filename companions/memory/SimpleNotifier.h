// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/CSimpleNotifier.h"
#include "interfaces/TMemProxy.h"

/// The memory's own kind of subscription: a proxy that passes what it hears on to a slot.
class SimpleNotifier : public CSimpleNotifier
{
    Q_OBJECT

public:
    /// A subscription of `receiver` to nothing yet, whose values will go to its slot (a SLOT()
    /// text; null: none). Null, with a warning, when the receiver has no such slot.
    static SimpleNotifier *create(QObject *receiver, const char *slot);

    /// Leaves the present address. `names` is what selectAltAddress() will resolve from now on.
    void pointAt(const QString &names);

    int value() const override;
    void setValue(int value) override;
    TMemProxy *valueHolder() override { return &m_holder; }

Q_SIGNALS:
    void valueChanged(int value);

private:
    class Holder : public TMemProxy
    {
    public:
        explicit Holder(SimpleNotifier &notifier) : m_notifier(notifier) {}
        ~Holder() override { leaveMemory(); }

        void connectMemAPI() override;
        void disconnectMemAPI() override;
        void process(const Q_UINT8 *data, int operation, Q_UINT32 extra) override;
        using TMemProxy::leaveMemory;

    private:
        SimpleNotifier &m_notifier;
    };

    explicit SimpleNotifier(QObject *receiver) : CSimpleNotifier(receiver) {}

    Holder m_holder{*this};
};

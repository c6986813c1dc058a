// SPDX-License-Identifier: MIT
#include "companions/memory/SimpleNotifier.h"

#include "companions/memory/MethodText.h"

#include <QMetaMethod>

SimpleNotifier *SimpleNotifier::create(QObject *receiver, const char *slot)
{
    if (!receiver)
        return nullptr;
    auto *notifier = new SimpleNotifier(receiver);
    if (!slot)
        return notifier;
    const QMetaMethod target = methodFromText(*receiver, slot);
    const QMetaMethod source = QMetaMethod::fromSignal(&SimpleNotifier::valueChanged);
    if (target.isValid() && QMetaObject::checkConnectArgs(source, target)) {
        connect(notifier, source, receiver, target);
        return notifier;
    }
    qWarning("%s (\"%ls\") has no slot \"%s\" for a parameter's value.",
             receiver->metaObject()->className(), qUtf16Printable(receiver->objectName()), slot);
    delete notifier;
    return nullptr;
}

void SimpleNotifier::pointAt(const QString &names)
{
    m_holder.leaveMemory();
    m_holder.setNamedAddress(names);
}

int SimpleNotifier::value() const
{
    if (!m_holder.memAPIReady())
        return 0;
    return m_holder.memAPI()->readValue(m_holder.group, m_holder.index, m_holder.element, 0, 0);
}

void SimpleNotifier::setValue(int value)
{
    m_holder.setInformation({m_holder.group, m_holder.element, m_holder.index, value});
}

void SimpleNotifier::Holder::connectMemAPI()
{
    if (memAPIReady())
        memAPI()->attachProxy(this, packed(), 0);
}

void SimpleNotifier::Holder::disconnectMemAPI()
{
    if (isAttached() && memAPIReady())
        memAPI()->detachProxy(this, packed());
    setAttached(false);
}

void SimpleNotifier::Holder::process(const Q_UINT8 *, int operation, Q_UINT32)
{
    // The receiver may delete the notifier: nothing follows the signal.
    if (operation == Refresh && isAttached())
        Q_EMIT m_notifier.valueChanged(m_notifier.value());
}

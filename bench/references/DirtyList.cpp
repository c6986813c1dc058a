// SPDX-License-Identifier: MIT
#include "bench/references/DirtyList.h"

#include <QCoreApplication>
#include <QEvent>

void DirtyList::push(Receiver &receiver)
{
    Receiver *head = m_head.load(std::memory_order_relaxed);
    do {
        receiver.next = head;
    } while (!m_head.compare_exchange_weak(head, &receiver, std::memory_order_release,
                                           std::memory_order_relaxed));
    if (!head)
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

bool DirtyList::event(QEvent *event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    Receiver *next = m_head.exchange(nullptr, std::memory_order_acquire);
    while (next) {
        Receiver &receiver = *next;
        next = receiver.next;
        receiver.dirty.exchange(false, std::memory_order_acq_rel);
        receiver.receive();
    }
    return true;
}

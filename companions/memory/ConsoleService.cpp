// SPDX-License-Identifier: MIT
#include "companions/memory/ConsoleService.h"

#include "interfaces/IMemAPI.h"

void ConsoleService::setConnectionState(int bits)
{
    m_connection.store(bits, std::memory_order_release);
    QMetaObject::invokeMethod(this, &ConsoleService::announceConnection);
}

void ConsoleService::announceConnection()
{
    const bool online = (connectionState() & IMemAPI::Online) == IMemAPI::Online;
    if (online == m_announcedOnline)
        return;
    m_announcedOnline = online;
    Q_EMIT onlineChanged(online);
}

void ConsoleService::stepBlinkClock(bool lit)
{
    m_lit.store(lit, std::memory_order_release);
    QMetaObject::invokeMethod(&m_blinkClock, &BlinkClock::timeout);
}

void ConsoleService::tick()
{
    // A GUI thread that is busy for long finds one tick waiting, not hundreds.
    if (m_tickPending.exchange(true, std::memory_order_acq_rel))
        return;
    QMetaObject::invokeMethod(this, &ConsoleService::announceTick, Qt::QueuedConnection);
}

void ConsoleService::announceTick()
{
    m_tickPending.exchange(false, std::memory_order_acq_rel);
    Q_EMIT frequentServiceEvent();
}

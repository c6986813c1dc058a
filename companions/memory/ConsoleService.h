// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <atomic>

/// The clock that all blinking controls follow.
class BlinkClock : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    /// One blink step. GUI thread.
    void timeout();
};

/// What the console tells beside its parameters: whether it is there, the blink clock and the
/// service tick. The operations may be called on any thread; the signals come on the GUI thread.
class ConsoleService : public QObject
{
    Q_OBJECT

public:
    ConsoleService() = default;

    int connectionState() const { return m_connection.load(std::memory_order_acquire); }
    void setConnectionState(int bits);

    BlinkClock *blinkClock() { return &m_blinkClock; }
    bool isLit() const { return m_lit.load(std::memory_order_acquire); }
    void stepBlinkClock(bool lit);

    void tick();

Q_SIGNALS:
    void onlineChanged(bool online);
    void frequentServiceEvent();

private:
    void announceConnection();
    void announceTick();

    BlinkClock m_blinkClock;
    std::atomic<int> m_connection{0};
    std::atomic<bool> m_lit{false};
    std::atomic<bool> m_tickPending{false};
    bool m_announcedOnline = false;
};

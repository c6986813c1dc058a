// SPDX-License-Identifier: MIT
#include "interfaces/optserver/CAppServer.h"

#include <QBasicTimer>
#include <QCoreApplication>
#include <QList>
#include <QTimerEvent>

#include <algorithm>
#include <optional>

namespace {

// How often it is looked whether a blocked object speaks again: soon at first, for a block that lasts
// as long as a function, and leisurely when it turns out to last.
constexpr int ShortestWait = 10; // milliseconds
constexpr int LongestWait = 50;

struct Call
{
    QPointer<QObject> object;
    TMarshallEvent::Callback callback;

    bool isFor(const Call &other) const
    {
        return object == other.object && callback == other.callback;
    }
};

/// Makes the calls, and keeps those whose object is blocked. Callbacks may do anything: delete
/// objects, block and unblock them, run an event loop that comes back here. So every call leaves the
/// list before it is made, and nothing is remembered across one.
class MarshallDispatcher : public QObject
{
public:
    MarshallDispatcher()
    {
        // Loaded by a plugin, perhaps on another thread.
        if (const auto *application = QCoreApplication::instance())
            moveToThread(application->thread());
    }

    void make(const Call &call)
    {
        makeWaiting();
        if (!call.object)
            return;
        if (call.object->signalsBlocked())
            keep(call);
        else
            call.callback(call.object);
    }

protected:
    bool event(QEvent *event) override
    {
        if (event->type() != TMarshallEvent::eventType())
            return QObject::event(event);
        static_cast<TMarshallEvent *>(event)->call();
        return true;
    }

    void timerEvent(QTimerEvent *) override
    {
        // Started anew before the calls: one may run an event loop, in which the timer whose event
        // this is would stay silent.
        m_wait = std::min(2 * m_wait, LongestWait);
        m_timer.start(m_wait, Qt::CoarseTimer, this);
        makeWaiting();
    }

private:
    void keep(const Call &call)
    {
        const auto same = [&call](const Call &other) { return other.isFor(call); };
        if (std::any_of(m_waiting.cbegin(), m_waiting.cend(), same))
            return;
        m_waiting.append(call);
        if (m_timer.isActive() && m_wait == ShortestWait)
            return;
        m_wait = ShortestWait;
        m_timer.start(m_wait, Qt::CoarseTimer, this);
    }

    /// Makes the waiting calls whose objects speak again, in order.
    void makeWaiting()
    {
        while (const auto call = takeFree())
            call->callback(call->object);
        if (m_waiting.isEmpty())
            m_timer.stop();
    }

    std::optional<Call> takeFree()
    {
        m_waiting.removeIf([](const Call &call) { return !call.object; });
        const auto speaks = [](const Call &call) { return !call.object->signalsBlocked(); };
        const auto at = std::find_if(m_waiting.cbegin(), m_waiting.cend(), speaks);
        if (at == m_waiting.cend())
            return std::nullopt;
        return m_waiting.takeAt(at - m_waiting.cbegin());
    }

    QList<Call> m_waiting;
    QBasicTimer m_timer;
    int m_wait = ShortestWait;
};

} // namespace

// Never destroyed: threads may still post while the program leaves.
QObject *const CAppServer::s_marshallDispatcher = new MarshallDispatcher;

TMarshallEvent::TMarshallEvent(QObject *object, Callback callback)
    : QEvent(eventType()), m_object(object), m_callback(callback)
{
}

QEvent::Type TMarshallEvent::eventType()
{
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

void TMarshallEvent::call() const
{
    // By way of the dispatcher, which knows whether this is the time.
    static_cast<MarshallDispatcher *>(CAppServer::s_marshallDispatcher)
        ->make({m_object, m_callback});
}

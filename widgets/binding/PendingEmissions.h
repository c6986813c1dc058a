// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/optserver/CAppServer.h"

#include <QCoreApplication>

#include <atomic>

/// The value emissions that a control still owes: those asked for by other threads, and the one that
/// fell while its signals were blocked.
class PendingEmissions
{
public:
    /// Counts one emission asked for. Any thread.
    void request() { m_requested.fetch_add(1); }

    /// Whether emissions were asked for since the last settle(). Any thread.
    bool requested() const { return m_requested.load() > 0; }

    /// Takes back what has been counted until now; what other threads count meanwhile stays.
    void settle() { m_requested.fetch_add(-m_requested.load()); }

    /// Has `callback` run with `object` on the main thread once the object's signals are free again.
    /// Any number of calls until then make one. GUI thread.
    void defer(QObject *object, TMarshallEvent::Callback callback)
    {
        if (m_deferred)
            return;
        m_deferred = true;
        QCoreApplication::postEvent(CAppServer::s_marshallDispatcher,
                                    new TMarshallEvent(object, callback));
    }

    /// The deferred call has come. GUI thread.
    void deferredCallCame() { m_deferred = false; }

private:
    std::atomic<int> m_requested = 0;
    bool m_deferred = false;
};

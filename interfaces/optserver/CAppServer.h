// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/Export.h"

#include <QEvent>
#include <QObject>
#include <QPointer>

/// A call that is to happen later on the main thread: a function and the object it is for. The object
/// may die meanwhile; then nothing is called.
class CONSOLECOMPANIONS_EXPORT TMarshallEvent : public QEvent
{
public:
    /// Called on the main thread with an object that is alive.
    using Callback = void (*)(QObject *object);

    /// GUI thread (the object is guarded from then on).
    TMarshallEvent(QObject *object, Callback callback);

    /// The same for all of them.
    static QEvent::Type eventType();

    /// Null when it has died. Main thread.
    QObject *object() const { return m_object; }
    /// Calls, if the object is alive. Main thread.
    void call() const;

private:
    QPointer<QObject> m_object;
    Callback m_callback;
};

/// The application's services for calls across threads.
class CONSOLECOMPANIONS_EXPORT CAppServer
{
public:
    /// Receives TMarshallEvents posted with QApplication::postEvent and runs them on the main thread,
    /// in the order posted, once each. The calls for an object whose signals are blocked wait, without
    /// keeping the event loop busy, until the object speaks again. Any thread may post.
    static QObject *const s_marshallDispatcher;
};

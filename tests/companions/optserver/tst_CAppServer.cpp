// SPDX-License-Identifier: MIT
#include "interfaces/optserver/CAppServer.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSignalBlocker>
#include <QTest>
#include <QThread>

#include <memory>
#include <thread>

namespace {

QStringList s_calls;

void first(QObject *object)
{
    s_calls << object->objectName() + ".first";
}

void second(QObject *object)
{
    s_calls << object->objectName() + ".second";
}

std::unique_ptr<QObject> named(const char *name)
{
    auto object = std::make_unique<QObject>();
    object->setObjectName(QString::fromLatin1(name));
    return object;
}

void post(QObject &object, TMarshallEvent::Callback callback)
{
    QCoreApplication::postEvent(CAppServer::s_marshallDispatcher,
                                new TMarshallEvent(&object, callback));
}

void deliver()
{
    QCoreApplication::sendPostedEvents(CAppServer::s_marshallDispatcher);
}

/// Counts the dispatcher's events while the event loop runs.
class WakeUps : public QObject
{
public:
    WakeUps() { CAppServer::s_marshallDispatcher->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *) override
    {
        ++count;
        return false;
    }
};

} // namespace

class TestAppServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { s_calls.clear(); }
    void callsRunOnceInTheOrderPosted();
    void aBlockedObjectsCallsWaitAndAreKeptOnce();
    void waitingCallsKeepTheirOrderAndHoldBackNobodyElse();
    void aLaterCallDoesNotOvertakeAWaitingOne();
    void waitingCostsFewWakeUpsAndNoneWhenDone();
    void aDeadObjectsCallsAreDropped();
    void aCallMayDeleteBlockAndRunAnEventLoop();
    void otherThreadsMayPost();
};

void TestAppServer::callsRunOnceInTheOrderPosted()
{
    const auto a = named("a");
    const auto b = named("b");
    post(*a, first);
    post(*b, first);
    post(*a, second);
    post(*a, first);
    deliver();
    deliver();
    QCOMPARE(s_calls, (QStringList{"a.first", "b.first", "a.second", "a.first"}));
}

void TestAppServer::aBlockedObjectsCallsWaitAndAreKeptOnce()
{
    const auto a = named("a");
    {
        const QSignalBlocker blocker(a.get());
        for (int i = 0; i < 5; ++i)
            post(*a, first);
        QTest::qWait(80);
        QVERIFY(s_calls.isEmpty());
    }
    QTRY_COMPARE(s_calls.size(), 1);
    QTest::qWait(80);
    QCOMPARE(s_calls, QStringList{"a.first"});
}

void TestAppServer::waitingCallsKeepTheirOrderAndHoldBackNobodyElse()
{
    const auto a = named("a");
    const auto b = named("b");
    QSignalBlocker blocker(a.get());
    post(*a, second);
    post(*b, first);
    post(*a, first);
    post(*a, second);
    deliver();
    QCOMPARE(s_calls, QStringList{"b.first"});
    blocker.unblock();
    QTRY_COMPARE(s_calls, (QStringList{"b.first", "a.second", "a.first"}));
}

void TestAppServer::aLaterCallDoesNotOvertakeAWaitingOne()
{
    const auto a = named("a");
    a->blockSignals(true);
    post(*a, first);
    deliver();
    a->blockSignals(false);
    post(*a, second);
    deliver();
    QCOMPARE(s_calls, (QStringList{"a.first", "a.second"}));
}

void TestAppServer::waitingCostsFewWakeUpsAndNoneWhenDone()
{
    const auto a = named("a");
    WakeUps wakeUps;
    a->blockSignals(true);
    post(*a, first);
    QElapsedTimer clock;
    clock.start();
    QTest::qWait(500);
    // 10, 20, 40 ms, then every 50 ms, and the posted event itself.
    QVERIFY2(wakeUps.count <= 6 + clock.elapsed() / 50, qPrintable(QString::number(wakeUps.count)));
    QVERIFY(wakeUps.count >= 3);

    a->blockSignals(false);
    QTRY_COMPARE(s_calls.size(), 1);
    wakeUps.count = 0;
    QTest::qWait(150);
    QCOMPARE(wakeUps.count, 0);
}

void TestAppServer::aDeadObjectsCallsAreDropped()
{
    auto posted = named("posted");
    auto waiting = named("waiting");
    const auto alive = named("alive");
    waiting->blockSignals(true);
    alive->blockSignals(true);
    post(*waiting, first);
    post(*alive, first);
    deliver();
    post(*posted, first);
    posted.reset();
    waiting.reset();
    deliver();
    alive->blockSignals(false);
    QTRY_COMPARE(s_calls, QStringList{"alive.first"});
}

void TestAppServer::aCallMayDeleteBlockAndRunAnEventLoop()
{
    // The call of "a" deletes "b", blocks "c" again and delivers "d" from a nested event loop.
    static std::unique_ptr<QObject> b;
    static QObject *c = nullptr;
    const auto a = named("a");
    const auto ownerOfC = named("c");
    const auto d = named("d");
    b = named("b");
    c = ownerOfC.get();
    for (QObject *object : {a.get(), b.get(), c, d.get()}) {
        object->blockSignals(true);
        post(*object, object == a.get() ? +[](QObject *self) {
            b.reset();
            c->blockSignals(true);
            first(self);
            QTest::qWait(60);
            second(self);
        } : first);
    }
    deliver();
    for (QObject *object : {a.get(), b.get(), c, d.get()})
        object->blockSignals(false);
    QTRY_COMPARE(s_calls, (QStringList{"a.first", "d.first", "a.second"}));
    c->blockSignals(false);
    QTRY_COMPARE(s_calls.last(), "c.first");
    QCOMPARE(s_calls.size(), 4);
}

void TestAppServer::otherThreadsMayPost()
{
    static const QThread *ranOn = nullptr;
    const auto a = named("a");
    auto *event = new TMarshallEvent(a.get(), [](QObject *) { ranOn = QThread::currentThread(); });
    std::thread([=] {
        QCoreApplication::postEvent(CAppServer::s_marshallDispatcher, event);
    }).join();
    deliver();
    QCOMPARE(ranOn, QCoreApplication::instance()->thread());
}

QTEST_GUILESS_MAIN(TestAppServer)
#include "tst_CAppServer.moc"

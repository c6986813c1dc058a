// SPDX-License-Identifier: MIT
#include "tests/companions/memory/MemoryRig.h"
#include "tests/support/Table.h"

#include <QSignalSpy>
#include <QtTest>

#include <thread>

namespace {

class Receiver : public QObject
{
    Q_OBJECT

public:
    int plainCalls = 0;
    QList<bool> onlines;

public Q_SLOTS:
    void plain() { ++plainCalls; }
    void onlineChange(bool online) { onlines.append(online); }
};

} // namespace

class tst_ConsoleService : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void connectsItsSignals_data();
    void connectsItsSignals();
    void tellsWhenTheConsoleComesAndGoes();
    void clocksComeOnTheGuiThread();
};

void tst_ConsoleService::connectsItsSignals_data()
{
    Table<QByteArray, QByteArray, bool>()
        .row("as the macros write", "2onlineChanged(bool)", "1onlineChange(bool)", true)
        .row("white space", "2 onlineChanged( bool )", "1onlineChange( bool )", true)
        .row("without codes", "frequentServiceEvent()", "plain()", true)
        .row("no such slot", "2onlineChanged(bool)", "1none(bool)", false)
        .row("no such signal", "2none()", "1plain()", false)
        .row("not one of the memory's", "2destroyed()", "1plain()", false)
        .row("a slot that wants more", "2frequentServiceEvent()", "1onlineChange(bool)", false);
}

void tst_ConsoleService::connectsItsSignals()
{
    const auto [signal, slot, connects] = Table<QByteArray, QByteArray, bool>::fetch();
    Rig rig;
    Receiver receiver;
    const auto set = [&](bool on) {
        return rig.memory->connectApiSignal(on, signal, &receiver, slot);
    };
    QCOMPARE(set(true), connects);
    QCOMPARE(set(true), connects);
    Q_EMIT rig.memory->onlineChanged(true);
    Q_EMIT rig.memory->frequentServiceEvent();
    QCOMPARE(receiver.onlines.size() + receiver.plainCalls, connects ? 1 : 0);
    QCOMPARE(set(false), connects);
    Q_EMIT rig.memory->onlineChanged(true);
    Q_EMIT rig.memory->frequentServiceEvent();
    QCOMPARE(receiver.onlines.size() + receiver.plainCalls, connects ? 1 : 0);
}

void tst_ConsoleService::tellsWhenTheConsoleComesAndGoes()
{
    Rig rig;
    Receiver receiver;
    rig.memory->connectApiSignal(true, SIGNAL(onlineChanged(bool)), &receiver,
                                 SLOT(onlineChange(bool)));
    std::thread([&] {
        rig.memory->setConnectionState(IMemAPI::LinkUp);
        rig.memory->setConnectionState(IMemAPI::Online);
        rig.memory->setConnectionState(IMemAPI::Online | 4);
    }).join();
    QCOMPARE(rig.memory->connectionState(), int(IMemAPI::Online) | 4);
    QVERIFY(receiver.onlines.isEmpty());
    rig.turn();
    rig.memory->setConnectionState(IMemAPI::InSync);
    rig.turn();
    QCOMPARE(receiver.onlines, (QList<bool>{true, false}));
}

void tst_ConsoleService::clocksComeOnTheGuiThread()
{
    Rig rig;
    Receiver receiver;
    rig.memory->connectApiSignal(true, SIGNAL(frequentServiceEvent()), &receiver, SLOT(plain()));
    bool lit = true;
    const QSignalSpy blinks(rig.memory->blinkClock(&lit, 0), SIGNAL(timeout()));
    QVERIFY(!lit);
    std::thread([&] {
        for (int i = 0; i < 100; ++i)
            rig.memory->tickService();
        rig.memory->stepBlinkClock(true);
    }).join();
    QCOMPARE(std::pair(receiver.plainCalls, blinks.size()), std::pair(0, qsizetype(0)));
    rig.turn();
    QCOMPARE(std::pair(receiver.plainCalls, blinks.size()), std::pair(1, qsizetype(1)));
    rig.memory->blinkClock(&lit, 0);
    QVERIFY(lit);
}

QTEST_MAIN(tst_ConsoleService)
#include "tst_ConsoleService.moc"

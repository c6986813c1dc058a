// SPDX-License-Identifier: MIT
#include "tests/companions/memory/MemoryRig.h"
#include "tests/support/Table.h"

#include <QElapsedTimer>
#include <QThread>
#include <QtTest>

#include <future>
#include <thread>

namespace {

constexpr auto Meter = "kInputMeter/kLevel";

/// Delivers meter readings for as long as it lives.
class MeterThread
{
public:
    MeterThread(ParameterMemory &memory, IMemAPI::TSingleBaseAddress at)
        : m_thread([this, &memory, at] {
              while (m_running)
                  memory.deliverMeter(at.group, at.index, at.element, 100, 200);
          })
    {
    }
    ~MeterThread()
    {
        m_running = false;
        m_thread.join();
    }

private:
    std::atomic<bool> m_running{true};
    std::thread m_thread;
};

class MeterRig : public Rig
{
public:
    void watch(Probe &probe, bool on) const
    {
        memory->setMeterWatch(on, &probe, probe.group, probe.index, probe.element);
    }
    void deliver(const Probe &probe, int level, int peak) const
    {
        memory->deliverMeter(probe.group, probe.index, probe.element, level, peak);
    }
};

} // namespace

class tst_LiveDelivery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void packsReadingsIntoSevenBitBytes_data();
    void packsReadingsIntoSevenBitBytes();
    void deliversOnTheCallingThread();
    void readingsOfOthersStayAway();
    void endingAWatchWaitsForTheThreadInsideTheCall();
    void endingAWatchGetsThroughReadingsThatNeverStop();
    void destroyedWhileReadingsPourIn();
    void watchesEndedInsideADeliveryOnTheGuiThread();
    void memoryDestroyedInsideADeliveryOnTheGuiThread();
    void timecodeComesToThoseWhoAsked();
};

void tst_LiveDelivery::packsReadingsIntoSevenBitBytes_data()
{
    Table<int, int, quint32>()
        .row("silence", 0, 0, 0x00000000U)
        .row("both bytes", 0x1FF, 129, 0x037F0101U)
        .row("beyond 14 bits", 99999, -5, 0x7F7F0000U);
}

void tst_LiveDelivery::packsReadingsIntoSevenBitBytes()
{
    const auto [level, peak, bytes] = Table<int, int, quint32>::fetch();
    MeterRig rig;
    Probe probe(Meter);
    rig.bind(probe, 2);
    rig.watch(probe, true);
    rig.deliver(probe, level, peak);
    QCOMPARE(probe.reading.load(), bytes);
}

void tst_LiveDelivery::deliversOnTheCallingThread()
{
    MeterRig rig;
    Probe probe(Meter);
    rig.bind(probe);
    rig.watch(probe, true);
    std::thread::id delivered;
    probe.onProcess = [&] {
        delivered = std::this_thread::get_id();
        if (delivered != std::thread::id())
            MAPI_postObserverEvent(rig.memory.get(), &probe);
        probe.onProcess = nullptr;
    };
    std::thread worker([&] { rig.deliver(probe, 1, 2); });
    const std::thread::id expected = worker.get_id();
    worker.join();
    QCOMPARE(delivered, expected);
    QCOMPARE(probe.calls, 0);
    rig.turn();
    QCOMPARE(probe.take(), 1); // the repeat asked for from inside the call
}

void tst_LiveDelivery::readingsOfOthersStayAway()
{
    MeterRig rig;
    Probe one(Meter);
    Probe other(Meter);
    rig.bind(one, 0);
    rig.bind(other, 1);
    rig.watch(one, true);
    rig.deliver(other, 5, 5);
    QVERIFY(!one.readings && !other.readings);
    rig.watch(one, false);
    rig.deliver(one, 5, 5);
    QVERIFY(!one.readings);
}

void tst_LiveDelivery::endingAWatchWaitsForTheThreadInsideTheCall()
{
    MeterRig rig;
    Probe probe(Meter);
    rig.bind(probe);
    rig.watch(probe, true);
    std::promise<void> entered;
    std::atomic<bool> left{false};
    probe.onProcess = [&] {
        entered.set_value();
        QThread::msleep(50);
        left = true;
    };
    std::thread worker([&] { rig.deliver(probe, 1, 1); });
    entered.get_future().wait();
    rig.watch(probe, false);
    QVERIFY(left);
    worker.join();
}

void tst_LiveDelivery::endingAWatchGetsThroughReadingsThatNeverStop()
{
    MeterRig rig;
    Probe probe(Meter);
    rig.bind(probe);
    rig.watch(probe, true);
    probe.onProcess = [] { QThread::msleep(1); }; // one thread or another is always inside
    const MeterThread threads[] = {{*rig.memory, rig.address(Meter)},
                                   {*rig.memory, rig.address(Meter)},
                                   {*rig.memory, rig.address(Meter)}};
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 20; ++i) {
        QThread::msleep(1);
        rig.watch(probe, false);
        rig.watch(probe, true);
    }
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
}

void tst_LiveDelivery::destroyedWhileReadingsPourIn()
{
    MeterRig rig;
    const MeterThread thread(*rig.memory, rig.address(Meter));
    for (int i = 0; i < 200; ++i) {
        Probe probe(Meter);
        probe.onProcess = [&] { MAPI_postObserverEvent(rig.memory.get(), &probe); };
        rig.memory->bindProxy(&probe);
        rig.watch(probe, true);
        if (i % 2)
            rig.turn();
    }
    rig.turn();
}

void tst_LiveDelivery::watchesEndedInsideADeliveryOnTheGuiThread()
{
    MeterRig rig;
    Probe first(Meter);
    auto second = std::make_unique<Probe>(Meter);
    Probe third(Meter);
    for (Probe *probe : {&first, second.get(), &third}) {
        rig.bind(*probe);
        rig.watch(*probe, true);
    }
    first.onProcess = [&] {
        second.reset();
        rig.watch(third, false);
        rig.watch(first, false);
    };
    rig.deliver(first, 1, 1);
    QCOMPARE(first.readings, 1);
    QVERIFY(!third.readings);
}

void tst_LiveDelivery::memoryDestroyedInsideADeliveryOnTheGuiThread()
{
    MeterRig rig;
    Probe first(Meter);
    Probe second(Meter);
    for (Probe *probe : {&first, &second}) {
        rig.bind(*probe);
        rig.watch(*probe, true);
    }
    first.onProcess = [&] { rig.memory.reset(); };
    rig.deliver(first, 1, 1);
    QVERIFY(!second.readings);
}

void tst_LiveDelivery::timecodeComesToThoseWhoAsked()
{
    Rig rig;
    QVERIFY(!rig.memory->timecodeWanted());
    auto asking = std::make_unique<Probe>("kSetupTCEventParams/kTCEventFrameRate");
    Probe silent("kSetupTCEventParams/kTCEventFrameRate");
    rig.bind(*asking);
    rig.bind(silent);
    rig.memory->requestTimecode(1, asking.get());
    rig.memory->requestTimecode(1, asking.get());
    QVERIFY(rig.memory->timecodeWanted());
    std::thread([&] { rig.memory->deliverTimecode(1, 59, 30, 24); }).join();
    QCOMPARE(asking->reading.load(), 0x013B1E18U);
    QVERIFY(!silent.readings);
    asking.reset();
    QVERIFY(!rig.memory->timecodeWanted());
    rig.memory->deliverTimecode(0, 0, 0, 0);
}

QTEST_MAIN(tst_LiveDelivery)
#include "tst_LiveDelivery.moc"

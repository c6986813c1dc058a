// SPDX-License-Identifier: MIT
#include "console/SimulatedConsole.h"

#include "interfaces/TMemProxyBasic.h"
#include "tests/console/ConsoleFixture.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

#include <atomic>
#include <mutex>
#include <vector>

namespace {

/// Keeps the four bytes of every delivery.
class Listener : public TMemProxyBasic
{
public:
    explicit Listener(ParameterMemory &memory) : m_memory(memory) {}
    ~Listener() override { m_memory.releaseProxy(this); }

    void process(const Q_UINT8 *data, int, Q_UINT32) override
    {
        if (!data)
            return;
        const std::lock_guard lock(m_mutex);
        m_heard.emplace_back(reinterpret_cast<const char *>(data), 4);
    }

    QList<QByteArray> heard() const
    {
        const std::lock_guard lock(m_mutex);
        return m_heard;
    }

private:
    ParameterMemory &m_memory;
    mutable std::mutex m_mutex;
    QList<QByteArray> m_heard;
};

/// Listens to the level meter of the first input.
class MeterListener : public Listener
{
public:
    explicit MeterListener(ParameterMemory &memory) : Listener(memory)
    {
        IMemAPI::TSingleBaseAddress at;
        if (!memory.resolve("00kInputMeter/kLevel", 0, at))
            qFatal("no meter");
        memory.setMeterWatch(true, this, at.group, at.index, at.element);
    }
};

} // namespace

class TestSimulatedConsole : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void comesOnlineShortlyAfterTheStart();
    void repeatsItselfWithTheSameSeed();
    void doesNothingWhileOffline();
    void theClocksGoOnWhileOffline();
    void theCounterIsSentOnlyToWhoWantsIt();
    void runsOnItsOwnThreadAndStopsPromptly();
    void isNotSteppedWhileItRuns();
    void settingsMayComeFromAnyThread();
};

void TestSimulatedConsole::comesOnlineShortlyAfterTheStart()
{
    const auto memory = loadedMemory();
    SimulatedConsole console(*memory);
    QCOMPARE(memory->connectionState(), 0);
    console.step(300);
    QCOMPARE(memory->connectionState(), int(IMemAPI::LinkUp));
    console.step(300);
    QCOMPARE(memory->connectionState(), int(IMemAPI::Online));
    console.setOnline(false);
    console.step(20);
    QCOMPARE(memory->connectionState(), 0);
    console.setOnline(true);
    console.step(600);
    QCOMPARE(memory->connectionState(), int(IMemAPI::Online));
}

void TestSimulatedConsole::repeatsItselfWithTheSameSeed()
{
    std::vector<std::vector<int>> endings;
    QList<QList<QByteArray>> meters;
    for (const unsigned seed : {7U, 7U, 8U}) {
        const auto memory = loadedMemory();
        const MeterListener meter(*memory);
        SimulatedConsole console(*memory, seed);
        console.setRate(300);
        console.step(10'000);
        endings.push_back(values(*memory));
        meters << meter.heard();
    }
    QVERIFY(endings[0] == endings[1]);
    QVERIFY(endings[0] != endings[2]);
    QCOMPARE(meters[0], meters[1]);
    QVERIFY(meters[0] != meters[2]);
}

void TestSimulatedConsole::doesNothingWhileOffline()
{
    const auto memory = loadedMemory();
    const MeterListener meter(*memory);
    Listener counter(*memory);
    SimulatedConsole console(*memory);
    console.setRate(1000);
    console.step(2000);
    console.setOnline(false);
    console.step(20);
    const auto before = values(*memory);
    const auto metersBefore = meter.heard().size();
    memory->requestTimecode(1, &counter);
    console.step(5000);
    QVERIFY(values(*memory) == before);
    QCOMPARE(meter.heard().size(), metersBefore);
    QVERIFY(counter.heard().isEmpty());

    console.setOnline(true);
    console.step(2000);
    QVERIFY(values(*memory) != before);
    QVERIFY(meter.heard().size() > metersBefore);
}

void TestSimulatedConsole::theClocksGoOnWhileOffline()
{
    const auto memory = loadedMemory();
    QSignalSpy blinks(memory->blinkClock(nullptr, 0), SIGNAL(timeout()));
    QSignalSpy services(memory.get(), &ParameterMemory::frequentServiceEvent);
    SimulatedConsole console(*memory);
    console.setOnline(false);
    bool litAtFirst = false;
    for (int time = 0; time < 10'000; time += 20) {
        console.step(20);
        QCoreApplication::processEvents();
        if (time == 100)
            memory->blinkClock(&litAtFirst, 0);
    }
    QVERIFY(litAtFirst);
    QVERIFY2(qAbs(blinks.size() - 40) <= 1, qPrintable(QString::number(blinks.size())));
    QVERIFY2(qAbs(services.size() - 500) <= 1, qPrintable(QString::number(services.size())));
}

void TestSimulatedConsole::theCounterIsSentOnlyToWhoWantsIt()
{
    const auto memory = loadedMemory();
    Listener counter(*memory);
    SimulatedConsole console(*memory);
    console.step(2000);
    QVERIFY(counter.heard().isEmpty());
    memory->requestTimecode(1, &counter);
    console.step(1000);
    const QList<QByteArray> heard = counter.heard();
    QCOMPARE(heard.size(), 30);
    for (qsizetype i = 1; i < heard.size(); ++i)
        QCOMPARE(heard[i][3], char((heard[i - 1][3] + 1) % 30));
    QVERIFY(heard.last()[2] >= 2);
}

void TestSimulatedConsole::runsOnItsOwnThreadAndStopsPromptly()
{
    const auto memory = loadedMemory();
    const MeterListener meter(*memory);
    SimulatedConsole console(*memory);
    console.setRate(500);
    for (int round = 0; round < 3; ++round) {
        const auto before = values(*memory);
        const auto metersBefore = meter.heard().size();
        console.start();
        console.start();
        QVERIFY(console.isRunning());
        QTRY_COMPARE_WITH_TIMEOUT(memory->connectionState(), int(IMemAPI::Online), 3000);
        QTRY_VERIFY_WITH_TIMEOUT(values(*memory) != before, 3000);
        QTRY_VERIFY_WITH_TIMEOUT(meter.heard().size() > metersBefore, 3000);

        QElapsedTimer clock;
        clock.start();
        console.stop();
        QVERIFY2(clock.elapsed() < 50, qPrintable(QString::number(clock.elapsed())));
        QVERIFY(!console.isRunning());
        QCOMPARE(memory->connectionState(), 0);
        const auto heard = meter.heard().size();
        QTest::qWait(60);
        QCOMPARE(meter.heard().size(), heard);
    }
}

void TestSimulatedConsole::isNotSteppedWhileItRuns()
{
    const auto memory = loadedMemory();
    SimulatedConsole console(*memory);
    console.start();
    console.step(1'000'000);
    QVERIFY(memory->connectionState() != IMemAPI::Online);
}

void TestSimulatedConsole::settingsMayComeFromAnyThread()
{
    const auto memory = loadedMemory();
    SimulatedConsole console(*memory);
    console.start();
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 700) {
        console.setRate(2 * SimulatedConsole::HighestRate);
        QCOMPARE(console.rate(), SimulatedConsole::HighestRate);
        console.setBlocks({"kInputFader"});
        console.setOnline(clock.elapsed() > 100);
        QTest::qSleep(1);
        console.setRate(-5);
        QCOMPARE(console.rate(), 0.0);
        console.setBlocks({});
    }
    QVERIFY(console.isOnline());
}

QTEST_MAIN(TestSimulatedConsole)
#include "tst_SimulatedConsole.moc"

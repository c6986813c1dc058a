// SPDX-License-Identifier: MIT
// A soak is worth what its checks can see.
#include "companions/memory/ParameterMemory.h"
#include "companions/scenes/SceneLibrary.h"
#include "console/SimulatedConsole.h"
#include "editor/BoundControls.h"
#include "editor/MainWindow.h"
#include "editor/ScreenPages.h"
#include "editor/soak/Checker.h"
#include "editor/soak/Growth.h"
#include "editor/soak/SoakWindows.h"
#include "editor/soak/StallWatch.h"
#include "widgets/controls/CDial.h"

#include <QApplication>
#include <QBackingStore>
#include <QElapsedTimer>
#include <QPainter>
#include <QProcess>
#include <QScrollArea>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <algorithm>
#include <cmath>
#include <csignal>

#include <unistd.h>

namespace {

/// While the watch waits for an answer.
template<typename Deed>
void letDo(StallWatch &watch, const char *what, Deed deed)
{
    QTest::qWait(20);
    QTimer::singleShot(0, &watch, [&watch, what, deed] {
        watch.setDoing(what);
        deed();
    });
    QTest::qWait(20);
    QApplication::processEvents(); // the answer, if the time was up before
    watch.setDoing("nothing");
}

StallWatch::Stall of(const StallWatch &watch, std::string_view what)
{
    const auto &all = watch.longest();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [what](const auto &each) { return each.doing == what; });
    return found == all.end() ? StallWatch::Stall{} : *found;
}

} // namespace

class TestChecker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void untouchedWindowsShowNoDifference();
    void aPixelThatNoPaintGivesIsFound();
    void aValueThatTheMemoryDoesNotHoldIsFound();
    void aControlThatMissedAChangeIsFound();
    void aKeyThatHasJustBegunToBlinkIsNoDifference();
    void growthIsTheSlopeOfAllSamples();
    void stallsAreToldByDeedAndByWhatTheThreadDidMeanwhile();
    void aStopOfTheProgramIsNoStallOfItsOwn();

private:
    CDial *dial() { return m_windows.window(0)->findChildren<CDial *>().at(3); }

    ParameterMemory m_memory;
    const bool m_loaded = m_memory.load(ParameterMemory::builtInModel());
    SimulatedConsole m_console{m_memory};
    QTemporaryDir m_folder;
    SceneLibrary m_library;
    SoakWindows m_windows{m_memory, m_console, m_library, {":/forms/channel-strips.ui"}};
};

void TestChecker::initTestCase()
{
    QVERIFY(m_loaded);
    QVERIFY(m_library.open(m_folder.filePath("scenes.sqlite")));
    m_windows.openAll();
}

void TestChecker::untouchedWindowsShowNoDifference()
{
    Checker checker(m_memory, m_windows);
    checker.check();
    QCOMPARE(checker.lines(), QStringList());
    QCOMPARE(checker.windowsCompared(), 2);
    QVERIFY(checker.controlsCompared() > 100);
}

void TestChecker::aPixelThatNoPaintGivesIsFound()
{
    MainWindow *window = m_windows.window(0);
    Checker(m_memory, m_windows).check(); // nothing waits to be painted any more
    const QPoint place = dial()->mapTo(window, dial()->rect().center());
    QPainter(window->backingStore()->paintDevice())
        .fillRect(QRect(place, QSize(1, 1)), Qt::magenta);
    Checker checker(m_memory, m_windows);
    checker.check();
    QCOMPARE(checker.differences(), 1);
    const QString line = checker.lines().constFirst();
    for (const QString &part :
         {dial()->accessibleName(), dial()->namedAddress(), QString("1x1 pixels")})
        QVERIFY2(line.contains(part), qPrintable(line));
}

void TestChecker::aValueThatTheMemoryDoesNotHoldIsFound()
{
    dial()->silentCounter()++;
    dial()->setValue(dial()->value() + 3);
    dial()->silentCounter()--;
    Checker checker(m_memory, m_windows);
    checker.compareValues();
    QCOMPARE(checker.differences(), 1);
    QVERIFY2(checker.lines().constFirst().contains(dial()->namedAddress()),
             qPrintable(checker.lines().constFirst()));
    dial()->process(nullptr, TMemProxy::Refresh, 0);
}

// A window that does not hear of a change: it shows what a paint gives, but not what the memory holds.
void TestChecker::aControlThatMissedAChangeIsFound()
{
    const IMemAPI::TSingleBaseAddress at = dial()->valueAddress();
    const int stored = m_memory.readValue(at.group, at.index, at.element, 0, 0);
    m_memory.detachProxy(dial(), dial()->packed());
    m_memory.writeValue(at.group, at.index, at.element, stored + 60, 0);
    Checker checker(m_memory, m_windows);
    checker.check();
    const QStringList found = checker.lines().filter(dial()->namedAddress());
    QCOMPARE(found.size(), 2);
    QVERIFY2(found.constFirst().contains(QString::number(stored + 60)),
             qPrintable(found.constFirst()));
    QVERIFY2(found.constLast().contains("reading the memory again"), qPrintable(found.constLast()));
    m_memory.attachProxy(dial(), dial()->packed(), 0);
}

void TestChecker::aKeyThatHasJustBegunToBlinkIsNoDifference()
{
    const auto write = [this](const char *name, int element, int value) {
        IMemAPI::TSingleBaseAddress at;
        QVERIFY(m_memory.resolve(name, element, at));
        m_memory.writeValue(at.group, at.index, at.element, value, 0);
        QApplication::processEvents();
    };
    m_memory.stepBlinkClock(true);
    write("kInputPair/kPair", 1, 0);
    write("kSelectedChannel/kChannel", 0, 1);
    write("kSelectedChannel/kChannel", 0, 0);
    write("kInputPair/kPair", 1, 1);
    Checker checker(m_memory, m_windows);
    checker.check();
    QCOMPARE(checker.lines(), QStringList());
    write("kInputPair/kPair", 1, 0);
}

void TestChecker::growthIsTheSlopeOfAllSamples()
{
    Growth steady;
    Growth growing;
    QCOMPARE(steady.overall(), 0.0);
    for (int minute = 1; minute <= 9; ++minute) {
        const double noise = minute % 2 ? 3 : -3;
        steady.add(minute, 100 + noise);
        growing.add(minute, 100 + noise + 2 * minute);
    }
    QVERIFY(std::abs(steady.overall()) < 0.5);
    QVERIFY(std::abs(growing.perMinute() - 2) < 0.1);
    QVERIFY(std::abs(growing.overall() - 16) < 0.5);
}

void TestChecker::stallsAreToldByDeedAndByWhatTheThreadDidMeanwhile()
{
    StallWatch watch;
    const auto workFor = [](int milliseconds) {
        QElapsedTimer clock;
        for (clock.start(); !clock.hasExpired(milliseconds);) {
        }
    };
    letDo(watch, "work", [&] { workFor(120); });
    letDo(watch, "sleep", [] { QThread::msleep(150); });
    letDo(watch, "pause", [&watch] {
        const StallWatch::Pause pause(watch);
        QThread::msleep(400);
    });
    letDo(watch, "work", [&] { workFor(30); });
    QTest::qWait(20);

    QVERIFY(of(watch, "work").length > 100);
    QVERIFY(of(watch, "work").running + of(watch, "work").kept > 100);
    QVERIFY(of(watch, "work").running > 10);
    QVERIFY(of(watch, "sleep").length > 100);
    QVERIFY(of(watch, "sleep").running < 100);
    QVERIFY(of(watch, "pause").length < 400);
    QVERIFY(std::is_sorted(watch.longest().begin(), watch.longest().end(),
                           [](auto &one, auto &other) { return one.own() > other.own(); }));
    watch.startAnew();
    QVERIFY(watch.longest().empty());
}

void TestChecker::aStopOfTheProgramIsNoStallOfItsOwn()
{
    if (isatty(STDIN_FILENO))
        QSKIP("A shell would take its terminal back.");
    StallWatch watch;
    // However long this program takes to stop, it is sent on half a second after that.
    const QString sendOn("until grep -q '^State:.T' /proc/%1/status; do sleep 0.02; done; "
                         "sleep 0.5; kill -CONT %1");
    QVERIFY(QProcess::startDetached("sh", {"-c", sendOn.arg(QCoreApplication::applicationPid())}));
    letDo(watch, "stop", [] {
        QThread::msleep(100); // the watch asks
        std::raise(SIGSTOP);
    });
    QTest::qWait(50);
    QVERIFY(of(watch, "stop").length > 400);
    QVERIFY(of(watch, "stop").own() < of(watch, "stop").length / 2);
}

QTEST_MAIN(TestChecker)
#include "tst_Checker.moc"

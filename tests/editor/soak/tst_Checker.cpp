// SPDX-License-Identifier: MIT
// A soak is worth what its checks can see.
#include "companions/memory/ParameterMemory.h"
#include "companions/scenes/SceneLibrary.h"
#include "console/SimulatedConsole.h"
#include "editor/BoundControls.h"
#include "editor/MainWindow.h"
#include "editor/ScreenPages.h"
#include "editor/soak/Checker.h"
#include "editor/soak/SoakWindows.h"
#include "editor/soak/StallWatch.h"
#include "widgets/controls/CDial.h"

#include <QBackingStore>
#include <QElapsedTimer>
#include <QPainter>
#include <QScrollArea>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

class TestChecker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void untouchedWindowsShowNoDifference();
    void aPixelThatNoPaintGivesIsFound();
    void aValueThatTheMemoryDoesNotHoldIsFound();
    void aControlThatMissedAChangeIsFound();
    void stallsAreToldByWhatTheThreadDidMeanwhile();

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
    QPainter(window->backingStore()->paintDevice()).fillRect(QRect(place, QSize(1, 1)), Qt::magenta);
    Checker checker(m_memory, m_windows);
    checker.check();
    QCOMPARE(checker.differences(), 1);
    const QString line = checker.lines().constFirst();
    for (const QString &part : {dial()->accessibleName(), dial()->namedAddress(), QString("1x1 pixels")})
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
    QVERIFY2(found.constFirst().contains(QString::number(stored + 60)), qPrintable(found.constFirst()));
    QVERIFY2(found.constLast().contains("reading the memory again"), qPrintable(found.constLast()));
    m_memory.attachProxy(dial(), dial()->packed(), 0);
}

void TestChecker::stallsAreToldByWhatTheThreadDidMeanwhile()
{
    StallWatch watch;
    QTest::qWait(50);
    watch.startAnew();
    QTest::qWait(20);
    QTimer::singleShot(0, &watch, [&watch] {
        watch.setDoing("work");
        QElapsedTimer clock;
        clock.start();
        while (!clock.hasExpired(120)) {
        }
    });
    QTRY_VERIFY(watch.longest().length > 100);
    QVERIFY(watch.longestRunning().running > 10);
    QCOMPARE(watch.longestRunning().doing, "work");

    watch.startAnew();
    QTest::qWait(20);
    QTimer::singleShot(0, &watch, [] { QThread::msleep(120); });
    QTRY_VERIFY(watch.longest().length > 100);
    QVERIFY(watch.longestRunning().running < 100);

    watch.startAnew();
    QTest::qWait(20);
    QTimer::singleShot(0, &watch, [&watch] {
        const StallWatch::Pause pause(watch);
        QThread::msleep(400);
    });
    QTest::qWait(450);
    QVERIFY(watch.longest().length < 400);
}

QTEST_MAIN(TestChecker)
#include "tst_Checker.moc"

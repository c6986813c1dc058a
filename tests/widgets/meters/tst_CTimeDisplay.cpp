// SPDX-License-Identifier: MIT
// The time display: its text, how often it paints, what it asks for.
#include "tests/support/MeterRig.h"
#include "tests/support/Table.h"
#include "widgets/meters/CTimeDisplay.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTimer>

#include <thread>

namespace {

class Rig : public MeterRig<CTimeDisplay>
{
public:
    void count(int hours, int minutes, int seconds, int frames)
    {
        const Q_UINT8 bytes[] = {Q_UINT8(hours), Q_UINT8(minutes), Q_UINT8(seconds),
                                 Q_UINT8(frames)};
        meter.process(bytes, TMemProxyBasic::Refresh, 0);
    }
    /// Later than the longest pause between two paints.
    void tickLater()
    {
        QTest::qWait(60);
        meter.updateIfNeeded();
    }
};

} // namespace

class tst_CTimeDisplay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theTextFollowsCounterAndFormat_data();
    void theTextFollowsCounterAndFormat();
    void anEqualCounterPaintsNothing();
    void aFormatAlonePaintsAtTheNextTick();
    void paintsAreNeverTooClose();
    void frequenciesThatAreNone_data();
    void frequenciesThatAreNone();
    void aHiddenDisplayPaintsNothing();
    void otherThreadsOnlyStoreTheCounter();
    void onlyRefreshesCount();
    void asksForTheCounterAndGoesOnAsking();
    void leavesTheTickConnected();
    void theSizeIsThatOfTheLongestText();
    void speaksTheTime();
};

void tst_CTimeDisplay::theTextFollowsCounterAndFormat_data()
{
    Table<int, QString>()
        .row("30 frames", 0, "01:02:03.04")
        .row("drops frames", 1, "01:02:03.04.")
        .row("25 frames", 2, "01:02:03.04")
        .row("drops others", 3, "01:02:03.04.")
        .row("unknown", 4, "01:02:03.04")
        .row("negative", -1, "01:02:03.04");
}

void tst_CTimeDisplay::theTextFollowsCounterAndFormat()
{
    const auto [format, text] = Table<int, QString>::fetch();
    Rig rig;
    QCOMPARE(rig.meter.shownText(), QStringLiteral("00:00:00.00"));
    rig.show();
    rig.count(1, 2, 3, 4);
    rig.meter.setTimeCodeFormat(format);
    rig.tickLater();
    QCOMPARE(rig.meter.shownText(), text);
}

void tst_CTimeDisplay::anEqualCounterPaintsNothing()
{
    Rig rig;
    rig.show();
    rig.count(1, 2, 3, 4);
    rig.tickLater();
    QCOMPARE(rig.paintsSince(), 1);
    rig.count(1, 2, 3, 4);
    rig.tickLater();
    QCOMPARE(rig.paintsSince(), 0);
}

void tst_CTimeDisplay::aFormatAlonePaintsAtTheNextTick()
{
    Rig rig;
    rig.show();
    rig.meter.setTimeCodeFormat(1);
    QCOMPARE(rig.paintsSince(), 0);
    rig.tickLater();
    QCOMPARE(rig.paintsSince(), 1);
    rig.meter.setTimeCodeFormat(1);
    rig.tickLater();
    QCOMPARE(rig.paintsSince(), 0);
}

void tst_CTimeDisplay::paintsAreNeverTooClose()
{
    Rig rig;
    rig.show();
    QElapsedTimer time;
    time.start();
    int paints = 0;
    for (int frame = 0; time.elapsed() < 400; ++frame) {
        rig.count(0, 0, 0, frame);
        paints += rig.paintsSince();
        QTest::qSleep(2);
    }
    QVERIFY2(paints >= 3 && paints <= 400 / 51 + 1, qPrintable(QString::number(paints)));
}

void tst_CTimeDisplay::frequenciesThatAreNone_data()
{
    Table<int>().row("none", 0).row("negative", -20);
}

void tst_CTimeDisplay::frequenciesThatAreNone()
{
    const auto [frequency] = Table<int>::fetch();
    Rig rig;
    rig.show();
    rig.meter.setUpdateFrequency(frequency);
    rig.count(1, 2, 3, 4);
    rig.tickLater();
    QCOMPARE(rig.paintsSince(), 0);
}

void tst_CTimeDisplay::aHiddenDisplayPaintsNothing()
{
    Rig rig;
    rig.show();
    rig.meter.hide();
    rig.count(1, 2, 3, 4);
    rig.tickLater();
    QCOMPARE(rig.paintsSince(), 0);
    QCOMPARE(rig.meter.shownText(), QStringLiteral("00:00:00.00"));
    rig.meter.show();
    QTRY_COMPARE(rig.meter.shownText(), QStringLiteral("01:02:03.04"));
}

void tst_CTimeDisplay::otherThreadsOnlyStoreTheCounter()
{
    Rig rig;
    rig.bind();
    rig.show();
    QTest::qWait(60);
    std::thread([&] { rig.count(1, 2, 3, 4); }).join();
    QCOMPARE(rig.memory.observerEvents.load(), 1);
    QCOMPARE(rig.paintsSince(), 0);
    rig.observe();
    QCOMPARE(rig.paintsSince(), 1);
    QCOMPARE(rig.meter.shownText(), QStringLiteral("01:02:03.04"));
}

void tst_CTimeDisplay::onlyRefreshesCount()
{
    Rig rig;
    rig.show();
    const Q_UINT8 bytes[] = {1, 2, 3, 4};
    for (const int operation : {-1, 1, 2, 3, 4})
        rig.meter.process(bytes, operation, 1);
    rig.tickLater();
    QCOMPARE(rig.paintsSince(), 0);
}

void tst_CTimeDisplay::asksForTheCounterAndGoesOnAsking()
{
    Rig rig;
    QVERIFY(rig.meter.bindsWithoutAddress());
    rig.memory.bind(rig.meter, 3, 7, 2);
    QCOMPARE(rig.memory.take(),
             QStringList({"connectApiSignal 1 2frequentServiceEvent() 1updateIfNeeded()",
                          "createNotifier 00kSetupTCEventParams/kTCEventFrameRate "
                          "01setTimeCodeFormat(int)",
                          "requestTimecode 1"}));
    // The timer itself, hurried.
    auto *timer = rig.meter.findChild<QTimer *>();
    QVERIFY(timer && timer->isActive() && !timer->isSingleShot());
    QCOMPARE(timer->interval(), 8000);
    timer->setInterval(1);
    for (int request = 0; request < 2; ++request)
        QVERIFY(QTest::qWaitFor([&] { return rig.memory.take().contains("requestTimecode 1"); }));
    rig.meter.setMemAPI(nullptr);
    rig.meter.postTimecodeRequest();
    rig.meter.setMemAPI(&rig.memory); // from which it must take its leave
}

void tst_CTimeDisplay::leavesTheTickConnected()
{
    Rig rig;
    rig.bind();
    rig.meter.disconnectMemAPI();
    QCOMPARE(rig.memory.take({"connectApiSignal"}), QStringList());
    QVERIFY(!rig.meter.isAttached());
}

void tst_CTimeDisplay::theSizeIsThatOfTheLongestText()
{
    CTimeDisplay display;
    QFont font = display.font();
    font.setPointSize(17);
    display.setFont(font);
    const QSize size = display.sizeHint();
    QCOMPARE(display.font().pointSize(), 12);
    const QFontMetrics metrics = display.fontMetrics();
    QCOMPARE(size, QSize(metrics.boundingRect("00:00:00.00.").width() + 5,
                         metrics.ascent() * 75 / 100 + 10));
    QCOMPARE(display.sizeHint(), size);
    QCOMPARE(display.font().pointSize(), 12);
}

void tst_CTimeDisplay::speaksTheTime()
{
    Rig rig;
    rig.bind();
    const QAccessibleInterface *speaker = QAccessible::queryAccessibleInterface(&rig.meter);
    QCOMPARE(speaker->role(), QAccessible::Clock);
    QCOMPARE(speaker->text(QAccessible::Name), QStringLiteral("Time code"));
    QCOMPARE(speaker->text(QAccessible::Value), QStringLiteral("00:00:00.00"));
}

QTEST_MAIN(tst_CTimeDisplay)
#include "tst_CTimeDisplay.moc"

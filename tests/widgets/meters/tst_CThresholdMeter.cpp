// SPDX-License-Identifier: MIT
// The threshold lamp: its states, what switches it off, what it subscribes to.
#include "tests/support/MeterRig.h"
#include "testkit/TestStrip.h"
#include "widgets/meters/CThresholdMeter.h"

#include <QAccessible>

#include <thread>

namespace {

constexpr QSize Cell(12, 8);

/// A lamp with five pictures that is online and switched on.
class Rig : public MeterRig<CThresholdMeter>
{
public:
    Rig()
    {
        memory.connection = IMemAPI::Online;
        memory.preferenceValues[IPreferences::ThresholdLamps] = true;
        meter.setCombinedImage(teststrip::make(1, 5, Cell));
        meter.setnSubImages(5);
        meter.ensurePolished();
    }
    void switchOn()
    {
        bind();
        meter.changeState(1);
    }
    /// The row on screen; -1: none.
    int shownRow()
    {
        const QColor colour = meter.grab().toImage().pixelColor(1, 1);
        for (int row = 0; row < 5; ++row) {
            if (colour == teststrip::colour(0, row))
                return row;
        }
        return -1;
    }
};

} // namespace

class tst_CThresholdMeter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSingleThresholdHasThreeStates_data();
    void aSingleThresholdHasThreeStates();
    void aTableHasAStatePerBand_data();
    void aTableHasAStatePerBand();
    void tablesThatAreNone_data();
    void tablesThatAreNone();
    void theLampIsDark_data();
    void theLampIsDark();
    void theThresholdParametersValuePlaysNoPart();
    void goingOfflineForgetsTheReading();
    void statesWithoutAPictureAreIgnored();
    void countsAreNotChecked();
    void stripsThatAreTooSmall_data();
    void stripsThatAreTooSmall();
    void otherThreadsOnlyStoreTheReading();
    void onlyAnotherStateCostsAPaint();
    void subscribesAtTheNextAttach();
    void leavesOnDetach();
    void isClickedButNotTabbedTo();
};

void tst_CThresholdMeter::aSingleThresholdHasThreeStates_data()
{
    QTest::addColumn<int>("threshold");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("state");
    QTest::newRow("silence") << 50 << 0 << 1;
    QTest::newRow("just below") << 50 << 49 << 1;
    QTest::newRow("at the threshold") << 50 << 50 << 2;
    QTest::newRow("below full scale") << 50 << 125 << 2;
    QTest::newRow("near full scale") << 50 << 126 << 3;
    QTest::newRow("below a high threshold") << 0x200 << 0x1FF << 1;
    QTest::newRow("at a high threshold") << 0x200 << 0x200 << 3;
    QTest::newRow("only 16 bits of the threshold") << 0x10032 << 50 << 2;
}

void tst_CThresholdMeter::aSingleThresholdHasThreeStates()
{
    QFETCH(int, threshold);
    QFETCH(int, code);
    Rig rig;
    rig.meter.setThresholdLevel(threshold);
    rig.switchOn();
    rig.read(code);
    QTEST(rig.meter.thresholdState(), "state");
    QTEST(rig.shownRow(), "state");
}

void tst_CThresholdMeter::aTableHasAStatePerBand_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("state");
    QTest::newRow("below the table") << 0 << 4;
    QTest::newRow("at its first entry") << 73 << 4;
    QTest::newRow("in its first band") << 97 << 4;
    QTest::newRow("at its second entry") << 98 << 3;
    QTest::newRow("at its last searched entry") << 126 << 1;
    QTest::newRow("in the highest band") << 127 << 1;
    QTest::newRow("just below the closing entry") << 16382 << 1;
    QTest::newRow("at the closing entry") << 16383 << 0;
}

void tst_CThresholdMeter::aTableHasAStatePerBand()
{
    QFETCH(int, code);
    Rig rig;
    rig.memory.meterTables[2] = {73, 98, 112, 126, 16383};
    rig.meter.setMeterThresholdTableId(2);
    rig.switchOn();
    rig.read(code);
    QTEST(rig.meter.thresholdState(), "state");
    QTEST(rig.shownRow(), "state");
}

void tst_CThresholdMeter::tablesThatAreNone_data()
{
    QTest::addColumn<std::vector<quint16>>("table");
    QTest::addColumn<int>("stateAt60");
    QTest::newRow("empty: the own threshold") << std::vector<quint16>{} << 2;
    QTest::newRow("one entry: a threshold") << std::vector<quint16>{80} << 1;
    QTest::newRow("two entries: one band") << std::vector<quint16>{40, 127} << 1;
    QTest::newRow("in no order") << std::vector<quint16>{100, 40, 90, 10} << -1;
}

void tst_CThresholdMeter::tablesThatAreNone()
{
    QFETCH(std::vector<quint16>, table);
    QFETCH(int, stateAt60);
    Rig rig;
    rig.memory.meterTables[2] = table;
    rig.meter.setMeterThresholdTableId(2);
    rig.meter.setThresholdLevel(50);
    rig.switchOn();
    for (const int code : {0, 30, 95, 127, 16383, 60}) {
        rig.read(code);
        QVERIFY(rig.meter.thresholdState() >= 0 && rig.meter.thresholdState() < 5);
    }
    if (stateAt60 >= 0)
        QCOMPARE(rig.meter.thresholdState(), stateAt60);
}

void tst_CThresholdMeter::theLampIsDark_data()
{
    QTest::addColumn<int>("connection");
    QTest::addColumn<QVariant>("preference");
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("dark");
    QTest::newRow("never mind") << 3 << QVariant(true) << 1 << false;
    QTest::newRow("a negative state is on") << 3 << QVariant(true) << -1 << false;
    QTest::newRow("switched off") << 3 << QVariant(true) << 0 << true;
    QTest::newRow("not wanted") << 3 << QVariant(false) << 1 << true;
    QTest::newRow("no such preference") << 3 << QVariant() << 1 << true;
    QTest::newRow("link without sync") << 1 << QVariant(true) << 1 << true;
    QTest::newRow("sync without link") << 2 << QVariant(true) << 1 << true;
}

void tst_CThresholdMeter::theLampIsDark()
{
    QFETCH(int, connection);
    QFETCH(QVariant, preference);
    QFETCH(int, state);
    Rig rig;
    rig.memory.connection = connection;
    rig.memory.preferenceValues[IPreferences::ThresholdLamps] = preference;
    rig.bind();
    rig.meter.changeState(state);
    rig.read(127);
    QTEST(rig.shownRow() == 0, "dark");
}

void tst_CThresholdMeter::theThresholdParametersValuePlaysNoPart()
{
    Rig rig;
    rig.meter.setThresholdLevel(50);
    rig.switchOn();
    rig.read(60);
    rig.meter.setCurrentImage(0);
    rig.meter.changeThreshold(100); // but makes it look again
    QCOMPARE(rig.shownRow(), 2);
    rig.meter.changeThreshold(0);
    QCOMPARE(rig.shownRow(), 2);
}

void tst_CThresholdMeter::goingOfflineForgetsTheReading()
{
    Rig rig;
    rig.switchOn();
    rig.read(127);
    QCOMPARE(rig.shownRow(), 3);
    rig.meter.onlineChange(false);
    QCOMPARE(rig.shownRow(), 0);
    rig.meter.onlineChange(true);
    QCOMPARE(rig.meter.shownText(), QStringLiteral("<0>"));
}

void tst_CThresholdMeter::statesWithoutAPictureAreIgnored()
{
    Rig rig;
    rig.meter.setThresholdLevel(50);
    rig.switchOn();
    rig.read(60);
    rig.meter.setnSubImages(3);
    rig.meter.setCombinedImage(teststrip::make(1, 3, Cell));
    rig.meter.setCurrentImage(3);
    rig.meter.setCurrentImage(-1);
    rig.read(126); // state 3
    QCOMPARE(rig.shownRow(), 2);
}

void tst_CThresholdMeter::countsAreNotChecked()
{
    Rig rig;
    for (const int count : {0, -3}) {
        rig.meter.setnSubImages(count);
        QCOMPARE(rig.meter.nSubImages(), count);
        rig.meter.adjustParams();
        QCOMPARE(rig.meter.size(), Cell);
        QVERIFY(!rig.meter.testAttribute(Qt::WA_OpaquePaintEvent));
        rig.meter.grab();
        rig.meter.sizeHint();
    }
}

void tst_CThresholdMeter::stripsThatAreTooSmall_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("none") << QSize();
    QTest::newRow("a pixel") << QSize(1, 1);
    QTest::newRow("less high than there are pictures") << QSize(12, 4);
}

void tst_CThresholdMeter::stripsThatAreTooSmall()
{
    QFETCH(QSize, size);
    Rig rig;
    rig.meter.setThresholdLevel(50);
    rig.switchOn();
    rig.meter.setCombinedImage(size.isValid() ? QPixmap(size) : QPixmap());
    for (const int code : {0, 60, 127}) {
        rig.read(code);
        rig.meter.adjustParams();
        rig.meter.triggerUpdate();
        rig.meter.grab();
        rig.meter.erasePixmap();
        rig.meter.sizeHint();
    }
    rig.meter.setCombinedImage(teststrip::make(1, 5, Cell));
    rig.meter.adjustParams();
    rig.meter.triggerUpdate();
    QCOMPARE(rig.shownRow(), 3);
}

void tst_CThresholdMeter::otherThreadsOnlyStoreTheReading()
{
    Rig rig;
    rig.meter.setThresholdLevel(50);
    rig.switchOn();
    const int before = rig.memory.observerEvents;
    std::thread([&] { rig.read(127); }).join();
    QCOMPARE(rig.memory.observerEvents.load(), before + 1);
    QCOMPARE(rig.shownRow(), 1);
    rig.observe();
    QCOMPARE(rig.shownRow(), 3);
}

void tst_CThresholdMeter::onlyAnotherStateCostsAPaint()
{
    Rig rig;
    rig.meter.setThresholdLevel(50);
    rig.switchOn();
    rig.show();
    rig.read(60);
    QCOMPARE(rig.paintsSince(), 1);
    rig.read(61);
    const Q_UINT8 low[] = {0, 1};
    rig.meter.process(low, TMemProxyBasic::ResetToDefault, 1);
    QCOMPARE(rig.paintsSince(), 0);
}

void tst_CThresholdMeter::subscribesAtTheNextAttach()
{
    Rig rig;
    rig.meter.setStateNamedAddress("kInputDynamics1/kOn");
    rig.memory.bind(rig.meter, 3, 7, 2);
    QCOMPARE(rig.memory.take({"createNotifier"}),
             QStringList{"createNotifier kInputDynamics1/kOn 21changeState(int)"});
    rig.meter.setThresholdNamedAddress("kInputDynamics1/kThreshold");
    QCOMPARE(rig.memory.take(), QStringList());
    rig.memory.bind(rig.meter, 3, 7, 2);
    QCOMPARE(rig.memory.take({"createNotifier"}),
             QStringList({"createNotifier kInputDynamics1/kOn 21changeState(int)",
                          "createNotifier kInputDynamics1/kThreshold 21changeThreshold(int)"}));
}

void tst_CThresholdMeter::leavesOnDetach()
{
    Rig rig;
    rig.switchOn();
    rig.read(127);
    rig.meter.disconnectMemAPI();
    QCOMPARE(rig.memory.take({"setMeterWatch", "connectApiSignal"}),
             QStringList({"setMeterWatch 0 3 7 2",
                          "connectApiSignal 0 2onlineChanged(bool) 1onlineChange(bool)"}));
    QCOMPARE(rig.shownRow(), 0);
    QVERIFY(!rig.meter.isAttached());
    rig.read(127);
    QCOMPARE(rig.shownRow(), 0);
}

void tst_CThresholdMeter::isClickedButNotTabbedTo()
{
    const CThresholdMeter meter(nullptr, "lamp");
    QCOMPARE(int(meter.focusPolicy()), 2);
    QVERIFY(meter.objectName().isEmpty());
}

QTEST_MAIN(tst_CThresholdMeter)
#include "tst_CThresholdMeter.moc"

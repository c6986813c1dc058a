// SPDX-License-Identifier: MIT
// The threshold lamp: its states, what switches it off, what it subscribes to.
#include "testkit/TestStrip.h"
#include "tests/support/MeterRig.h"
#include "tests/support/Table.h"
#include "widgets/meters/CThresholdMeter.h"

#include <QAccessible>

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
    void theLampIsDark_data();
    void theLampIsDark();
    void theThresholdParametersValuePlaysNoPart();
    void goingOfflineForgetsTheReading();
    void statesWithoutAPictureAreIgnored();
    void countsAreNotChecked();
    void subscribesAtTheNextAttach();
};

void tst_CThresholdMeter::aSingleThresholdHasThreeStates_data()
{
    Table<int, int, int>()
        .row("silence", 50, 0, 1)
        .row("just below", 50, 49, 1)
        .row("at the threshold", 50, 50, 2)
        .row("below full scale", 50, 125, 2)
        .row("near full scale", 50, 126, 3)
        .row("below a high threshold", 0x200, 0x1FF, 1)
        .row("at a high threshold", 0x200, 0x200, 3)
        .row("only 16 bits of the threshold", 0x10032, 50, 2);
}

void tst_CThresholdMeter::aSingleThresholdHasThreeStates()
{
    const auto [threshold, code, state] = Table<int, int, int>::fetch();
    Rig rig;
    rig.meter.setThresholdLevel(threshold);
    rig.switchOn();
    rig.read(code);
    QCOMPARE(rig.meter.thresholdState(), state);
    QCOMPARE(rig.shownRow(), state);
}

void tst_CThresholdMeter::aTableHasAStatePerBand_data()
{
    using Codes = std::vector<quint16>;
    const Codes bands{73, 98, 112, 126, 16383};
    Table<Codes, int, int>()
        .row("below the table", bands, 0, 4)
        .row("in its first band", bands, 97, 4)
        .row("at its second entry", bands, 98, 3)
        .row("at its last searched entry", bands, 126, 1)
        .row("just below the closing entry", bands, 16382, 1)
        .row("at the closing entry", bands, 16383, 0)
        .row("empty: the own threshold", {}, 60, 2)
        .row("one entry: a threshold", {80}, 60, 1)
        .row("two entries: one band", {40, 127}, 60, 1)
        .row("in no order: any state", {100, 40, 90, 10}, 60, -1);
}

void tst_CThresholdMeter::aTableHasAStatePerBand()
{
    const auto [table, code, state] = Table<std::vector<quint16>, int, int>::fetch();
    Rig rig;
    rig.memory.meterTables[2] = table;
    rig.meter.setMeterThresholdTableId(2);
    rig.meter.setThresholdLevel(50);
    rig.switchOn();
    for (const int each : {0, 30, 95, 127, 16383, code}) {
        rig.read(each);
        QVERIFY(rig.meter.thresholdState() >= 0 && rig.meter.thresholdState() < 5);
        QCOMPARE(rig.shownRow(), rig.meter.thresholdState());
    }
    if (state >= 0)
        QCOMPARE(rig.meter.thresholdState(), state);
}

void tst_CThresholdMeter::theLampIsDark_data()
{
    Table<int, QVariant, int, bool>()
        .row("never mind", 3, QVariant(true), 1, false)
        .row("a negative state is on", 3, QVariant(true), -1, false)
        .row("switched off", 3, QVariant(true), 0, true)
        .row("not wanted", 3, QVariant(false), 1, true)
        .row("no such preference", 3, QVariant(), 1, true)
        .row("link without sync", 1, QVariant(true), 1, true)
        .row("sync without link", 2, QVariant(true), 1, true);
}

void tst_CThresholdMeter::theLampIsDark()
{
    const auto [connection, preference, state, dark] = Table<int, QVariant, int, bool>::fetch();
    Rig rig;
    rig.memory.connection = connection;
    rig.memory.preferenceValues[IPreferences::ThresholdLamps] = preference;
    rig.bind();
    rig.meter.changeState(state);
    rig.read(127);
    QCOMPARE(rig.shownRow() == 0, dark);
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

QTEST_MAIN(tst_CThresholdMeter)
#include "tst_CThresholdMeter.moc"

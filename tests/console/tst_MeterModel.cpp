// SPDX-License-Identifier: MIT
#include "console/MeterModel.h"

#include "companions/memory/ConsoleModel.h"

#include <QTest>

#include <algorithm>
#include <set>
#include <tuple>

namespace {

constexpr int Tick = 20;
constexpr int Minute = 60'000;

// One channel of every kind of meter.
constexpr char SmallModel[] = R"({
    "name": "Small",
    "tables": [], "meterTables": [], "preferences": {},
    "blocks": [
        {"name": "kInputFader", "group": 17, "label": "Input", "elements": 1, "parameters": [
            {"name": "kFader", "label": "Fader", "index": 0, "min": -1380, "max": 100, "default": 0}]},
        {"name": "kInputMeter", "group": 600, "label": "Input", "elements": 1, "parameters": [
            {"name": "kLevel", "label": "Level", "index": 0, "min": 0, "max": 16383, "default": 0},
            {"name": "kGateReduction", "label": "Gate", "index": 1, "min": 0, "max": 16383, "default": 0},
            {"name": "kCompReduction", "label": "Comp", "index": 2, "min": 0, "max": 16383, "default": 0},
            {"name": "kCompOut", "label": "Out", "index": 3, "min": 0, "max": 16383, "default": 0}]}
    ]})";
enum Meter { Level, Gate, Compressor, Output };

ConsoleModel smallModel()
{
    QString error;
    auto model = ConsoleModel::parse(SmallModel, "small", &error);
    if (!model)
        qFatal("%s", qPrintable(error));
    return *model;
}

std::vector<std::array<MeterModel::Reading, 4>> minuteOf(unsigned seed)
{
    const ConsoleModel model = smallModel();
    MeterModel meters(model, seed);
    std::vector<std::array<MeterModel::Reading, 4>> run;
    for (int time = 0; time < Minute; time += Tick) {
        meters.advance(Tick);
        const auto &now = meters.readings();
        run.push_back({now[Level], now[Gate], now[Compressor], now[Output]});
    }
    return run;
}

} // namespace

class TestMeterModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void decibelsBecomeCodes_data();
    void decibelsBecomeCodes();
    void everyMeterOfTheConsoleHasOneReading();
    void theLevelComesAndGoesLikeProgramme();
    void theLevelRisesAtOnceAndFallsSteadily();
    void thePeakIsHeldAndNeverBelowTheLevel();
    void reductionsFollowTheLevel();
};

void TestMeterModel::decibelsBecomeCodes_data()
{
    QTest::addColumn<double>("decibels");
    QTest::addColumn<int>("code");
    QTest::newRow("full scale") << 0.0 << 127;
    QTest::newRow("over") << 6.0 << 127;
    QTest::newRow("one code") << -0.75 << 126;
    QTest::newRow("bottom of a channel meter") << -60.0 << 47;
    QTest::newRow("silence") << Programme::Floor << 0;
    QTest::newRow("nothing at all") << -1000.0 << 0;
}

void TestMeterModel::decibelsBecomeCodes()
{
    QFETCH(double, decibels);
    QFETCH(int, code);
    QCOMPARE(MeterModel::code(decibels), code);
}

void TestMeterModel::everyMeterOfTheConsoleHasOneReading()
{
    const auto model = ConsoleModel::parse(SmallModel, "small");
    QVERIFY(model);
    const MeterModel meters(*model, 1);
    std::set<std::tuple<int, int, int>> addresses;
    for (const MeterModel::Reading &reading : meters.readings())
        addresses.insert({reading.group, reading.index, reading.element});
    const std::set<std::tuple<int, int, int>> expected{
        {600, 0, 0}, {600, 1, 0}, {600, 2, 0}, {600, 3, 0}};
    QCOMPARE(addresses, expected);
    QCOMPARE(meters.readings().size(), expected.size());
}

void TestMeterModel::theLevelComesAndGoesLikeProgramme()
{
    int quiet = 0;
    int normal = 0;
    int over = 0;
    int all = 0;
    std::set<int> different;
    for (unsigned seed = 1; seed <= 8; ++seed) {
        for (const auto &readings : minuteOf(seed)) {
            const int level = readings[Level].level;
            QVERIFY(level >= 0 && level <= 127);
            different.insert(level);
            ++all;
            quiet += level < MeterModel::code(-48);
            normal += level >= MeterModel::code(-36) && level <= MeterModel::code(-6);
            over += level == 127;
        }
    }
    QVERIFY(different.size() > 40);
    QVERIFY2(quiet > all / 100, qPrintable(QString::number(quiet)));
    QVERIFY2(normal > all / 2, qPrintable(QString::number(normal)));
    QVERIFY2(over < all / 100, qPrintable(QString::number(over)));
}

void TestMeterModel::theLevelRisesAtOnceAndFallsSteadily()
{
    const auto run = minuteOf(3);
    int fastestRise = 0;
    for (std::size_t i = 1; i < run.size(); ++i) {
        const int change = run[i][Level].level - run[i - 1][Level].level;
        QVERIFY(change >= -1); // 26 decibels a second are 0.7 codes a tick
        fastestRise = std::max(fastestRise, change);
    }
    QVERIFY(fastestRise > 10);
}

void TestMeterModel::thePeakIsHeldAndNeverBelowTheLevel()
{
    const auto run = minuteOf(5);
    int held = 0;
    for (std::size_t i = 1; i < run.size(); ++i) {
        const auto &now = run[i][Level];
        const auto &before = run[i - 1][Level];
        QVERIFY(now.peak >= now.level);
        held += Tick;
        if (now.peak < before.peak)
            QVERIFY2(held >= 1500, qPrintable(QString::number(held)));
        if (now.peak != before.peak)
            held = 0;
    }
}

void TestMeterModel::reductionsFollowTheLevel()
{
    bool gateClosed = false;
    bool compressed = false;
    for (const auto &readings : minuteOf(7)) {
        const int level = readings[Level].level;
        QCOMPARE(readings[Gate].peak, 0);
        QCOMPARE(readings[Compressor].peak, 0);
        gateClosed = gateClosed || readings[Gate].level < MeterModel::code(-35);
        compressed = compressed || readings[Compressor].level < MeterModel::code(-3);
        if (level > MeterModel::code(-18))
            QVERIFY(readings[Compressor].level < 127);
        if (readings[Gate].level < 100)
            QVERIFY(level <= MeterModel::code(-48));
    }
    QVERIFY(gateClosed);
    QVERIFY(compressed);
}

QTEST_GUILESS_MAIN(TestMeterModel)
#include "tst_MeterModel.moc"

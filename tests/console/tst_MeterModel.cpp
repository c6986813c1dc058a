// SPDX-License-Identifier: MIT
#include "console/MeterModel.h"

#include "companions/memory/ParameterMemory.h"

#include <QTemporaryFile>
#include <QTest>

#include <algorithm>
#include <memory>
#include <set>
#include <tuple>

namespace {

constexpr int Tick = 20;
constexpr int Minute = 60'000;

// Two channels with every kind of meter, and their dynamics.
constexpr char Head[] = R"({
    "name": "Small",
    "tables": [], "meterTables": [], "preferences": {},
    "blocks": [
        {"name": "kInputFader", "group": 17, "label": "Input", "elements": 2, "parameters": [
            {"name": "kFader", "label": "Fader", "index": 0, "min": -1380, "max": 100, "default": 0}]},)";
constexpr char Dynamics[] = R"(
        {"name": "%1", "group": %2, "label": "Input", "elements": 2, "parameters": [
            {"name": "kOn", "label": "On", "index": 0, "min": 0, "max": 1, "default": 0},
            {"name": "kType", "label": "Type", "index": 1, "min": 0, "max": 6, "default": %3},
            {"name": "kThreshold", "label": "Threshold", "index": 9, "min": -720, "max": 0, "default": -240},
            {"name": "kRange", "label": "Range", "index": 10, "min": -70, "max": 0, "default": -30},
            {"name": "kAttack", "label": "Attack", "index": 11, "min": 0, "max": 120, "default": 0},
            {"name": "kHold", "label": "Hold", "index": 12, "min": 0, "max": 215, "default": 0},
            {"name": "kRatio", "label": "Ratio", "index": 13, "min": 0, "max": 15, "default": 5},
            {"name": "kGain", "label": "Gain", "index": 14, "min": 0, "max": 180, "default": 0},
            {"name": "kKnee", "label": "Knee", "index": 15, "min": 0, "max": 5, "default": 0},
            {"name": "kDecay", "label": "Decay", "index": 16, "min": 0, "max": 159, "default": 0},
            {"name": "kRelease", "label": "Release", "index": 17, "min": 0, "max": 159, "default": 0},
            {"name": "kKeySource", "label": "Key", "index": 18, "min": 0, "max": 75, "default": 0}]},)";
constexpr char Tail[] = R"(
        {"name": "kInputMeter", "group": 600, "label": "Input", "elements": 2, "parameters": [
            {"name": "kLevel", "label": "Level", "index": 0, "min": 0, "max": 16383, "default": 0},
            {"name": "kGateReduction", "label": "Gate", "index": 1, "min": 0, "max": 16383, "default": 0},
            {"name": "kCompReduction", "label": "Comp", "index": 2, "min": 0, "max": 16383, "default": 0},
            {"name": "kCompOut", "label": "Out", "index": 3, "min": 0, "max": 16383, "default": 0}]}
    ]})";
enum Meter { Level, Gate, Compressor, Output, MeterCount };

std::unique_ptr<ParameterMemory> smallMemory()
{
    const QString dynamics = QLatin1String(Dynamics);
    QTemporaryFile file;
    file.open();
    file.write(Head);
    file.write(
        dynamics.arg(QLatin1String("kInputDynamics1"), QLatin1String("54"), QLatin1String("0"))
            .toUtf8());
    file.write(
        dynamics.arg(QLatin1String("kInputDynamics2"), QLatin1String("57"), QLatin1String("2"))
            .toUtf8());
    file.write(Tail);
    file.close();
    auto memory = std::make_unique<ParameterMemory>();
    QString error;
    if (!memory->load(file.fileName(), &error))
        qFatal("%s", qPrintable(error));
    return memory;
}

void set(ParameterMemory &memory, const char *name, int element, int value)
{
    IMemAPI::TSingleBaseAddress at;
    if (!memory.resolve(QLatin1String(name), element, at))
        qFatal("no %s", name);
    memory.writeValue(at.group, at.index, element, value, 0);
}

/// The meters of one channel.
using Readings = std::array<MeterModel::Reading, MeterCount>;

std::vector<Readings> minuteOf(unsigned seed, const ParameterMemory &memory, int element = 0)
{
    MeterModel meters(memory, seed);
    std::vector<Readings> run;
    for (int time = 0; time < Minute; time += Tick) {
        meters.advance(Tick);
        Readings now;
        for (const MeterModel::Reading &reading : meters.readings()) {
            if (reading.element == element)
                now[static_cast<std::size_t>(reading.index)] = reading;
        }
        run.push_back(now);
    }
    return run;
}

std::vector<Readings> minuteOf(unsigned seed)
{
    return minuteOf(seed, *smallMemory());
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
    void withoutDynamicsNothingIsTakenAway();
    void reductionsFollowTheLevelAndTheSettings();
    void theCompressorHearsWhatTheGateLetsThrough();
    void aKeyIsAnotherChannelsLevel();
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
    const auto memory = smallMemory();
    const MeterModel meters(*memory, 1);
    std::set<std::tuple<int, int, int>> addresses;
    for (const MeterModel::Reading &reading : meters.readings())
        addresses.insert({reading.group, reading.index, reading.element});
    std::set<std::tuple<int, int, int>> expected;
    for (int index = 0; index < MeterCount; ++index)
        expected.insert({{600, index, 0}, {600, index, 1}});
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

void TestMeterModel::withoutDynamicsNothingIsTakenAway()
{
    for (const Readings &now : minuteOf(7)) {
        QCOMPARE(now[Gate].level, 127);
        QCOMPARE(now[Compressor].level, 127);
        QCOMPARE(now[Output].level, now[Level].level);
    }
}

void TestMeterModel::reductionsFollowTheLevelAndTheSettings()
{
    const auto memory = smallMemory();
    set(*memory, "kInputDynamics1/kOn", 0, 1);
    set(*memory, "kInputDynamics1/kThreshold", 0, -450);
    set(*memory, "kInputDynamics2/kOn", 0, 1);
    set(*memory, "kInputDynamics2/kGain", 0, 60);
    int closed = 0;
    int compressed = 0;
    for (const Readings &now : minuteOf(7, *memory)) {
        const int level = now[Level].level;
        const int gate = now[Gate].level - 127;
        const int compressor = now[Compressor].level - 127;
        QCOMPARE(now[Gate].peak, 0);
        QCOMPARE(now[Compressor].peak, 0);
        if (level > MeterModel::code(-44)) {
            QCOMPARE(gate, 0);
            // 2:1 above -24 dB: of two codes above it one is taken, within a code.
            const int over = std::max(0, level - MeterModel::code(-24));
            if (level < 127)
                QVERIFY(std::abs(compressor + over / 2) <= 1);
            compressed += compressor < -5;
        }
        closed += gate == MeterModel::code(-30) - 127;
        const int output = level + gate + compressor + 8; // 6 dB
        if (output > 0 && output < 127 && level > 0)
            QVERIFY(std::abs(now[Output].level - output) <= 2);
    }
    QVERIFY2(closed > 50, qPrintable(QString::number(closed)));
    QVERIFY2(compressed > 50, qPrintable(QString::number(compressed)));
}

void TestMeterModel::theCompressorHearsWhatTheGateLetsThrough()
{
    const auto memory = smallMemory();
    set(*memory, "kInputDynamics1/kOn", 0, 1);
    set(*memory, "kInputDynamics1/kThreshold", 0, 0); // hardly ever open
    set(*memory, "kInputDynamics2/kOn", 0, 1);
    set(*memory, "kInputDynamics2/kThreshold", 0, -300);
    for (const Readings &now : minuteOf(7, *memory)) {
        if (now[Gate].level <= MeterModel::code(-30))
            QCOMPARE(now[Compressor].level, 127);
    }
}

void TestMeterModel::aKeyIsAnotherChannelsLevel()
{
    const auto memory = smallMemory();
    set(*memory, "kInputDynamics1/kOn", 1, 1);
    set(*memory, "kInputDynamics1/kType", 1, 1); // ducking
    set(*memory, "kInputDynamics1/kKeySource", 1, 1);
    const std::vector<Readings> keys = minuteOf(7, *memory, 0);
    const std::vector<Readings> ducked = minuteOf(7, *memory, 1);
    int loud = 0;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const int key = keys[i][Level].level;
        const bool isLoud = key > MeterModel::code(-24) + 1;
        loud += isLoud;
        if (isLoud)
            QCOMPARE(ducked[i][Gate].level, MeterModel::code(-30));
        else if (key < MeterModel::code(-24) - 3) // far enough below to have recovered
            QVERIFY(ducked[i][Gate].level > 120);
    }
    QVERIFY2(loud > 50, qPrintable(QString::number(loud)));
}

QTEST_MAIN(TestMeterModel)
#include "tst_MeterModel.moc"

// SPDX-License-Identifier: MIT
#include "console/MeterModel.h"

#include "tests/console/ConsoleFixture.h"
#include "tests/support/Table.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace {

constexpr int Tick = 20;
constexpr int Minute = 60'000;

/// The meters of an input.
enum Meter { Level, Gate, Compressor, Output, MeterCount };
using Readings = std::array<MeterModel::Reading, MeterCount>;

std::vector<Readings> minuteOf(const ParameterMemory &memory, int input)
{
    IMemAPI::TSingleBaseAddress at;
    memory.resolve(QStringLiteral("kInputMeter/kLevel"), input, at);
    MeterModel meters(memory, 7);
    std::vector<Readings> run;
    for (int time = 0; time < Minute; time += Tick) {
        meters.advance(Tick);
        Readings now;
        for (const MeterModel::Reading &reading : meters.readings()) {
            if (reading.group == at.group && reading.element == input)
                now[static_cast<std::size_t>(reading.index)] = reading;
        }
        run.push_back(now);
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
    void everyMeterHasOneReading();
    void thePeakIsHeldAndNeverBelowTheLevel();
    void reductionsFollowTheLevelAndTheSettings();
    void aKeyIsAnotherChannelsLevel();
};

void TestMeterModel::decibelsBecomeCodes_data()
{
    Table<double, int>()
        .row("over", 6, 127)
        .row("one code", -0.75, 126)
        .row("bottom of a channel meter", -60, 47)
        .row("silence", Programme::Floor, 0)
        .row("nothing at all", -1000, 0);
}

void TestMeterModel::decibelsBecomeCodes()
{
    const auto [decibels, code] = Table<double, int>::fetch();
    QCOMPARE(MeterModel::code(decibels), code);
}

void TestMeterModel::everyMeterHasOneReading()
{
    const auto memory = loadedMemory();
    const MeterModel meters(*memory, 1);
    std::set<std::tuple<int, int, int>> addresses;
    for (const MeterModel::Reading &reading : meters.readings())
        addresses.insert({reading.group, reading.index, reading.element});
    QCOMPARE(meters.readings().size(), addresses.size());
    std::size_t expected = 0;
    for (const ConsoleModel::Parameter &each : memory->model().parameters()) {
        if (memory->model().blockOf(each).name.endsWith(QLatin1String("Meter")))
            expected += static_cast<std::size_t>(each.elements);
    }
    QCOMPARE(addresses.size(), expected);
}

void TestMeterModel::thePeakIsHeldAndNeverBelowTheLevel()
{
    const auto run = minuteOf(*loadedMemory(), 0);
    int held = 0;
    for (std::size_t i = 1; i < run.size(); ++i) {
        const auto &now = run[i][Level];
        const auto &before = run[i - 1][Level];
        QVERIFY(now.peak >= now.level && now.level >= before.level - 1);
        held += Tick;
        QVERIFY(now.peak >= before.peak || held >= 1500);
        if (now.peak != before.peak)
            held = 0;
        QCOMPARE(run[i][Gate].level + run[i][Compressor].level, 2 * 127); // both are off
    }
}

void TestMeterModel::reductionsFollowTheLevelAndTheSettings()
{
    const auto memory = loadedMemory();
    setValue(*memory, "kInputDynamics1/kOn", 0, 1);
    setValue(*memory, "kInputDynamics1/kType", 0, 0);
    setValue(*memory, "kInputDynamics1/kThreshold", 0, -450);
    setValue(*memory, "kInputDynamics1/kRange", 0, -30);
    setValue(*memory, "kInputDynamics2/kOn", 0, 1);
    setValue(*memory, "kInputDynamics2/kGain", 0, 60);
    int closed = 0;
    for (const Readings &now : minuteOf(*memory, 0)) {
        const int gate = now[Gate].level - 127;
        closed += gate == MeterModel::code(-30) - 127;
        const int output = now[Level].level + gate + now[Compressor].level - 127 + 8; // 6 dB
        if (output > 0 && output < 127 && now[Level].level > 0)
            QVERIFY(std::abs(now[Output].level - output) <= 2);
    }
    QVERIFY2(closed > 50, qPrintable(QString::number(closed)));
}

void TestMeterModel::aKeyIsAnotherChannelsLevel()
{
    const auto memory = loadedMemory();
    for (const auto &[name, value] : {std::pair{"kOn", 1},
                                      {"kType", 1},
                                      {"kKeySource", 1},
                                      {"kThreshold", -240},
                                      {"kRange", -30},
                                      {"kAttack", 0}})
        setValue(*memory, QStringLiteral("kInputDynamics1/") + name, 1, value);
    const std::vector<Readings> keys = minuteOf(*memory, 0);
    const std::vector<Readings> ducked = minuteOf(*memory, 1);
    int loud = 0;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (keys[i][Level].level > MeterModel::code(-24) + 1) {
            ++loud;
            QCOMPARE(ducked[i][Gate].level, MeterModel::code(-30));
        }
    }
    QVERIFY2(loud > 50, qPrintable(QString::number(loud)));
}

QTEST_MAIN(TestMeterModel)
#include "tst_MeterModel.moc"

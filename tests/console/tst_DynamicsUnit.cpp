// SPDX-License-Identifier: MIT
#include "console/DynamicsUnit.h"

#include "tests/console/ConsoleFixture.h"
#include "tests/support/Table.h"

#include <cmath>
#include <initializer_list>

namespace {

constexpr double Tick = 0.02;     // seconds
constexpr double LongEnough = 30; // for every time constant of these tests

const QString FirstBlock = QStringLiteral("kInputDynamics1");
const QString SecondBlock = QStringLiteral("kInputDynamics2");
const QString MixBlock = QStringLiteral("kMixDynamics");

// Codes of the parameters kType, kRatio and kKnee.
enum Type { Gate, Ducking, Compressor, Expander, HardCompander, SoftCompander };
constexpr int TwoToOne = 5;
constexpr int FourToOne = 9;
constexpr int HardKnee = 0;
constexpr int SoftestKnee = 5;

struct Setting
{
    const char *name;
    int value;
};

/// A channel's dynamics, switched on, and its memory.
class Rig
{
public:
    Rig(const QString &block, std::initializer_list<Setting> settings)
        : m_block(block), m_unit(*m_memory, block, Element)
    {
        set("kOn", 1);
        set("kKnee", HardKnee);
        for (const Setting &each : settings)
            set(each.name, each.value);
    }

    const DynamicsUnit &unit() const { return m_unit; }
    void set(const char *name, int value)
    {
        setValue(*m_memory, m_block + u'/' + QLatin1String(name), Element, value);
    }
    double after(double seconds, double level)
    {
        for (double time = 0; time + Tick / 2 < seconds; time += Tick)
            m_unit.advance(level, Tick);
        return m_unit.reduction();
    }
    double settledAt(double level) { return after(LongEnough, level); }

private:
    static constexpr int Element = 3;

    QString m_block;
    std::unique_ptr<ParameterMemory> m_memory = loadedMemory();
    DynamicsUnit m_unit;
};

bool isNear(double left, double right, double tolerance = 0.01)
{
    return std::abs(left - right) <= tolerance;
}

} // namespace

class tst_DynamicsUnit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void steadyTonesAreReducedByTheSettings_data();
    void steadyTonesAreReducedByTheSettings();
    void takesItsTime_data();
    void takesItsTime();
    void aGateStaysOpenForTheHold();
    void settingsAreHeededAtOnce();
    void aBlockThatIsNotThereDoesNothing();
};

void tst_DynamicsUnit::steadyTonesAreReducedByTheSettings_data()
{
    // Threshold in tenths, level and reduction in decibels.
    Table<QString, int, int, int, int, double, double>()
        .row("compressor, below", SecondBlock, Compressor, -200, TwoToOne, HardKnee, -26, 0)
        .row("compressor, 4:1", SecondBlock, Compressor, -200, FourToOne, HardKnee, -8, -9)
        .row("soft knee, at the threshold", SecondBlock, Compressor, -200, TwoToOne, SoftestKnee,
             -20, -1.875)
        .row("gate, open", FirstBlock, Gate, -400, TwoToOne, HardKnee, -39, 0)
        .row("gate, closed", FirstBlock, Gate, -400, TwoToOne, HardKnee, -40, -56)
        .row("ducking, loud", FirstBlock, Ducking, -400, TwoToOne, HardKnee, -39, -56)
        .row("expander, 2:1", FirstBlock, Expander, -400, TwoToOne, HardKnee, -50, -10)
        .row("hard compander", SecondBlock, HardCompander, -200, TwoToOne, HardKnee, -31, -40)
        .row("soft compander", SecondBlock, SoftCompander, -200, TwoToOne, HardKnee, -31, -5)
        .row("the second block's compander", SecondBlock, Expander, -200, TwoToOne, HardKnee, -31,
             -5)
        .row("expander of a mix", MixBlock, Expander, -400, TwoToOne, HardKnee, -50, -10);
}

void tst_DynamicsUnit::steadyTonesAreReducedByTheSettings()
{
    const auto [block, type, threshold, ratio, knee, level, reduction] =
        Table<QString, int, int, int, int, double, double>::fetch();
    Rig rig(block,
            {{"kType", type}, {"kThreshold", threshold}, {"kRatio", ratio}, {"kKnee", knee}});
    const double found = rig.settledAt(level);
    QVERIFY2(isNear(found, reduction), qPrintable(QString::number(found)));
    rig.set("kOn", 0);
    QCOMPARE(rig.after(Tick, level), 0.0);
}

void tst_DynamicsUnit::takesItsTime_data()
{
    constexpr double Quiet = -60;
    constexpr double Loud = -4;
    Table<QString, int, double, double, double>()
        .row("compressor attacks", SecondBlock, Compressor, Quiet, Loud, 0.120)
        .row("compressor releases", SecondBlock, Compressor, Loud, Quiet, 1.476)
        .row("expander opens", FirstBlock, Expander, -50, Loud, 0.120)
        .row("gate closes", FirstBlock, Gate, Loud, Quiet, 0.473)
        .row("ducking closes", FirstBlock, Ducking, Quiet, Loud, 0.120);
}

void tst_DynamicsUnit::takesItsTime()
{
    const auto [block, type, before, level, seconds] =
        Table<QString, int, double, double, double>::fetch();
    const std::initializer_list<Setting> settings{
        {"kType", type}, {"kThreshold", -300}, {"kRatio", TwoToOne}, {"kAttack", 120},
        {"kHold", 0},    {"kDecay", 80},       {"kRelease", 100}};
    const double to = Rig(block, settings).settledAt(level);
    Rig rig(block, settings);
    const double from = rig.settledAt(before);
    const double covered = (rig.after(seconds, level) - from) / (to - from);
    // 63 % of the way, within a tick.
    QVERIFY2(isNear(covered, 1 - std::exp(-1), Tick / seconds),
             qPrintable(QString::number(covered)));
}

void tst_DynamicsUnit::aGateStaysOpenForTheHold()
{
    constexpr double Hold = 0.879;
    Rig rig(FirstBlock, {{"kType", Gate}, {"kThreshold", -300}, {"kHold", 200}, {"kDecay", 0}});
    QVERIFY(isNear(rig.settledAt(-4), 0));
    QVERIFY(isNear(rig.after(Hold - 2 * Tick, -60), 0));
    QVERIFY(rig.after(4 * Tick, -60) < -20);
}

void tst_DynamicsUnit::settingsAreHeededAtOnce()
{
    Rig rig(SecondBlock, {{"kThreshold", -200}, {"kRatio", TwoToOne}, {"kAttack", 0}});
    QVERIFY(isNear(rig.after(Tick, -8), -6));
    rig.set("kThreshold", -300);
    rig.set("kGain", 45);
    QVERIFY(isNear(rig.after(Tick, -8), -11));
    QCOMPARE(rig.unit().gain(), 4.5);
    rig.set("kKeySource", 17);
    QCOMPARE(rig.unit().keySource(), 17);
}

void tst_DynamicsUnit::aBlockThatIsNotThereDoesNothing()
{
    const auto memory = loadedMemory();
    for (const char *block : {"kHeadAmpDynamics", "kInputHPF"}) {
        DynamicsUnit none(*memory, QLatin1String(block), 0);
        QVERIFY(!none.exists());
        none.advance(0, Tick);
        QCOMPARE(none.reduction() + none.gain(), 0.0);
        QCOMPARE(none.keySource(), 0);
    }
}

QTEST_MAIN(tst_DynamicsUnit)
#include "tst_DynamicsUnit.moc"

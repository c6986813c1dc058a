// SPDX-License-Identifier: MIT
#include "console/DynamicsUnit.h"

#include "tests/console/ConsoleFixture.h"
#include "widgets/graphs/DynamicsLaw.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace {

constexpr double Tick = 0.02;     // seconds
constexpr double LongEnough = 30; // for every time constant of these tests

const QString FirstBlock = QStringLiteral("kInputDynamics1");
const QString SecondBlock = QStringLiteral("kInputDynamics2");
const QString MixBlock = QStringLiteral("kMixDynamics");

// Codes of the parameter kType.
constexpr int Gate = 0;
constexpr int Ducking = 1;
constexpr int Compressor = 2;
constexpr int Expander = 3;
constexpr int HardCompander = 4;
constexpr int SoftCompander = 5;

// Codes of kRatio and kKnee.
constexpr int TwoToOne = 5;
constexpr int FourToOne = 9;
constexpr int Limiter = 15;
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
    explicit Rig(const QString &block, std::initializer_list<Setting> settings = {},
                 int element = 3)
        : m_block(block), m_element(element), m_memory(loadedMemory()),
          m_unit(*m_memory, block, element)
    {
        set("kOn", 1);
        set("kKnee", HardKnee);
        for (const Setting &each : settings)
            set(each.name, each.value);
    }

    const DynamicsUnit &unit() const { return m_unit; }

    void set(const char *name, int value) { setAt(m_element, name, value); }
    void setAt(int element, const char *name, int value)
    {
        const IMemAPI::TSingleBaseAddress at = address(name);
        m_memory->writeValue(at.group, at.index, element, value, 0);
    }
    IMemAPI::TSingleBaseAddress address(const char *name) const
    {
        IMemAPI::TSingleBaseAddress at;
        if (!m_memory->resolve(m_block + u'/' + QLatin1String(name), m_element, at))
            qFatal("no %s", name);
        return at;
    }
    /// The parameter's text as a number, in seconds where it is a time.
    double shown(const char *name) const
    {
        const IMemAPI::TSingleBaseAddress at = address(name);
        QString text;
        QPixmap picture;
        for (const ConsoleModel::Parameter &each : m_memory->model().parameters()) {
            if (m_memory->model().groupOf(each) == at.group && each.index == at.index)
                m_memory->valueText(at.element, each.textTable, text, picture,
                                    m_memory->readValue(at.group, at.index, at.element, 0, 0),
                                    false, at.group, at.index);
        }
        const double number = text.section(u' ', 0, 0).toDouble();
        return text.endsWith(QLatin1String(" ms")) ? number / 1000 : number;
    }

    double after(double seconds, double level)
    {
        for (double time = 0; time + Tick / 2 < seconds; time += Tick)
            m_unit.advance(level, Tick);
        return m_unit.reduction();
    }
    double settledAt(double level) { return after(LongEnough, level); }

private:
    QString m_block;
    int m_element;
    std::unique_ptr<ParameterMemory> m_memory;
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
    void agreesWithTheCurveOnTheScreen_data();
    void agreesWithTheCurveOnTheScreen();
    void takesAsLongAsTheKnobsSay_data();
    void takesAsLongAsTheKnobsSay();
    void aGateStaysOpenForTheHold();
    void settingsAreHeededAtOnce();
    void anotherChannelsSettingsAreOfNoConcern();
    void aBlockThatIsNotThereDoesNothing();
};

void tst_DynamicsUnit::steadyTonesAreReducedByTheSettings_data()
{
    QTest::addColumn<QString>("block");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("threshold"); // tenths of a decibel
    QTest::addColumn<int>("ratio");
    QTest::addColumn<int>("knee");
    QTest::addColumn<double>("level");
    QTest::addColumn<double>("reduction");

    const auto row = [](const char *name, const QString &block, int type, int threshold, int ratio,
                        int knee, double level, double reduction) {
        QTest::newRow(name) << block << type << threshold << ratio << knee << level << reduction;
    };
    row("compressor below its threshold", SecondBlock, Compressor, -200, TwoToOne, HardKnee, -26,
        0);
    row("compressor, 2:1", SecondBlock, Compressor, -200, TwoToOne, HardKnee, -8, -6);
    row("compressor, 4:1", SecondBlock, Compressor, -200, FourToOne, HardKnee, -8, -9);
    row("limiter", SecondBlock, Compressor, -200, Limiter, HardKnee, -8, -12);
    row("compressor, 1:1", SecondBlock, Compressor, -540, 0, SoftestKnee, 0, 0);
    row("lower threshold", SecondBlock, Compressor, -300, TwoToOne, HardKnee, -8, -11);
    row("soft knee at the threshold", SecondBlock, Compressor, -200, TwoToOne, SoftestKnee, -20,
        -1.875);
    row("soft knee far above it", SecondBlock, Compressor, -200, TwoToOne, SoftestKnee, 0, -10);
    row("gate, open", FirstBlock, Gate, -400, TwoToOne, HardKnee, -39, 0);
    row("gate, closed", FirstBlock, Gate, -400, TwoToOne, HardKnee, -40, -56);
    row("ducking, quiet", FirstBlock, Ducking, -400, TwoToOne, HardKnee, -40, 0);
    row("ducking, loud", FirstBlock, Ducking, -400, TwoToOne, HardKnee, -39, -56);
    row("expander above its threshold", FirstBlock, Expander, -400, TwoToOne, HardKnee, -30, 0);
    row("expander, 2:1", FirstBlock, Expander, -400, TwoToOne, HardKnee, -50, -10);
    row("hard compander, loud", SecondBlock, HardCompander, -200, TwoToOne, HardKnee, -8, -6);
    row("hard compander, quiet", SecondBlock, HardCompander, -200, TwoToOne, HardKnee, -31, -40);
    row("soft compander, quiet", SecondBlock, SoftCompander, -200, TwoToOne, HardKnee, -31, -5);
    row("wide compander, not so quiet", SecondBlock, SoftCompander, -200, TwoToOne, SoftestKnee,
        -25, 0);
    row("the compander of the second block", SecondBlock, 3, -200, TwoToOne, HardKnee, -31, -5);
    row("de-esser", SecondBlock, 6, -200, TwoToOne, HardKnee, -8, -6);
    row("expander of a mix", MixBlock, Expander, -400, TwoToOne, HardKnee, -50, -10);
    row("compander of a mix", MixBlock, HardCompander, -200, TwoToOne, HardKnee, -31, -40);
}

void tst_DynamicsUnit::steadyTonesAreReducedByTheSettings()
{
    QFETCH(QString, block);
    QFETCH(int, type);
    QFETCH(int, threshold);
    QFETCH(int, ratio);
    QFETCH(int, knee);
    QFETCH(double, level);
    QFETCH(double, reduction);
    Rig rig(block,
            {{"kType", type}, {"kThreshold", threshold}, {"kRatio", ratio}, {"kKnee", knee}});
    const double found = rig.settledAt(level);
    QVERIFY2(isNear(found, reduction), qPrintable(QString::number(found)));
    rig.set("kOn", 0);
    QCOMPARE(rig.after(Tick, level), 0.0);
    QCOMPARE(rig.unit().gain(), 0.0);
}

void tst_DynamicsUnit::agreesWithTheCurveOnTheScreen_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("knee");
    QTest::addColumn<double>("tolerance"); // the screen has whole decibels, and steps for a knee
    QTest::newRow("compressor") << Compressor << HardKnee << 1.0;
    QTest::newRow("compressor, softest knee") << Compressor << SoftestKnee << 2.5;
    QTest::newRow("hard compander") << HardCompander << 4 << 2.0;
    QTest::newRow("soft compander") << SoftCompander << 4 << 2.0;
}

void tst_DynamicsUnit::agreesWithTheCurveOnTheScreen()
{
    QFETCH(int, type);
    QFETCH(int, knee);
    QFETCH(double, tolerance);
    constexpr int Threshold = -240;
    constexpr int Gain = 50;
    constexpr int GainMaximum = 180;
    Rig rig(SecondBlock, {{"kType", type},
                          {"kThreshold", Threshold},
                          {"kRatio", TwoToOne},
                          {"kKnee", knee},
                          {"kGain", Gain}});
    const int kind = DynamicsLaw::kindOf(rig.address("kType").group, type);
    const DynamicsLaw curve({kind, Threshold, TwoToOne, knee, Gain, GainMaximum});
    // How far the screen goes: its companders end at full scale.
    const double highest = kind == DynamicsLaw::Compressor ? 127 : 0;
    for (int level = -60; level <= 0; ++level) {
        const double output = level + rig.settledAt(level) + rig.unit().gain();
        const double shown = curve.output(level);
        QVERIFY2(isNear(std::clamp(output, -128.0, highest), shown, tolerance),
                 qPrintable(QStringLiteral("%1: %2, shown %3").arg(level).arg(output).arg(shown)));
    }
}

void tst_DynamicsUnit::takesAsLongAsTheKnobsSay_data()
{
    QTest::addColumn<QString>("block");
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("before");
    QTest::addColumn<double>("level");
    QTest::addColumn<QByteArray>("time");
    QTest::newRow("compressor attacks")
        << SecondBlock << Compressor << -60.0 << -4.0 << QByteArray("kAttack");
    QTest::newRow("compressor releases")
        << SecondBlock << Compressor << -4.0 << -60.0 << QByteArray("kRelease");
    QTest::newRow("expander opens")
        << FirstBlock << Expander << -50.0 << -4.0 << QByteArray("kAttack");
    QTest::newRow("expander closes")
        << FirstBlock << Expander << -4.0 << -50.0 << QByteArray("kRelease");
    QTest::newRow("gate opens") << FirstBlock << Gate << -60.0 << -4.0 << QByteArray("kAttack");
    QTest::newRow("gate closes") << FirstBlock << Gate << -4.0 << -60.0 << QByteArray("kDecay");
    QTest::newRow("ducking closes")
        << FirstBlock << Ducking << -60.0 << -4.0 << QByteArray("kAttack");
    QTest::newRow("ducking opens")
        << FirstBlock << Ducking << -4.0 << -60.0 << QByteArray("kDecay");
}

void tst_DynamicsUnit::takesAsLongAsTheKnobsSay()
{
    QFETCH(QString, block);
    QFETCH(int, type);
    QFETCH(double, before);
    QFETCH(double, level);
    QFETCH(QByteArray, time);
    // Long times, each different from the others; no hold.
    Rig rig(block, {{"kType", type},
                    {"kThreshold", -300},
                    {"kRatio", TwoToOne},
                    {"kAttack", 120},
                    {"kHold", 0},
                    {"kDecay", 80},
                    {"kRelease", 100}});
    const double from = rig.settledAt(before);
    const double seconds = rig.shown(time);
    QVERIFY(seconds > 5 * Tick);
    const double to = [&] {
        Rig other(block, {{"kType", type}, {"kThreshold", -300}, {"kRatio", TwoToOne}});
        return other.settledAt(level);
    }();
    const double covered = (rig.after(seconds, level) - from) / (to - from);
    // 63 % of the way, within a tick.
    QVERIFY2(isNear(covered, 1 - std::exp(-1), Tick / seconds),
             qPrintable(QString::number(covered)));
}

void tst_DynamicsUnit::aGateStaysOpenForTheHold()
{
    Rig rig(FirstBlock, {{"kType", Gate}, {"kThreshold", -300}, {"kHold", 200}, {"kDecay", 0}});
    const double hold = rig.shown("kHold");
    QVERIFY(hold > 10 * Tick);
    QVERIFY(isNear(rig.settledAt(-4), 0));
    QVERIFY(isNear(rig.after(hold - 2 * Tick, -60), 0));
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

void tst_DynamicsUnit::anotherChannelsSettingsAreOfNoConcern()
{
    Rig rig(SecondBlock, {{"kThreshold", -200}, {"kRatio", TwoToOne}}, 47);
    rig.setAt(46, "kThreshold", 0);
    rig.setAt(46, "kOn", 0);
    QVERIFY(isNear(rig.settledAt(-8), -6));
}

void tst_DynamicsUnit::aBlockThatIsNotThereDoesNothing()
{
    const auto memory = loadedMemory();
    for (const char *block : {"kHeadAmpDynamics", "kInputHPF"}) {
        DynamicsUnit none(*memory, QLatin1String(block), 0);
        QVERIFY(!none.exists());
        none.advance(0, Tick);
        QCOMPARE(none.reduction(), 0.0);
        QCOMPARE(none.gain(), 0.0);
        QCOMPARE(none.keySource(), 0);
    }
}

QTEST_MAIN(tst_DynamicsUnit)
#include "tst_DynamicsUnit.moc"

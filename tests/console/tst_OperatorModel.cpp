// SPDX-License-Identifier: MIT
#include "console/OperatorModel.h"

#include "tests/console/ConsoleFixture.h"

#include <QTest>

#include <algorithm>
#include <set>

namespace {

constexpr int Tick = 20;

/// The names of the parameters whose values changed since.
std::set<QString> changedSince(const std::vector<int> &before, const ParameterMemory &memory)
{
    std::set<QString> names;
    std::size_t at = 0;
    forEachValue(memory, [&](const ConsoleModel::Parameter &parameter, int value) {
        if (value != before[at++])
            names.insert(memory.model().addressOf(parameter));
    });
    return names;
}

int run(OperatorModel &model, int seconds, double rate)
{
    int changes = 0;
    for (int time = 0; time < seconds * 1000; time += Tick)
        changes += model.advance(Tick, rate);
    return changes;
}

} // namespace

class TestOperatorModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void keepsToTheRate_data();
    void keepsToTheRate();
    void doesNothingAtRateZero();
    void touchesOnlyTheNamedBlocks();
    void leavesSetupMetersAndMasksAlone();
    void doesAllKindsOfThings();
    void movesSmoothly();
    void whoTakesHoldOfAMovingFaderKeepsIt();
    void anUnknownBlockMeansNothingToDo();

private:
    std::unique_ptr<ParameterMemory> m_memory;
};

void TestOperatorModel::init()
{
    m_memory = loadedMemory();
}

void TestOperatorModel::keepsToTheRate_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<int>("seconds");
    QTest::newRow("now and then") << 2.0 << 600;
    QTest::newRow("calm") << 20.0 << 120;
    QTest::newRow("busy") << 500.0 << 30;
    QTest::newRow("a scene recall every second") << 20000.0 << 5;
}

void TestOperatorModel::keepsToTheRate()
{
    QFETCH(double, rate);
    QFETCH(int, seconds);
    OperatorModel model(*m_memory, 1);
    const double ratio = run(model, seconds, rate) / (seconds * rate);
    QVERIFY2(ratio > 0.85 && ratio < 1.15, qPrintable(QString::number(ratio)));
}

void TestOperatorModel::doesNothingAtRateZero()
{
    OperatorModel model(*m_memory, 1);
    run(model, 1, 500); // leaves moves in progress
    const auto before = values(*m_memory);
    QCOMPARE(run(model, 20, 0), 0);
    QCOMPARE(changedSince(before, *m_memory), std::set<QString>());
}

void TestOperatorModel::touchesOnlyTheNamedBlocks()
{
    OperatorModel model(*m_memory, 1);
    const auto before = values(*m_memory);
    model.setBlocks({"kInputFader", "kInputPair", "kInputAssign"});
    run(model, 60, 200);
    // A block of the setup counts when it is named; its masks still do not.
    const std::set<QString> expected{"kInputFader/kFader", "kInputPair/kPair",
                                     "kInputAssign/kStereoA", "kInputAssign/kStereoB",
                                     "kInputAssign/kStereoC"};
    QCOMPARE(changedSince(before, *m_memory), expected);
}

void TestOperatorModel::leavesSetupMetersAndMasksAlone()
{
    OperatorModel model(*m_memory, 1);
    const auto before = values(*m_memory);
    run(model, 60, 2000);
    const auto changed = changedSince(before, *m_memory);
    QVERIFY(changed.size() > 50);
    for (const QString &name : changed) {
        for (const char *alone : {"Meter/", "Mask", "Pair/", "kSetup", "kHX612", "kBackup"})
            QVERIFY2(!name.contains(alone), qPrintable(name));
    }
}

void TestOperatorModel::doesAllKindsOfThings()
{
    OperatorModel model(*m_memory, 1);
    const auto before = values(*m_memory);
    run(model, 300, 200);
    const auto changed = changedSince(before, *m_memory);
    for (const char *name : {"kInputFader/kFader", "kInputOn/kOn", "kInputDynamics1/kType",
                             "kSelectedChannel/kChannel", "kPatchInInput/kPatchIn"})
        QVERIFY2(changed.count(name), name);
}

void TestOperatorModel::movesSmoothly()
{
    // Over the whole of its scale in the shortest time, a fader goes less than this in a tick.
    constexpr int Furthest = 1480 * 3 / 2 * Tick / 300;
    OperatorModel model(*m_memory, 1);
    model.setBlocks({"kMatrixFader"});
    auto before = values(*m_memory);
    int steps = 0;
    for (int time = 0; time < 30'000; time += Tick) {
        model.advance(Tick, 60);
        const auto now = values(*m_memory);
        for (std::size_t i = 0; i < now.size(); ++i) {
            QVERIFY(std::abs(now[i] - before[i]) <= Furthest);
            steps += now[i] != before[i];
        }
        before = now;
    }
    QVERIFY(steps > 1000);
}

void TestOperatorModel::whoTakesHoldOfAMovingFaderKeepsIt()
{
    IMemAPI::TSingleBaseAddress address;
    QVERIFY(m_memory->resolve("00kMonitor/kLevel", 0, address));
    const auto level = [&] {
        return m_memory->readValue(address.group, address.index, address.element, 0, 0);
    };
    OperatorModel model(*m_memory, 1);
    model.setBlocks({"kMonitor"});
    const int start = level();
    for (int i = 0; i < 3000 && level() == start; ++i)
        model.advance(Tick, 5);
    QVERIFY(level() != start);
    m_memory->writeValue(address.group, address.index, address.element, -777, 0);
    // A rate that pays for the present move, but not for another one.
    for (int i = 0; i < 150; ++i)
        model.advance(Tick, 1e-6);
    QCOMPARE(level(), -777);
}

void TestOperatorModel::anUnknownBlockMeansNothingToDo()
{
    OperatorModel model(*m_memory, 1);
    model.setBlocks({"kNowhere", "kInputMeter"});
    QCOMPARE(run(model, 5, 1000), 0);
}

QTEST_MAIN(TestOperatorModel)
#include "tst_OperatorModel.moc"

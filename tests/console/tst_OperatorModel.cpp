// SPDX-License-Identifier: MIT
#include "console/OperatorModel.h"

#include "tests/console/ConsoleFixture.h"
#include "tests/support/Table.h"

#include <cmath>
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
    void init() { m_memory = loadedMemory(); }
    void keepsToTheRate_data();
    void keepsToTheRate();
    void touchesOnlyTheNamedBlocks();
    void leavesSetupMetersAndMasksAlone();
    void whoTakesHoldOfAMovingFaderKeepsIt();

private:
    std::unique_ptr<ParameterMemory> m_memory;
};

void TestOperatorModel::keepsToTheRate_data()
{
    Table<double, int>()
        .row("not at all", 0, 20)
        .row("calm", 20, 120)
        .row("a scene recall every second", 20000, 5);
}

void TestOperatorModel::keepsToTheRate()
{
    const auto [rate, seconds] = Table<double, int>::fetch();
    OperatorModel model(*m_memory, 1);
    if (rate == 0)
        run(model, 1, 500); // leaves moves in progress
    const double due = seconds * rate;
    const int changes = run(model, seconds, rate);
    QVERIFY2(std::abs(changes - due) <= 0.15 * due, qPrintable(QString::number(changes)));
}

void TestOperatorModel::touchesOnlyTheNamedBlocks()
{
    OperatorModel model(*m_memory, 1);
    const auto before = values(*m_memory);
    model.setBlocks({"kInputFader", "kInputPair", "kInputAssign", "kNowhere", "kInputMeter"});
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

QTEST_MAIN(TestOperatorModel)
#include "tst_OperatorModel.moc"

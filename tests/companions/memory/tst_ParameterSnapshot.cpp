// SPDX-License-Identifier: MIT
#include "companions/memory/ConsoleModel.h"
#include "companions/memory/ParameterSnapshot.h"
#include "tests/companions/memory/MemoryRig.h"
#include "tests/support/SyntheticModel.h"

#include <QRandomGenerator>
#include <QtTest>
#include <QUndoStack>

namespace {

constexpr auto Att = "kInputAtt/kAtt";
constexpr auto Fader = "kInputFader/kFader";

/// A model of one block with parameters as they are given.
QByteArray oneBlock(const QByteArray &parameters)
{
    return R"({"blocks": [{"name": "kBlock", "group": 1, "parameters": [)" + parameters + "]}]}";
}

QByteArray parameter(const char *name, int index, int elements, int maximum = 100)
{
    return QStringLiteral(R"({"name": "%1", "index": %2, "elements": %3, "min": 0, "max": %4,)"
                          R"( "default": 0})")
        .arg(QLatin1String(name))
        .arg(index)
        .arg(elements)
        .arg(maximum)
        .toUtf8();
}

void load(ParameterMemory &memory, const SyntheticModel &model)
{
    QString error;
    QVERIFY2(memory.load(model.fileName(), &error), qPrintable(error));
}

} // namespace

class tst_ParameterSnapshot : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void holdsTheValuesOfAllElements();
    void onlyWhatDiffersIsWrittenAndTold();
    void oneUndoStepBringsEveryValueBack();
    void aRecallDuringAGestureIsAStepBetweenTwo();
    void snapshotsOfAnotherModel_data();
    void snapshotsOfAnotherModel();
    void snapshotsThatAreNone();
    void layoutsComeBackFromTheirDescription();
    void faultyDescriptions_data();
    void faultyDescriptions();
};

void tst_ParameterSnapshot::holdsTheValuesOfAllElements()
{
    const Rig rig;
    rig.write(Fader, 5, -77);
    const ParameterSnapshot snapshot = rig.memory->snapshot();
    QVERIFY(snapshot.isWhole());
    size_t at = 0;
    for (const ParameterLayout::Parameter &each : snapshot.layout->parameters()) {
        for (int element = 0; element < each.elements; ++element, ++at)
            QCOMPARE(snapshot.values[at],
                     rig.memory->readValue(each.group, each.index, element, 0, 0));
    }
    QCOMPARE(at, snapshot.values.size());
    QVERIFY(std::count(snapshot.values.begin(), snapshot.values.end(), -77) == 1);
}

void tst_ParameterSnapshot::onlyWhatDiffersIsWrittenAndTold()
{
    Rig rig;
    Probe changed(Fader);
    Probe same(Att);
    rig.bind(changed, 3);
    rig.bind(same, 3);
    const ParameterSnapshot before = rig.memory->snapshot();
    rig.write(Fader, 3, -20);
    rig.write(Fader, 4, -30);
    Rig::turn();
    changed.take();

    QCOMPARE(rig.memory->apply(before, "Recall"), 2);
    QCOMPARE(changed.take(), 0); // on the next turn, as any change
    Rig::turn();
    QCOMPARE(changed.take(), 1);
    QCOMPARE(changed.seen, -1380);
    QCOMPARE(same.take(), 0);

    QCOMPARE(rig.memory->apply(before, "Recall"), 0);
    QCOMPARE(rig.memory->undoStack()->count(), 1);
}

void tst_ParameterSnapshot::oneUndoStepBringsEveryValueBack()
{
    const SyntheticModel model(20, 10, 100);
    ParameterMemory memory;
    load(memory, model);
    QRandomGenerator random(7);
    const auto randomize = [&](ParameterSnapshot snapshot) {
        for (qint32 &value : snapshot.values)
            value = random.bounded(-1000, 1001);
        return snapshot;
    };
    memory.apply(randomize(memory.snapshot()), "First");
    const ParameterSnapshot before = memory.snapshot();
    const ParameterSnapshot scene = randomize(before);
    QVERIFY(memory.apply(scene, "Recall #012 Overture") > 19000);
    QCOMPARE(memory.undoStack()->undoText(), QString("Recall #012 Overture"));
    QCOMPARE(memory.snapshot().values, scene.values);
    for (int round = 0; round < 2; ++round) {
        memory.undoStack()->undo();
        QCOMPARE(memory.snapshot().values, before.values);
        memory.undoStack()->redo();
        QCOMPARE(memory.snapshot().values, scene.values);
    }
}

void tst_ParameterSnapshot::aRecallDuringAGestureIsAStepBetweenTwo()
{
    Rig rig;
    Probe fader(Fader);
    rig.bind(fader, 0);
    ParameterSnapshot scene = rig.memory->snapshot();
    rig.memory->beginGesture(&fader);
    rig.edit(fader, -10);
    QCOMPARE(rig.memory->apply(scene, "Recall"), 1);
    rig.edit(fader, -40);
    rig.edit(fader, -50);
    rig.memory->endGesture(&fader);
    QUndoStack &stack = *rig.memory->undoStack();
    QCOMPARE(stack.count(), 3);
    for (const int value : {-1380, -10, -1380}) {
        stack.undo();
        QCOMPARE(rig.read(Fader), value);
    }
}

void tst_ParameterSnapshot::snapshotsOfAnotherModel_data()
{
    QTest::addColumn<QByteArray>("now");
    QTest::addColumn<std::vector<qint32>>("values"); // of a scene with a = 1 2 3 and b = 90
    const auto row = [](const char *name, const QByteArrayList &parameters,
                        std::vector<qint32> values) {
        QTest::newRow(name) << oneBlock(parameters.join(',')) << std::move(values);
    };
    row("the same", {parameter("a", 0, 3), parameter("b", 1, 1)}, {1, 2, 3, 90});
    row("in another order", {parameter("b", 1, 1), parameter("a", 0, 3)}, {90, 1, 2, 3});
    row("with numbers exchanged", {parameter("a", 1, 3), parameter("b", 0, 1)}, {1, 2, 3, 90});
    row("one that the scene lacks", {parameter("a", 0, 3), parameter("c", 1, 1)}, {1, 2, 3, 0});
    row("one between them", {parameter("a", 0, 3), parameter("c", 7, 2), parameter("b", 1, 1)},
        {1, 2, 3, 0, 0, 90});
    row("more elements", {parameter("a", 0, 5), parameter("b", 1, 1)}, {1, 2, 3, 0, 0, 90});
    row("fewer elements", {parameter("a", 0, 2), parameter("b", 1, 1)}, {1, 2, 90});
    row("a narrower range", {parameter("a", 0, 3, 2), parameter("b", 1, 1, 50)}, {1, 2, 2, 50});
    row("nothing in common", {parameter("c", 0, 3)}, {0, 0, 0});
}

void tst_ParameterSnapshot::snapshotsOfAnotherModel()
{
    QFETCH(QByteArray, now);
    QFETCH(std::vector<qint32>, values);
    const SyntheticModel then(oneBlock(parameter("a", 0, 3) + ',' + parameter("b", 1, 1)));
    ParameterMemory old;
    load(old, then);
    ParameterSnapshot scene = old.snapshot();
    scene.values = {1, 2, 3, 90};

    const SyntheticModel model(now);
    ParameterMemory memory;
    load(memory, model);
    const std::vector<qint32> before = memory.snapshot().values;
    memory.apply(scene, "Recall");
    QCOMPARE(memory.snapshot().values, values);
    memory.undoStack()->undo();
    QCOMPARE(memory.snapshot().values, before);
}

void tst_ParameterSnapshot::snapshotsThatAreNone()
{
    const Rig rig;
    ParameterSnapshot snapshot = rig.memory->snapshot();
    snapshot.values.pop_back();
    snapshot.values.front() += 1;
    const ParameterMemory empty;
    QVERIFY(!empty.snapshot().isWhole());
    QCOMPARE(rig.memory->apply(snapshot, "Cut short"), 0);
    QCOMPARE(rig.memory->apply({}, "Nothing"), 0);
    QCOMPARE(ParameterMemory().apply(rig.memory->snapshot(), "Too early"), 0);
    QCOMPARE(rig.memory->undoStack()->count(), 0);
}

void tst_ParameterSnapshot::layoutsComeBackFromTheirDescription()
{
    const Rig rig;
    const auto layout = rig.memory->snapshot().layout;
    const auto again = ParameterLayout::fromDescription(layout->description());
    QVERIFY(again);
    QVERIFY(again->parameters() == layout->parameters());
    QCOMPARE(again->valueCount(), layout->valueCount());
    QCOMPARE(again->fingerprint(), layout->fingerprint());
    const SyntheticModel other(1, 1, 1);
    ParameterMemory memory;
    load(memory, other);
    QVERIFY(memory.snapshot().layout->fingerprint() != layout->fingerprint());
}

void tst_ParameterSnapshot::faultyDescriptions_data()
{
    QTest::addColumn<QByteArray>("description");
    QTest::newRow("cut short") << QByteArray("kBlock/a 1 0 3");
    QTest::newRow("a word missing") << QByteArray("kBlock/a 1 0\n");
    QTest::newRow("a word too many") << QByteArray("kBlock/a 1 0 3 4\n");
    QTest::newRow("no name") << QByteArray(" 1 0 3\n");
    QTest::newRow("no number") << QByteArray("kBlock/a 1 x 3\n");
    QTest::newRow("no elements") << QByteArray("kBlock/a 1 0 0\n");
    QTest::newRow("huge") << QByteArray("kBlock/a 1 0 2000000000\n");
    QTest::newRow("negative") << QByteArray("kBlock/a -1 0 3\n");
    QTest::newRow("the second line") << QByteArray("kBlock/a 1 0 3\n\n");
}

void tst_ParameterSnapshot::faultyDescriptions()
{
    QFETCH(QByteArray, description);
    QVERIFY(!ParameterLayout::fromDescription(description));
}

QTEST_MAIN(tst_ParameterSnapshot)
#include "tst_ParameterSnapshot.moc"

// SPDX-License-Identifier: MIT
#include "companions/memory/UndoHistory.h"
#include "tests/companions/memory/MemoryRig.h"

#include <QtTest>
#include <QUndoStack>

#include <optional>
#include <thread>

namespace {

constexpr auto Att = "kInputAtt/kAtt";

/// A memory with two controls of input 12, and its history.
class UndoRig : public Rig
{
public:
    UndoRig()
    {
        bind(att, 11);
        bind(fader, 11);
    }
    QUndoStack &stack() const { return *memory->undoStack(); }
    int attValue() const { return read(Att, 11); }
    int faderValue() const { return read("kInputFader/kFader", 11); }

    Probe att{Att};
    Probe fader{"kInputFader/kFader"};
};

} // namespace

class tst_UndoHistory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aGestureIsOneStep();
    void anotherControlInsideAGestureHasItsOwnSteps();
    void aBurstIsOneStep();
    void whatEndsABurst_data();
    void whatEndsABurst();
    void aWriteThatChangesNothingMakesNoStep();
    void aStepThatLeadsBackIsTakenOff();
    void someControlsStayOut();
    void writesOfOtherThreadsStayOut();
    void undoAndRedoReachTheControls();
    void undoInsideAGestureStartsANewStep();
    void gesturesOfUnknownAndDestroyedProxies();
    void recordsExchangeNotedAndStoredValues();
    void recordsThatMakeNoStep();
    void theHistoryForgetsItsOldestSteps();
};

void tst_UndoHistory::aGestureIsOneStep()
{
    UndoRig rig;
    rig.memory->beginGesture(&rig.att);
    for (int value = -10; value >= -300; value -= 10)
        rig.edit(rig.att, value);
    rig.memory->endGesture(&rig.att);
    QCOMPARE(rig.stack().count(), 1);
    QCOMPARE(rig.stack().undoText(), QString("Input 12 Attenuator"));
    rig.stack().undo();
    QCOMPARE(rig.attValue(), 0);
    rig.stack().redo();
    QCOMPARE(rig.attValue(), -300);
    rig.edit(rig.att, -310);
    QCOMPARE(rig.stack().count(), 2);
}

void tst_UndoHistory::anotherControlInsideAGestureHasItsOwnSteps()
{
    UndoRig rig;
    rig.memory->beginGesture(&rig.att);
    rig.edit(rig.att, -10);
    rig.edit(rig.fader, -500);
    rig.edit(rig.att, -20);
    rig.edit(rig.fader, -600);
    rig.memory->endGesture(&rig.att);
    QCOMPARE(rig.stack().count(), 3);
    rig.stack().undo();
    QCOMPARE(std::pair(rig.attValue(), rig.faderValue()), std::pair(-20, -500));
    rig.stack().undo();
    rig.stack().undo();
    QCOMPARE(std::pair(rig.attValue(), rig.faderValue()), std::pair(0, -1380));
}

void tst_UndoHistory::aBurstIsOneStep()
{
    UndoRig rig;
    for (int value = 1; value <= 5; ++value)
        rig.edit(rig.att, value);
    QCOMPARE(rig.stack().count(), 1);
    rig.stack().undo();
    QCOMPARE(rig.attValue(), 0);
}

void tst_UndoHistory::whatEndsABurst_data()
{
    using Between = std::function<void(UndoRig &)>;
    QTest::addColumn<Between>("between");
    QTest::addColumn<int>("steps");
    QTest::newRow("nothing") << Between([](UndoRig &) {}) << 1;
    QTest::newRow("another control") << Between([](UndoRig &rig) { rig.edit(rig.fader, 0); }) << 3;
    QTest::newRow("another parameter of the same control") << Between([](UndoRig &rig) {
        const auto pad = rig.address("kInputHA/kPad");
        const TMemOriginHelper origin(rig.memory.get(), &rig.att);
        rig.memory->writeValue(pad.group, pad.index, 0, 1, rig.memory->undoToken(0, 1));
    }) << 3;
    QTest::newRow("nobody's write") << Between([](UndoRig &rig) {
        const auto pad = rig.address("kInputHA/kPad");
        rig.memory->writeValue(pad.group, pad.index, 0, 1, rig.memory->undoToken(0, 1));
    }) << 3;
    QTest::newRow("an empty gesture") << Between([](UndoRig &rig) {
        rig.memory->beginGesture(&rig.att);
        rig.memory->endGesture(&rig.att);
    }) << 2;
    QTest::newRow("undo and redo") << Between([](UndoRig &rig) {
        rig.stack().undo();
        rig.stack().redo();
    }) << 2;
    QTest::newRow("a record") << Between([](UndoRig &rig) {
        auto record = rig.memory->openUndoRecord("Patch");
        rig.fader.writeUndo(*record, 0);
        rig.memory->commitUndoRecord(std::move(record));
    }) << 3;
    QTest::newRow("a pause") << Between([](UndoRig &) {
        QTest::qWait(UndoHistory::BurstMilliseconds + 50);
    }) << 2;
    QTest::newRow("a write without undo")
        << Between([](UndoRig &rig) { rig.write("kInputHA/kPad", 0, 1); }) << 1;
}

void tst_UndoHistory::whatEndsABurst()
{
    QFETCH(std::function<void(UndoRig &)>, between);
    QFETCH(int, steps);
    UndoRig rig;
    rig.edit(rig.att, 1);
    between(rig);
    rig.edit(rig.att, 2);
    QCOMPARE(rig.stack().count(), steps);
    rig.stack().undo();
    QCOMPARE(rig.attValue(), steps == 1 ? 0 : 1);
}

void tst_UndoHistory::aWriteThatChangesNothingMakesNoStep()
{
    UndoRig rig;
    rig.edit(rig.att, 0);
    rig.edit(rig.fader, -9999); // held at the minimum, where it is
    QCOMPARE(rig.stack().count(), 0);
}

void tst_UndoHistory::aStepThatLeadsBackIsTakenOff()
{
    UndoRig rig;
    rig.edit(rig.fader, -5);
    rig.memory->beginGesture(&rig.att);
    rig.edit(rig.att, -10);
    rig.edit(rig.att, 0);
    QCOMPARE(rig.stack().count(), 1);
    rig.edit(rig.att, -20);
    rig.edit(rig.att, -30);
    rig.memory->endGesture(&rig.att);
    QCOMPARE(rig.stack().count(), 2);
    rig.stack().undo();
    QCOMPARE(rig.attValue(), 0);
    QCOMPARE(rig.faderValue(), -5);
}

void tst_UndoHistory::someControlsStayOut()
{
    UndoRig rig;
    rig.att.setUndoEnable(false);
    rig.edit(rig.att, 5);
    rig.memory->beginGesture(&rig.att);
    rig.edit(rig.att, 6);
    rig.memory->endGesture(&rig.att);
    rig.fader.recordedByOwner = true;
    rig.edit(rig.fader, -5);
    QCOMPARE(rig.stack().count(), 0);
    QCOMPARE(std::pair(rig.attValue(), rig.faderValue()), std::pair(6, -5));
}

void tst_UndoHistory::writesOfOtherThreadsStayOut()
{
    UndoRig rig;
    const int token = rig.memory->undoToken(0, 1);
    int tokenThere = -1;
    std::thread([&] {
        tokenThere = rig.memory->undoToken(0, 1);
        rig.memory->writeValue(rig.att.group, rig.att.index, rig.att.element, 7, token);
    }).join();
    QCOMPARE(tokenThere, 0);
    QCOMPARE(rig.attValue(), 7);
    QCOMPARE(rig.stack().count(), 0);
}

void tst_UndoHistory::undoAndRedoReachTheControls()
{
    UndoRig rig;
    rig.edit(rig.att, -100);
    rig.turn();
    rig.stack().undo();
    rig.turn();
    QCOMPARE(rig.att.seen, 0);
    rig.stack().redo();
    rig.turn();
    QCOMPARE(rig.att.seen, -100);
}

void tst_UndoHistory::undoInsideAGestureStartsANewStep()
{
    UndoRig rig;
    rig.memory->beginGesture(&rig.att);
    rig.edit(rig.att, -10);
    rig.stack().undo();
    rig.edit(rig.att, -20);
    rig.memory->endGesture(&rig.att);
    QCOMPARE(std::pair(rig.stack().count(), rig.stack().index()), std::pair(1, 1));
    rig.stack().clear();
    rig.edit(rig.att, -30);
    rig.stack().undo();
    QCOMPARE(rig.attValue(), -20);
}

void tst_UndoHistory::gesturesOfUnknownAndDestroyedProxies()
{
    UndoRig rig;
    Probe unbound;
    rig.memory->endGesture(&unbound);
    rig.memory->beginGesture(&unbound);
    std::optional<Probe> gone(Att);
    rig.bind(*gone, 3);
    rig.memory->beginGesture(&*gone);
    rig.edit(*gone, -1);
    gone.reset();
    rig.memory->endGesture(&unbound);
    // Another control, in the same place in memory, is not in the gesture.
    gone.emplace(Att);
    rig.bind(*gone, 4);
    rig.edit(*gone, -1);
    QCOMPARE(rig.stack().count(), 2);
    rig.stack().undo();
    rig.stack().undo();
    QCOMPARE(rig.read(Att, 3), 0);
}

void tst_UndoHistory::recordsExchangeNotedAndStoredValues()
{
    UndoRig rig;
    auto record = rig.memory->openUndoRecord("Clear row");
    rig.att.writeUndo(*record, 1);
    record->add(2, {rig.fader.group, 11, rig.fader.index, -1380});
    record->add(2, {rig.fader.group, 11, rig.fader.index, -1}); // noted already
    record->add(3, {999, 0, 0, 5});                             // no such parameter
    rig.memory->commitUndoRecord(std::move(record));
    // The edit may follow: what is stored when it is undone counts.
    rig.write(Att, 11, -40);
    rig.write("kInputFader/kFader", 11, -60);
    QCOMPARE(rig.stack().count(), 1);
    QCOMPARE(rig.stack().undoText(), QString("Clear row"));
    for (int round = 0; round < 2; ++round) {
        rig.stack().undo();
        QCOMPARE(std::pair(rig.attValue(), rig.faderValue()), std::pair(0, -1380));
        rig.stack().redo();
        QCOMPARE(std::pair(rig.attValue(), rig.faderValue()), std::pair(-40, -60));
    }
}

void tst_UndoHistory::recordsThatMakeNoStep()
{
    UndoRig rig;
    rig.memory->commitUndoRecord(rig.memory->openUndoRecord("Empty"));
    rig.memory->commitUndoRecord(nullptr);
    rig.memory->openUndoRecord("Dropped")->add(0, {rig.att.group, 11, rig.att.index, 0});
    QCOMPARE(rig.stack().count(), 0);
}

void tst_UndoHistory::theHistoryForgetsItsOldestSteps()
{
    UndoRig rig;
    rig.memory->beginGesture(&rig.att);
    rig.edit(rig.att, -1);
    for (int i = 0; i < UndoHistory::MostSteps; ++i)
        rig.memory->writeValue(rig.fader.group, rig.fader.index, 0, i % 2,
                               rig.memory->undoToken(0, 1));
    QCOMPARE(rig.stack().count(), UndoHistory::MostSteps);
    rig.edit(rig.att, -2); // its step is gone from the history by now
    rig.memory->endGesture(&rig.att);
    QCOMPARE(rig.stack().count(), UndoHistory::MostSteps);
    rig.stack().undo();
    QCOMPARE(rig.attValue(), -1);
}

QTEST_MAIN(tst_UndoHistory)
#include "tst_UndoHistory.moc"

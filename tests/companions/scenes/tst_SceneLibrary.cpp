// SPDX-License-Identifier: MIT
#include "companions/scenes/SceneLibrary.h"

#include "tests/companions/scenes/SceneRig.h"

#include <functional>

class tst_SceneLibrary : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsStoredIsThereAgain();
    void storingOverKeepsTheTitle();
    void aSceneOfAnOlderModelKeepsItsLayout();
    void titles_data();
    void titles();
    void whatIsRefused_data();
    void whatIsRefused();
    void moves_data();
    void moves();
    void movedScenesTakeTitleAndProtectionAlong();
    void movesAreUndoneTogether();
    void aCopyIsTheWholeSceneUnprotected();
    void undoTakesBackTheLastCommand();
    void undoOfProtectionLeavesTheScene();
    void undoStatesAreForgotten();
    void changesByOthersAreFound();
    void withoutALibraryNothingHappens();
};

void tst_SceneLibrary::whatIsStoredIsThereAgain()
{
    SceneRig rig;
    const QDateTime before = QDateTime::currentDateTimeUtc().addMSecs(-1);
    QVERIFY(rig.library.store(12, rig.scene(5)));
    QVERIFY(rig.library.rename(12, "Overture"));
    QVERIFY(rig.library.setProtected(12, true));
    QVERIFY(rig.library.store(300, rig.scene(6)));
    QVERIFY(rig.reopen());
    const SceneInfo &scene = rig.library.scene(12);
    QCOMPARE(scene.title, QString("Overture"));
    QCOMPARE(std::tuple(scene.hasData, scene.isProtected, scene.isReadOnly),
             std::tuple(true, true, false));
    QCOMPARE(scene.stored.timeSpec(), Qt::UTC);
    QVERIFY(scene.stored >= before && scene.stored <= QDateTime::currentDateTimeUtc());
    QCOMPARE(rig.library.recall(12)->values, rig.scene(5).values);
    QCOMPARE(rig.library.recall(300)->values, rig.scene(6).values);
    QVERIFY(!rig.library.scene(13).hasData);
}

void tst_SceneLibrary::storingOverKeepsTheTitle()
{
    SceneRig rig;
    rig.fill(1);
    QCOMPARE(rig.library.scene(1).title, QString("Scene 001"));
    QVERIFY(rig.library.rename(1, "Interval"));
    QVERIFY(rig.library.store(1, rig.scene(9)));
    QCOMPARE(rig.library.scene(1).title, QString("Interval"));
    QCOMPARE(rig.numbers(1), QList({9}));
}

void tst_SceneLibrary::aSceneOfAnOlderModelKeepsItsLayout()
{
    SceneRig rig;
    rig.fill(1);
    const SyntheticModel newer(5, 5, 100);
    ParameterMemory memory;
    QVERIFY(memory.load(newer.fileName()));
    QVERIFY(rig.reopen());
    QVERIFY(rig.library.store(2, memory.snapshot()));
    const auto old = rig.library.recall(1);
    QCOMPARE(old->layout->fingerprint(), rig.memory.snapshot().layout->fingerprint());
    QCOMPARE(rig.library.recall(2)->layout->fingerprint(), memory.snapshot().layout->fingerprint());
    QCOMPARE(memory.apply(*old, "Recall"), static_cast<int>(old->values.size()));
}

void tst_SceneLibrary::titles_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("kept"); // empty: refused
    const QString longest(SceneLibrary::MaximumTitleLength, 'x');
    QTest::newRow("space around and within") << " Act  II \n scene 3\t"
                                             << "Act II scene 3";
    QTest::newRow("other scripts")
        << QString::fromUtf8("Ouvertüre 序曲") << QString::fromUtf8("Ouvertüre 序曲");
    QTest::newRow("quotes") << "O'Brien\"; --"
                            << "O'Brien\"; --";
    QTest::newRow("control characters") << QString("a\x01"
                                                   "b\x7f")
                                        << "ab";
    QTest::newRow("the longest") << longest << longest;
    QTest::newRow("too long") << longest + 'x' << QString();
    QTest::newRow("nothing") << QString() << QString();
    QTest::newRow("space") << "  \n" << QString();
}

void tst_SceneLibrary::titles()
{
    QFETCH(QString, given);
    QFETCH(QString, kept);
    SceneRig rig;
    rig.fill(1);
    QString error;
    QCOMPARE(rig.library.rename(1, given, &error), !kept.isEmpty());
    QCOMPARE(error.isEmpty(), !kept.isEmpty());
    QVERIFY(rig.reopen());
    QCOMPARE(rig.library.scene(1).title, kept.isEmpty() ? "Scene 001" : kept);
}

using Command = std::function<bool(SceneRig &, QString *)>;

/// Slot 1 is common, 2 protected, 3 read only, 4 and all others empty.
void tst_SceneLibrary::whatIsRefused_data()
{
    QTest::addColumn<Command>("command");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *name, const char *reason, const Command &command) {
        QTest::newRow(name) << command << reason;
    };
    row("store over protected", "Scene #002 is protected.",
        [](SceneRig &rig, QString *error) { return rig.library.store(2, rig.scene(1), error); });
    row("store over read only", "Scene #003 is read only.",
        [](SceneRig &rig, QString *error) { return rig.library.store(3, rig.scene(1), error); });
    row("store nothing", "There are no settings to store.",
        [](SceneRig &rig, QString *error) { return rig.library.store(1, {}, error); });
    row("store at 0", "There is no scene #000.",
        [](SceneRig &rig, QString *error) { return rig.library.store(0, rig.scene(1), error); });
    row("store at 301", "There is no scene #301.",
        [](SceneRig &rig, QString *error) { return rig.library.store(301, rig.scene(1), error); });
    row("recall an empty one", "Scene #004 is empty.",
        [](SceneRig &rig, QString *error) { return rig.library.recall(4, error).has_value(); });
    row("clear protected", "Scene #002 is protected.",
        [](SceneRig &rig, QString *error) { return rig.library.clear(2, error); });
    row("clear read only", "Scene #003 is read only.",
        [](SceneRig &rig, QString *error) { return rig.library.clear(3, error); });
    row("clear an empty one", "Scene #004 is empty.",
        [](SceneRig &rig, QString *error) { return rig.library.clear(4, error); });
    row("rename protected", "Scene #002 is protected.",
        [](SceneRig &rig, QString *error) { return rig.library.rename(2, "x", error); });
    row("protect an empty one", "Scene #004 is empty.",
        [](SceneRig &rig, QString *error) { return rig.library.setProtected(4, true, error); });
    row("protect read only", "Scene #003 is read only.",
        [](SceneRig &rig, QString *error) { return rig.library.setProtected(3, true, error); });
    row("move across read only", "Scene #003 is read only.",
        [](SceneRig &rig, QString *error) { return rig.library.move(1, 1, 5, error); });
    row("move beyond the end", "There is no scene #301.",
        [](SceneRig &rig, QString *error) { return rig.library.move(1, 2, 300, error); });
    row("move from before the first", "There is no scene #000.",
        [](SceneRig &rig, QString *error) { return rig.library.move(0, 2, 5, error); });
    row("copy to protected", "Scene #002 is protected.", [](SceneRig &rig, QString *error) {
        return rig.library.put(2, *rig.library.read(1), error);
    });
    row("undo without anything to undo", "There is nothing to undo for scene #001.",
        [](SceneRig &rig, QString *error) { return rig.library.undo(1, error); });
}

void tst_SceneLibrary::whatIsRefused()
{
    QFETCH(Command, command);
    QFETCH(QString, reason);
    SceneRig rig;
    rig.fill(3);
    QVERIFY(rig.library.setProtected(2, true));
    QVERIFY(rig.library.setReadOnly(3, true));
    rig.library.forgetUndo(1);
    QString error;
    QVERIFY(!command(rig, &error));
    QCOMPARE(error, reason);
    QVERIFY(rig.reopen());
    QCOMPARE(rig.numbers(5), QList({101, 102, 103, 0, 0}));
    QCOMPARE(rig.library.scene(2).title, QString("Scene 002"));
    QVERIFY(!rig.library.scene(3).isProtected);
}

void tst_SceneLibrary::moves_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("target");
    QTest::addColumn<QList<int>>("numbers"); // of slots 1 to 5; 5 is empty before
    QTest::newRow("one down") << 1 << 1 << 3 << QList({102, 103, 101, 104, 0});
    QTest::newRow("one up") << 4 << 1 << 1 << QList({104, 101, 102, 103, 0});
    QTest::newRow("two down by one") << 1 << 2 << 2 << QList({103, 101, 102, 104, 0});
    QTest::newRow("three up by one") << 2 << 3 << 1 << QList({102, 103, 104, 101, 0});
    QTest::newRow("an empty one") << 5 << 1 << 2 << QList({101, 0, 102, 103, 104});
    QTest::newRow("nowhere") << 2 << 2 << 2 << QList({101, 102, 103, 104, 0});
}

void tst_SceneLibrary::moves()
{
    QFETCH(int, first);
    QFETCH(int, count);
    QFETCH(int, target);
    QFETCH(QList<int>, numbers);
    SceneRig rig;
    rig.fill(4);
    QVERIFY(rig.library.move(first, count, target));
    QCOMPARE(rig.numbers(5), numbers);
    QVERIFY(rig.reopen());
    QCOMPARE(rig.numbers(5), numbers);
}

void tst_SceneLibrary::movedScenesTakeTitleAndProtectionAlong()
{
    SceneRig rig;
    rig.fill(2);
    QVERIFY(rig.library.rename(1, "First"));
    QVERIFY(rig.library.setProtected(1, true));
    const QDateTime stored = rig.library.scene(1).stored;
    QVERIFY(rig.library.move(1, 1, 300));
    const SceneInfo &scene = rig.library.scene(300);
    QCOMPARE(std::tuple(scene.title, scene.isProtected, scene.stored),
             std::tuple("First", true, stored));
    QVERIFY(rig.library.undo(1));
    QVERIFY(rig.library.scene(1).isProtected);
}

void tst_SceneLibrary::movesAreUndoneTogether()
{
    SceneRig rig;
    rig.fill(5);
    QVERIFY(rig.library.move(1, 1, 4));
    QVERIFY(rig.library.move(2, 2, 1));
    QVERIFY(rig.library.move(5, 1, 1));
    QVERIFY(rig.numbers(5) != QList({101, 102, 103, 104, 105}));
    QVERIFY(rig.library.canUndo(3));
    QVERIFY(rig.library.undo(3));
    QCOMPARE(rig.numbers(5), QList({101, 102, 103, 104, 105}));
    QVERIFY(!rig.library.canUndo(1));

    QVERIFY(rig.library.move(1, 1, 2));
    QVERIFY(rig.library.store(5, rig.scene(7)));
    QVERIFY(!rig.library.canUndo(1)); // another command has followed
    QVERIFY(rig.library.undo(5));
    QCOMPARE(rig.numbers(5), QList({102, 101, 103, 104, 105}));
}

void tst_SceneLibrary::aCopyIsTheWholeSceneUnprotected()
{
    SceneRig rig;
    rig.fill(2);
    QVERIFY(rig.library.rename(1, "First"));
    QVERIFY(rig.library.setProtected(1, true));
    const auto scene = rig.library.read(1);
    QVERIFY(rig.library.put(300, *scene));
    const SceneInfo &copy = rig.library.scene(300);
    QCOMPARE(std::tuple(copy.title, copy.stored, copy.isProtected),
             std::tuple("First", rig.library.scene(1).stored, false));
    QCOMPARE(rig.library.recall(300)->values, rig.scene(101).values);
    QVERIFY(rig.library.undo(300));
    QVERIFY(!rig.library.scene(300).hasData);
    QVERIFY(rig.library.put(2, *scene));
    QVERIFY(rig.library.undo(2));
    QCOMPARE(rig.numbers(2), QList({101, 102}));
}

void tst_SceneLibrary::undoTakesBackTheLastCommand()
{
    SceneRig rig;
    rig.fill(1);
    QVERIFY(rig.library.rename(1, "First"));
    const QDateTime stored = rig.library.scene(1).stored;
    const auto isAsBefore = [&] {
        return rig.numbers(1) == QList({101}) && rig.library.scene(1).title == "First"
               && rig.library.scene(1).stored == stored && !rig.library.canUndo(1);
    };
    QTest::qWait(5);
    QVERIFY(rig.library.store(1, rig.scene(7)));
    QVERIFY(rig.library.undo(1));
    QVERIFY(isAsBefore());
    QVERIFY(rig.library.clear(1));
    QVERIFY(!rig.library.scene(1).hasData);
    QVERIFY(rig.library.undo(1));
    QVERIFY(isAsBefore());
    QVERIFY(rig.library.rename(1, "Renamed"));
    QVERIFY(rig.library.undo(1));
    QVERIFY(isAsBefore());
    QVERIFY(rig.library.store(2, rig.scene(7)));
    QVERIFY(rig.library.undo(2));
    QVERIFY(!rig.library.scene(2).hasData);
    QVERIFY(rig.reopen());
    QVERIFY(isAsBefore());
}

void tst_SceneLibrary::undoOfProtectionLeavesTheScene()
{
    SceneRig rig;
    rig.fill(1);
    QVERIFY(rig.library.setProtected(1, true));
    QVERIFY(rig.library.undo(1));
    QVERIFY(!rig.library.scene(1).isProtected);
    QCOMPARE(rig.numbers(1), QList({101}));
    QVERIFY(rig.library.setProtected(1, true));
    QVERIFY(rig.library.setProtected(1, false));
    QVERIFY(rig.library.undo(1));
    QVERIFY(rig.library.scene(1).isProtected);
}

void tst_SceneLibrary::undoStatesAreForgotten()
{
    SceneRig rig;
    rig.fill(2);
    QVERIFY(rig.library.canUndo(1));
    rig.library.forgetUndo(1);
    QVERIFY(!rig.library.canUndo(1));
    QVERIFY(rig.library.canUndo(2));
    QVERIFY(rig.library.setReadOnly(2, true));
    QVERIFY(!rig.library.canUndo(2));
    QVERIFY(rig.library.store(3, rig.scene(1)));
    QVERIFY(rig.reopen());
    QVERIFY(!rig.library.canUndo(3));
}

void tst_SceneLibrary::changesByOthersAreFound()
{
    SceneRig rig;
    rig.fill(1);
    QVERIFY(!rig.library.refresh());
    SceneLibrary other;
    QVERIFY(other.open(rig.fileName()));
    QVERIFY(other.rename(1, "Theirs"));
    QCOMPARE(rig.library.scene(1).title, QString("Scene 001"));
    QVERIFY(rig.library.refresh());
    QCOMPARE(rig.library.scene(1).title, QString("Theirs"));
    QVERIFY(!rig.library.refresh());
    // What it protects counts at once.
    QVERIFY(other.setProtected(1, true));
    QVERIFY(!rig.library.store(1, rig.scene(1)));
}

void tst_SceneLibrary::withoutALibraryNothingHappens()
{
    const SceneRig rig;
    SceneLibrary closed;
    QString error;
    QVERIFY(!closed.store(1, rig.scene(1), &error));
    QCOMPARE(error, QString("There is no scene library."));
    QVERIFY(!closed.recall(1) && !closed.refresh() && !closed.isOpen());
    QVERIFY(!closed.readOnlyReason().isEmpty());
}

QTEST_MAIN(tst_SceneLibrary)
#include "tst_SceneLibrary.moc"

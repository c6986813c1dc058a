// SPDX-License-Identifier: MIT
// The commands: rows, order, questions, messages, progress.
#include "tests/support/LibraryRig.h"
#include "tests/support/Table.h"

#include <QSignalSpy>

namespace {

using Command = void (CListWidge::*)();
const Command store = &CListWidge::Store;
const Command recall = &CListWidge::Recall;
const Command clear = &CListWidge::Clear;
const Command protect = &CListWidge::Protect;

const QString AskStore1 = "Confirmation: Store to Scene 1 #001? [Yes No*]";
const QString AskStore3 = "Confirmation: Store to Scene 3 #003? [Yes No*]";
const QString AskClear = "Confirmation: Are you sure you want to clear selection? [Yes No*]";

} // namespace

Q_DECLARE_METATYPE(Command)
Q_DECLARE_METATYPE(QList<Answers::Answer>)

class TestCListWidge : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void commandAsksWorksAndTells_data();
    void commandAsksWorksAndTells();
    void preferenceIsFalseUnlessItHoldsYes_data();
    void preferenceIsFalseUnlessItHoldsYes();
    void titlesInQuestionsArePlainText();
    void everyChangedRowIsShownAnewAndTold_data();
    void everyChangedRowIsShownAnewAndTold();
    void progressGoesThroughSeveralRows_data();
    void progressGoesThroughSeveralRows();
    void oneRowRunsWithoutADialog();
    void quickCommandFlashesNoDialog();
    void stopEndsAfterTheRowAtHand();
    void escapeStopsToo();
    void afterAQuestionThereAreNoLabels();
    void dialogDoesNotComeUpOverQuestions();
    void updatesAreSuspendedUntilSomethingIsAsked();
    void commandsForgetUndoOfBothListsFirst_data();
    void commandsForgetUndoOfBothListsFirst();
    void undoTakesBackVisibleRowsTheOtherListFirst();
    void undoIsAvailableWhileAnyRowHasIt();
    void clearAllNeitherAsksNorTells();
    void headingsAreSkippedButCounted();
    void otherCommandsAreIgnoredMeanwhile();
    void listTakesTheFocusAtTheEnd();
};

void TestCListWidge::commandAsksWorksAndTells_data()
{
    using A = Answers;
    const QStringList none;
    Table<QString, QList<int>, Command, QList<Answers::Answer>, QStringList, QStringList>()
        .row("store in list order", "d-d-", {3, 1, 4}, store, {}, {"store 1", "store 3", "store 4"},
             {})
        .row("store nothing", "d-d-", {}, store, {}, none, {})
        // Upper case: the preference that makes the command ask is set.
        .row("store asks", "D", {1}, store, {A::yes()}, {"store 1"}, {AskStore1})
        .row("store, no", "D", {1}, store, {A::no()}, none, {AskStore1})
        .row("store, Escape is no", "D", {1}, store, {A::press(Qt::Key_Escape)}, none, {AskStore1})
        .row("store, Return is no", "D", {1}, store, {A::press(Qt::Key_Return)}, none, {AskStore1})
        .row("no skips that row only", "D-D", {1, 2, 3}, store, {A::no(), A::yes(), A::yes()},
             {"store 2", "store 3"},
             {AskStore1, "Confirmation: Store to  #002? [Yes No*]", AskStore3})
        .row("store fails and goes on", "xd", {1, 2}, store, {A::ok()}, {"store 1", "store 2"},
             {"Error: slot 1 is broken [OK*]"})
        .row("recall the first in list order", "-ddd", {4, 3, 2}, recall, {}, {"recall 2"}, {})
        .row("recall nothing", "dd", {}, recall, {}, none, {})
        .row("recall asks", "D", {1}, recall, {A::yes()}, {"recall 1"},
             {"Confirmation: Recall from Scene 1 #001? [Yes No*]"})
        .row("recall, no", "D", {1}, recall, {A::no()}, none,
             {"Confirmation: Recall from Scene 1 #001? [Yes No*]"})
        .row("recall fails under the product's name", "x", {1}, recall, {A::ok()}, {"recall 1"},
             {"TV9K: slot 1 is broken [OK*]"})
        .row("clear asks first", "dd", {1, 2}, clear, {A::yes()}, {"clear 1", "clear 2"},
             {AskClear})
        .row("clear, no", "dd", {1, 2}, clear, {A::no()}, none, {AskClear})
        .row("clear nothing asks all the same", "dd", {}, clear, {A::yes()}, none, {AskClear})
        .row("clear leaves protected and empty rows", "dp-r", {1, 2, 3, 4}, clear, {A::yes()},
             {"clear 1", "clear 4"}, {AskClear})
        .row("clear fails silently", "xd", {1, 2}, clear, {A::yes()}, {"clear 1", "clear 2"},
             {AskClear})
        .row("protect", "d-d", {1, 2, 3}, protect, {}, {"protect 1", "protect 3"}, {})
        .row("one protected row: unprotect that", "dpd", {1, 2, 3}, protect, {}, {"protect 2"}, {})
        .row("protected rows elsewhere do not count", "dpd", {1, 3}, protect, {},
             {"protect 1", "protect 3"}, {})
        .row("protect fails silently", "xd", {1, 2}, protect, {}, {"protect 1", "protect 2"}, {});
}

void TestCListWidge::commandAsksWorksAndTells()
{
    const auto [states, selected, command, answers, calls, boxes] =
        Table<QString, QList<int>, Command, QList<Answers::Answer>, QStringList,
              QStringList>::fetch();
    ListRig rig(QString(states).replace('x', 'd').toLower());
    if (states.contains('D')) {
        rig.library.memory.preferenceValues = {{IPreferences::ConfirmStore, true},
                                               {IPreferences::ConfirmRecall, true}};
    }
    for (int slot = 1; slot <= states.size(); ++slot) {
        if (states.at(slot - 1) == 'x')
            rig.library.errors[slot] = QString("slot %1 is broken").arg(slot);
    }
    rig.select(selected);
    Answers operatorSays(answers);
    (rig.list->*command)();
    QCOMPARE(rig.library.take(), calls);
    QCOMPARE(operatorSays.seen, boxes);
    QVERIFY(!progressDialog());
}

void TestCListWidge::preferenceIsFalseUnlessItHoldsYes_data()
{
    Table<bool, QVariant, bool>()
        .row("yes", true, QVariant(true), true)
        .row("no", true, QVariant(false), false)
        .row("no value", true, QVariant(), false)
        .row("no memory", false, QVariant(true), false);
}

void TestCListWidge::preferenceIsFalseUnlessItHoldsYes()
{
    const auto [hasMemory, value, expected] = Table<bool, QVariant, bool>::fetch();
    ListRig rig("d");
    rig.row(1)->hasMemory = hasMemory;
    rig.library.memory.preferenceValues[IPreferences::ConfirmRecall] = value;
    QCOMPARE(rig.list->getPreference(IPreferences::ConfirmRecall, rig.row(1)), expected);
    QVERIFY(!rig.list->getPreference(IPreferences::ConfirmStore, rig.row(1)));
    QVERIFY(!rig.list->getPreference(IPreferences::ConfirmRecall, nullptr));
}

void TestCListWidge::titlesInQuestionsArePlainText()
{
    ListRig rig("d");
    rig.library.memory.preferenceValues[IPreferences::ConfirmRecall] = true;
    rig.row(1)->contents.title = "<b>%1</b> %s Über";
    rig.select({1});
    Answers operatorSays({[](QMessageBox *box) {
        QCOMPARE(box->textFormat(), Qt::PlainText);
        box->reject();
    }});
    rig.list->Recall();
    QCOMPARE(operatorSays.seen,
             QStringList("Confirmation: Recall from <b>%1</b> %s Über #001? [Yes No*]"));
}

void TestCListWidge::everyChangedRowIsShownAnewAndTold_data()
{
    Table<Command, QList<int>>()
        .row("store, the failed one not", store, {1, 3})
        .row("recall", recall, {1})
        .row("clear, the failed one too", clear, {1, 2, 3})
        .row("protect, the failed one too", protect, {1, 2, 3});
}

void TestCListWidge::everyChangedRowIsShownAnewAndTold()
{
    const auto [command, shown] = Table<Command, QList<int>>::fetch();
    struct Watched : CListWidge
    {
        void repaintItem_Polymorphic(CListWidgeItem *row) override
        {
            shown << row->slotNumber();
            CListWidge::repaintItem_Polymorphic(row);
        }
        QList<int> shown;
    };
    ListRig rig("ddd");
    auto *watched = new Watched;
    watched->addTopLevelItems({rig.makeRow(1, 'd'), rig.makeRow(2, 'd'), rig.makeRow(3, 'd')});
    delete std::exchange(rig.list, watched);
    rig.library.errors[2] = "broken";
    rig.select({1, 2, 3});
    QSignalSpy told(rig.list, qOverload<>(&CListWidge::selectionChanged));
    QSignalSpy dataChanged(rig.list->model(), &QAbstractItemModel::dataChanged);
    Answers operatorSays(
        {Answers::click(command == &CListWidge::Clear ? QMessageBox::Yes : QMessageBox::Ok)});
    (rig.list->*command)();
    QCOMPARE(watched->shown, shown);
    QCOMPARE(told.size(), watched->shown.size());
    QCOMPARE(dataChanged.size(), watched->shown.size());
}

void TestCListWidge::progressGoesThroughSeveralRows_data()
{
    Table<Command, QString, QStringList>()
        .row("store", store, "Storing library slot #%1", {"1: 1 of 4", "2: 2 of 4", "4: 3 of 4"})
        .row("clear: the empty row counts", clear, "Clearing library slot #%1",
             {"1: 1 of 4", "4: 3 of 4"})
        .row("protect: the empty row is passed over", protect, "Protecting library slot #%1",
             {"1: 1 of 4", "4: 2 of 4"});
}

void TestCListWidge::progressGoesThroughSeveralRows()
{
    const auto [command, label, expected] = Table<Command, QString, QStringList>::fetch();
    ListRig rig("d-dd");
    rig.select({1, 2, 4});
    QStringList steps;
    rig.library.during = [&](int slot) {
        QProgressDialog *dialog = progressDialog();
        QVERIFY(dialog);
        QCOMPARE(dialog->labelText(), label.arg(slot));
        QVERIFY(!dialog->parentWidget() && dialog->isModal());
        QCOMPARE(dialog->findChild<QPushButton *>()->text(), "Stop");
        const Qt::WindowFlags flags = dialog->windowFlags();
        QVERIFY(flags & Qt::CustomizeWindowHint && flags & Qt::WindowTitleHint);
        QCOMPARE(flags & Qt::WindowType_Mask, Qt::Dialog);
        QVERIFY(!(flags & Qt::WindowSystemMenuHint));
        steps << QString("%1: %2 of %3").arg(slot).arg(dialog->value()).arg(dialog->maximum());
    };
    Answers operatorSays({Answers::yes()});
    (rig.list->*command)();
    QCOMPARE(steps, expected);
    QVERIFY(!progressDialog());
}

void TestCListWidge::oneRowRunsWithoutADialog()
{
    ListRig rig("dd");
    rig.select({2});
    rig.library.during = [](int) { QVERIFY(!progressDialog()); };
    rig.list->Store();
    QCOMPARE(rig.library.calls, QStringList("store 2"));
}

void TestCListWidge::quickCommandFlashesNoDialog()
{
    ListRig rig("dddd");
    rig.select({1, 2, 3, 4});
    rig.library.during = [](int) { QVERIFY(!progressDialog()->isVisible()); };
    rig.list->Store();
    QCOMPARE(rig.library.calls.size(), 4);
}

void TestCListWidge::stopEndsAfterTheRowAtHand()
{
    ListRig rig(QString("d").repeated(20));
    rig.list->selectAll();
    rig.library.during = [](int) { QTest::qSleep(150); };
    int pressedAt = 0;
    QTimer operatorSays;
    connect(&operatorSays, &QTimer::timeout, &operatorSays, [&] {
        auto *dialog = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
        if (dialog && !pressedAt) {
            pressedAt = dialog->value();
            QTest::mouseClick(dialog->findChild<QPushButton *>(), Qt::LeftButton);
        }
    });
    operatorSays.start(1);
    rig.list->Store();
    // Pressed while row n was announced: it is stored still, the next is not.
    QVERIFY(pressedAt > 1 && pressedAt < 20);
    QCOMPARE(rig.library.calls.size(), pressedAt);
    QVERIFY(rig.list->updatesEnabled());
    QVERIFY(!progressDialog());
}

void TestCListWidge::escapeStopsToo()
{
    ListRig rig(QString("d").repeated(20));
    rig.list->selectAll();
    rig.library.during = [](int) { QTest::qSleep(150); };
    QTimer operatorSays;
    connect(&operatorSays, &QTimer::timeout, &operatorSays, [&] {
        if (QWidget *dialog = QApplication::activeModalWidget())
            QTest::keyClick(dialog, Qt::Key_Escape);
    });
    operatorSays.start(1);
    rig.list->Protect();
    QVERIFY(rig.library.calls.size() > 1);
    QVERIFY(rig.library.calls.size() < 20);
}

void TestCListWidge::afterAQuestionThereAreNoLabels()
{
    ListRig rig("ddd");
    rig.library.memory.preferenceValues[IPreferences::ConfirmStore] = true;
    rig.row(1)->hasMemory = false; // asks for the other two only
    rig.select({1, 2, 3});
    QStringList labels;
    rig.library.during = [&](int) {
        labels
            << QString("%1 %2").arg(progressDialog()->value()).arg(progressDialog()->labelText());
    };
    Answers operatorSays({Answers::yes(), Answers::yes()});
    rig.list->Store();
    QCOMPARE(labels, QStringList({"1 Storing library slot #1", "2 ", "3 "}));
}

void TestCListWidge::dialogDoesNotComeUpOverQuestions()
{
    ListRig rig("ddd");
    rig.library.memory.preferenceValues[IPreferences::ConfirmStore] = true;
    rig.select({1, 2, 3});
    rig.library.during = [](int) { QVERIFY(!progressDialog()->isVisible()); };
    const Answers::Answer slowly = [](QMessageBox *box) {
        QTest::qWait(400);
        QCOMPARE(QApplication::activeModalWidget(), box);
        QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
    };
    Answers operatorSays({slowly, slowly, slowly});
    rig.list->Store();
    QCOMPARE(rig.library.calls.size(), 3);
}

void TestCListWidge::updatesAreSuspendedUntilSomethingIsAsked()
{
    ListRig rig("ddd");
    rig.library.memory.preferenceValues[IPreferences::ConfirmStore] = true;
    rig.row(1)->hasMemory = false;
    rig.select({1, 2, 3});
    QList<bool> updates;
    rig.library.during = [&](int) { updates << rig.list->updatesEnabled(); };
    const Answers::Answer look = [&](QMessageBox *box) {
        updates << rig.list->updatesEnabled();
        QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
    };
    Answers operatorSays({look, look});
    rig.list->Store();
    QCOMPARE(updates, QList<bool>({false, true, true, true, true}));
    QVERIFY(rig.list->updatesEnabled());

    rig.library.memory.preferenceValues.clear();
    updates.clear();
    rig.list->Store();
    QCOMPARE(updates, QList<bool>({false, false, false}));
    QVERIFY(rig.list->updatesEnabled());
}

void TestCListWidge::commandsForgetUndoOfBothListsFirst_data()
{
    Table<Command, bool>()
        .row("store", store, true)
        .row("recall", recall, true)
        .row("clear", clear, true)
        .row("protect", protect, true)
        .row("clear all", &CListWidge::ClearAll, false);
}

void TestCListWidge::commandsForgetUndoOfBothListsFirst()
{
    const auto [command, forgets] = Table<Command, bool>::fetch();
    ListRig rig("ddh");
    ListRig other("d");
    rig.list->setOtherList(other.list);
    QString error;
    rig.row(3)->store(error);
    other.row(1)->store(error);
    rig.library.take();
    rig.select({1});
    Answers operatorSays({Answers::yes()});
    (rig.list->*command)();
    QCOMPARE(rig.library.calls.value(0) == "forget 3", forgets);
    QCOMPARE(other.library.calls.contains("forget 1"), forgets);
    rig.list->setOtherList(nullptr);
    other.row(1)->store(error);
    rig.list->goClearAllUndo(true);
    QVERIFY(other.row(1)->hasUndo());
}

void TestCListWidge::undoTakesBackVisibleRowsTheOtherListFirst()
{
    ListRig rig("d-h");
    ListRig other("-");
    rig.list->setOtherList(other.list);
    other.list->setOtherList(rig.list);
    QSignalSpy told(rig.list, qOverload<>(&CListWidge::selectionChanged));
    QStringList order;
    rig.library.during = [&](int slot) { order << QString("own %1").arg(slot); };
    other.library.during = [&](int slot) { order << QString("other %1").arg(slot); };
    rig.list->Undo(true);
    QCOMPARE(order, QStringList({"other 1", "own 1", "own 2"}));
    QCOMPARE(told.size(), 1);
    order.clear();
    rig.list->Undo(false);
    QCOMPARE(order, QStringList({"own 1", "own 2"}));
    QCOMPARE(told.size(), 1);
}

void TestCListWidge::undoIsAvailableWhileAnyRowHasIt()
{
    ListRig rig("dd");
    ListRig other("d");
    rig.list->setOtherList(other.list);
    QVERIFY(!rig.list->isUndoAvailable(true));
    QString error;
    other.row(1)->store(error);
    QVERIFY(rig.list->isUndoAvailable(true));
    QVERIFY(!rig.list->isUndoAvailable(false));
    rig.row(2)->store(error);
    QVERIFY(rig.list->isUndoAvailable(false));
    rig.list->Undo(true);
    QVERIFY(!rig.list->isUndoAvailable(true));
}

void TestCListWidge::clearAllNeitherAsksNorTells()
{
    ListRig rig("d-pdhr");
    rig.library.errors[4] = "broken";
    rig.select({1});
    QSignalSpy told(rig.list, qOverload<>(&CListWidge::selectionChanged));
    Answers operatorSays;
    rig.library.during = [](int) { QVERIFY(!progressDialog()); };
    rig.list->ClearAll();
    QCOMPARE(rig.library.calls, QStringList({"clear 1", "clear 4", "clear 6"}));
    QCOMPARE(operatorSays.seen, QStringList());
    QCOMPARE(told.size(), 0);
}

void TestCListWidge::headingsAreSkippedButCounted()
{
    ListRig rig("d");
    auto *heading = new QTreeWidgetItem(rig.list, QStringList("Factory"));
    auto *below = rig.makeRow(2, 'd');
    heading->addChild(below);
    heading->setExpanded(true);
    rig.list->selectAll();
    int total = 0;
    rig.library.during = [&](int) { total = progressDialog()->maximum(); };
    rig.list->Store();
    QCOMPARE(total, 4);
    QCOMPARE(rig.library.take().size(), 2);
    // A row is not visible while its heading is hidden.
    heading->setHidden(true);
    rig.library.during = {};
    rig.list->ClearAll();
    QCOMPARE(rig.library.take(), QStringList("clear 1"));
}

void TestCListWidge::otherCommandsAreIgnoredMeanwhile()
{
    ListRig rig("dd");
    rig.library.memory.preferenceValues[IPreferences::ConfirmStore] = true;
    rig.select({1});
    QSignalSpy started(rig.list, &CListWidge::commandStarted);
    QSignalSpy finished(rig.list, &CListWidge::commandFinished);
    Answers operatorSays({[&](QMessageBox *box) {
        rig.list->Store();
        rig.list->Recall();
        rig.list->Clear();
        rig.list->ClearAll();
        rig.list->Protect();
        rig.list->Undo(false);
        QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
    }});
    rig.list->Store();
    QCOMPARE(rig.library.calls, QStringList("store 1"));
    QCOMPARE(operatorSays.seen.size(), 1);
    QCOMPARE(started.size(), 1);
    QCOMPARE(finished.size(), 1);
    // And not for longer.
    rig.list->Protect();
    QCOMPARE(rig.library.calls.last(), "protect 1");
}

void TestCListWidge::listTakesTheFocusAtTheEnd()
{
    QWidget window;
    ListRig rig("dd");
    rig.list->setParent(&window);
    QPushButton button(&window);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    for (const Command command : {&CListWidge::Store, &CListWidge::Protect}) {
        button.setFocus();
        rig.select({1, 2});
        (rig.list->*command)();
        QVERIFY(rig.list->hasFocus());
    }
}

QTEST_MAIN(TestCListWidge)
#include "tst_CListWidge.moc"

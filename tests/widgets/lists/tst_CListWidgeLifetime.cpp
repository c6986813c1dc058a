// SPDX-License-Identifier: MIT
// The list, a row or the progress dialog is destroyed while a command waits for the operator.
#include "tests/support/LibraryRig.h"

#include <QDropEvent>
#include <QMimeData>

namespace {

using Command = void (*)(CListWidge &);
using Signal = void (CListWidge::*)();

void store(CListWidge &list)
{
    list.Store();
}

void drop(CListWidge &list)
{
    // Stored onto the second row, from a payload of two rows.
    QMimeData *mime = list.model()->mimeData(list.selectionModel()->selectedRows());
    const QPoint spot = list.visualItemRect(list.topLevelItem(1)).center();
    QDragEnterEvent enter(spot, Qt::CopyAction, mime, Qt::LeftButton, Qt::NoModifier);
    QDropEvent event(spot, Qt::CopyAction, mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(list.viewport(), &enter);
    QApplication::sendEvent(list.viewport(), &event);
    delete mime;
    for (int turn = 0; turn < 20; ++turn)
        QApplication::processEvents();
}

} // namespace

Q_DECLARE_METATYPE(Command)
Q_DECLARE_METATYPE(Signal)

class TestCListWidgeLifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsDestroyedMeanwhileEndsTheCommand_data();
    void whatIsDestroyedMeanwhileEndsTheCommand();
    void whatIsDestroyedDuringProgressEndsTheCommand_data();
    void whatIsDestroyedDuringProgressEndsTheCommand();
    void rowMayLeaveTheListMeanwhile();
    void receiverMayDestroyTheList_data();
    void receiverMayDestroyTheList();
    void referenceOutlivesItsRow();
    void pairedListMayBeDestroyed();
};

void TestCListWidgeLifetime::whatIsDestroyedMeanwhileEndsTheCommand_data()
{
    QTest::addColumn<Command>("command");
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<bool>("fails");
    QTest::addColumn<QString>("what");
    QTest::addColumn<QStringList>("calls");

    const Command recall = [](CListWidge &list) { list.Recall(); };
    const Command clear = [](CListWidge &list) { list.Clear(); };
    const struct
    {
        const char *name;
        Command command;
        QList<int> selected;
        bool fails;
        QStringList calls;
    } places[]{
        {"store's question", store, {1, 2, 3}, false, {}},
        {"store's question, one row", store, {1}, false, {}},
        {"store's error", store, {1, 2, 3}, true, {"store 1"}},
        {"recall's question", recall, {1}, false, {}},
        {"recall's error", recall, {1}, true, {"recall 1"}},
        {"clear's question", clear, {1, 2, 3}, false, {}},
        {"a drop's question", drop, {1, 4}, false, {}},
        {"a drop's error", drop, {1, 4}, true, {"copy Scene 1 to 2"}},
    };
    for (const auto &place : places) {
        for (const QString what : {"list", "row", "all rows"}) {
            QTest::addRow("%s: %s", place.name, qPrintable(what))
                << place.command << place.selected << place.fails << what << place.calls;
        }
        if (place.selected.size() > 1 && place.command == &store) {
            QTest::addRow("%s: dialog", place.name)
                << place.command << place.selected << place.fails << "dialog" << place.calls;
        }
    }
}

void TestCListWidgeLifetime::whatIsDestroyedMeanwhileEndsTheCommand()
{
    QFETCH(Command, command);
    QFETCH(QList<int>, selected);
    QFETCH(bool, fails);
    QFETCH(QString, what);
    ListRig rig("dddd");
    rig.show();
    const auto preferences = {IPreferences::ConfirmStore, IPreferences::ConfirmRecall};
    for (const int number : preferences)
        rig.library.memory.preferenceValues[number] = !fails;
    if (fails)
        rig.library.errors = {{1, "broken"}, {2, "broken"}};
    rig.select(selected);
    const bool isDrop = command == &drop;
    Answers operatorSays({[&](QMessageBox *box) {
        const QPointer<QMessageBox> held(box);
        if (what == "list")
            delete rig.list;
        else if (what == "row")
            delete rig.row(isDrop ? 2 : 1);
        else if (what == "all rows")
            rig.list->clear();
        else
            delete progressDialog();
        if (held)
            QTest::mouseClick(held->button(fails ? QMessageBox::Ok : QMessageBox::Yes),
                              Qt::LeftButton);
    }});
    command(*rig.list);
    // The clear asks before it looks at the rows: those that are left are cleared.
    const bool clearsTheRest =
        operatorSays.seen.value(0).contains("clear selection") && what == "row";
    const QStringList rest{"clear 2", "clear 3"};
    QFETCH(QStringList, calls);
    QCOMPARE(rig.library.calls, clearsTheRest ? rest : calls);
    QCOMPARE(operatorSays.seen.size(), 1);
    QVERIFY(!progressDialog());
    if (rig.list)
        QVERIFY(rig.list->updatesEnabled());
}

void TestCListWidgeLifetime::whatIsDestroyedDuringProgressEndsTheCommand_data()
{
    QTest::addColumn<QString>("what");
    for (const char *what : {"list", "dialog", "row"})
        QTest::newRow(what) << what;
}

void TestCListWidgeLifetime::whatIsDestroyedDuringProgressEndsTheCommand()
{
    QFETCH(QString, what);
    ListRig rig(QString("d").repeated(20));
    rig.list->selectAll();
    rig.library.during = [](int) { QTest::qSleep(150); };
    qsizetype callsThen = -1;
    QTimer operatorSays;
    connect(&operatorSays, &QTimer::timeout, &operatorSays, [&] {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog || callsThen >= 0)
            return;
        callsThen = rig.library.calls.size();
        if (what == "list")
            delete rig.list;
        else if (what == "dialog")
            delete dialog;
        else
            delete rig.row(int(callsThen) + 1); // the one that is announced
    });
    operatorSays.start(1);
    rig.list->Store();
    QVERIFY(callsThen > 0);
    QCOMPARE(rig.library.calls.size(), callsThen);
    QVERIFY(!progressDialog());
    if (rig.list)
        QVERIFY(rig.list->updatesEnabled());
}

void TestCListWidgeLifetime::rowMayLeaveTheListMeanwhile()
{
    ListRig rig("ddd");
    rig.select({1, 2, 3});
    std::unique_ptr<QTreeWidgetItem> taken;
    rig.library.during = [&](int) {
        if (!taken)
            taken.reset(rig.list->takeTopLevelItem(1));
    };
    rig.list->Store();
    QCOMPARE(rig.library.calls, QStringList("store 1"));
}

void TestCListWidgeLifetime::receiverMayDestroyTheList_data()
{
    QTest::addColumn<Signal>("signal");
    QTest::addColumn<Command>("command");
    const struct
    {
        const char *name;
        Command run;
    } commands[]{
        {"store", store},
        {"recall", [](CListWidge &list) { list.Recall(); }},
        {"protect", [](CListWidge &list) { list.Protect(); }},
        {"clear all", [](CListWidge &list) { list.ClearAll(); }},
        {"undo", [](CListWidge &list) { list.Undo(true); }},
    };
    const struct
    {
        const char *name;
        Signal signal;
    } emissions[]{
        {"started", &CListWidge::commandStarted},
        {"finished", &CListWidge::commandFinished},
        {"selection", qOverload<>(&CListWidge::selectionChanged)},
    };
    for (const auto &command : commands) {
        for (const auto &emission : emissions)
            QTest::addRow("%s: %s", command.name, emission.name) << emission.signal << command.run;
    }
}

void TestCListWidgeLifetime::receiverMayDestroyTheList()
{
    QFETCH(Signal, signal);
    QFETCH(Command, command);
    ListRig rig("dd");
    rig.select({1, 2});
    connect(rig.list, signal, this, [&] { delete rig.list; });
    command(*rig.list);
    QVERIFY(rig.library.calls.size() <= 2);
}

void TestCListWidgeLifetime::referenceOutlivesItsRow()
{
    ListRig rig("dd");
    QVERIFY(!CListWidgeItem::Reference().get());
    const auto first = rig.row(1)->reference();
    const auto again = rig.row(1)->reference();
    const auto second = rig.row(2)->reference();
    QCOMPARE(first.get(), rig.row(1));
    delete rig.row(1);
    QVERIFY(!first.get() && !again.get());
    QCOMPARE(second.get(), rig.row(2));
    delete rig.list;
    QVERIFY(!second.get());
}

void TestCListWidgeLifetime::pairedListMayBeDestroyed()
{
    ListRig rig("d");
    ListRig other("d");
    rig.list->setOtherList(other.list);
    rig.select({1});
    // By the other list's own work, between the two.
    other.library.during = [&](int) { delete rig.list; };
    rig.list->Undo(true);
    QVERIFY(rig.library.calls.isEmpty());

    ListRig left("d");
    left.list->setOtherList(other.list);
    delete other.list;
    QVERIFY(!left.list->otherList());
    left.select({1});
    left.list->Store();
    left.list->Undo(true);
    QCOMPARE(left.library.calls, QStringList({"store 1", "undo 1"}));
}

QTEST_MAIN(TestCListWidgeLifetime)
#include "tst_CListWidgeLifetime.moc"

// SPDX-License-Identifier: MIT
// Columns, sorting, selecting, renaming, and what assistive tools hear.
#include "tests/support/LibraryRig.h"
#include "tests/support/Table.h"

#include <QAccessible>
#include <QLineEdit>
#include <QSignalSpy>

class TestCListWidgeView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnsShowTheSlot();
    void lockIsDrawn();
    void numbersSortAsNumbers_data();
    void numbersSortAsNumbers();
    void rowsAreSpoken_data();
    void rowsAreSpoken();
    void accessibleCellsSayTheRow();
    void titleIsEditedInPlace_data();
    void titleIsEditedInPlace();
    void titleIsNotEditable_data();
    void titleIsNotEditable();
    void failedRenamingIsTold();
    void renamingGoesByTheRowNotThePlace();
    void deleteAsksOnlyWhenThereIsSomethingToClear();
    void returnRecallsNothing();
    void rowMayKeepItsClicks();
    void selectionIsToldOnce();
};

namespace {

QString cell(const ListRig &rig, int slot, int column)
{
    return rig.row(slot)->text(column);
}

void doubleClick(CListWidge *list, const QPoint &position)
{
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, position);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, position);
}

QPoint centre(const ListRig &rig, int slot, int column)
{
    const QModelIndex row =
        rig.list->model()->index(rig.list->indexOfTopLevelItem(rig.row(slot)), column);
    return rig.list->visualRect(row).center();
}

} // namespace

void TestCListWidgeView::columnsShowTheSlot()
{
    ListRig rig("d-");
    rig.row(1)->contents.stored = QDateTime(QDate(2026, 3, 12), QTime(19, 30));
    QCOMPARE(cell(rig, 1, CListWidge::NumberColumn), "#001");
    QCOMPARE(cell(rig, 1, CListWidge::TitleColumn), "Scene 1");
    QCOMPARE(cell(rig, 1, CListWidge::ProtectedColumn), "");
    QCOMPARE(cell(rig, 1, CListWidge::StoredColumn), "12 Mar 2026 19:30:00");
    QCOMPARE(cell(rig, 2, CListWidge::NumberColumn), "#002");
    QCOMPARE(cell(rig, 2, CListWidge::StoredColumn), "");
    QCOMPARE(rig.row(2)->foreground(0).color(),
             rig.list->palette().color(QPalette::PlaceholderText));
    QCOMPARE(rig.row(1)->foreground(0).style(), Qt::NoBrush);
}

void TestCListWidgeView::lockIsDrawn()
{
    ListRig rig("ddprq"); // the first is under the pointer
    rig.show();
    const QImage image = rig.list->viewport()->grab().toImage();
    const auto ink = [&](int slot) {
        const QModelIndex index = rig.list->model()->index(slot - 1, CListWidge::ProtectedColumn);
        const QRect rect = rig.list->visualRect(index).adjusted(2, 2, -2, -2);
        int pixels = 0;
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            for (int x = rect.left(); x <= rect.right(); ++x)
                pixels += image.pixelColor(x, y) != image.pixelColor(rect.topLeft());
        }
        return pixels;
    };
    QCOMPARE(ink(2), 0);
    QVERIFY(ink(3) > 40);
    // Read only is an outline.
    QVERIFY(ink(4) > 20 && ink(4) < ink(3));
    QCOMPARE(ink(5), ink(3));
}

void TestCListWidgeView::numbersSortAsNumbers_data()
{
    Table<int, Qt::SortOrder, QList<int>>()
        .row("number", int(CListWidge::NumberColumn), Qt::AscendingOrder, {2, 9, 10, 1000})
        .row("number, descending", int(CListWidge::NumberColumn), Qt::DescendingOrder,
             {1000, 10, 9, 2})
        .row("title, equal ones by number", int(CListWidge::TitleColumn), Qt::AscendingOrder,
             {1000, 2, 9, 10})
        .row("protected first", int(CListWidge::ProtectedColumn), Qt::AscendingOrder,
             {10, 2, 9, 1000})
        .row("time", int(CListWidge::StoredColumn), Qt::AscendingOrder, {10, 1000, 9, 2});
}

void TestCListWidgeView::numbersSortAsNumbers()
{
    const auto [column, order, inOrder] = Table<int, Qt::SortOrder, QList<int>>::fetch();
    ListRig rig("");
    const QDateTime noon(QDate(2026, 1, 1), QTime(12, 0));
    const struct
    {
        int slot;
        QChar state;
        const char *title;
        int minutes;
    } rows[]{
        {1000, 'd', "aria", 2}, {9, 'd', "Chorus", 3}, {2, 'd', "chorus", 4}, {10, 'p', "duo", 1}};
    for (const auto &each : rows) {
        LibraryRow *row = rig.makeRow(each.slot, each.state);
        row->contents.title = each.title;
        row->contents.stored = noon.addSecs(each.minutes * 60);
        rig.list->addTopLevelItem(row);
    }
    rig.list->sortByColumn(column, order);
    rig.list->selectAll();
    QCOMPARE(rig.selected(), inOrder);
}

void TestCListWidgeView::rowsAreSpoken_data()
{
    Table<QString, QString>()
        .row("data", "d", "#001 Scene 1")
        .row("empty", "-", "#001, empty")
        .row("protected", "p", "#001 Scene 1, protected")
        .row("read only", "e", "#001, empty, read only");
}

void TestCListWidgeView::rowsAreSpoken()
{
    const auto [state, spoken] = Table<QString, QString>::fetch();
    ListRig rig(state);
    QCOMPARE(rig.row(1)->spokenText(), spoken);
}

void TestCListWidgeView::accessibleCellsSayTheRow()
{
    ListRig rig("dp");
    rig.show();
    QAccessibleInterface *list = QAccessible::queryAccessibleInterface(rig.list);
    QVERIFY(list && list->tableInterface());
    QAccessibleInterface *cell = list->tableInterface()->cellAt(1, CListWidge::TitleColumn);
    QVERIFY(cell);
    QCOMPARE(cell->text(QAccessible::Name), "#002 Scene 2, protected");
}

void TestCListWidgeView::titleIsEditedInPlace_data()
{
    // column: that is current, or double-clicked
    Table<int, bool, QString, Qt::Key, QStringList>()
        .row("F2", CListWidge::TitleColumn, true, "Encore", Qt::Key_Return, {"title Encore at 1"})
        .row("F2 anywhere in the row", CListWidge::NumberColumn, true, "Encore", Qt::Key_Return,
             {"title Encore at 1"})
        .row("double click", CListWidge::TitleColumn, false, "Encore", Qt::Key_Return,
             {"title Encore at 1"})
        .row("longer than a title may be", CListWidge::TitleColumn, true, "Encore and more",
             Qt::Key_Return, {"title Encore and m at 1"})
        .row("the same", CListWidge::TitleColumn, true, "Scene 1", Qt::Key_Return, {})
        .row("Escape", CListWidge::TitleColumn, true, "Encore", Qt::Key_Escape, {});
}

void TestCListWidgeView::titleIsEditedInPlace()
{
    const auto [column, byKey, typed, endedBy, calls] =
        Table<int, bool, QString, Qt::Key, QStringList>::fetch();
    ListRig rig("dd");
    rig.show();
    if (byKey) {
        rig.list->setCurrentItem(rig.row(1), column);
        QTest::keyClick(rig.list->viewport(), Qt::Key_F2);
    } else {
        doubleClick(rig.list, centre(rig, 1, column));
    }
    auto *editor = rig.list->findChild<QLineEdit *>();
    QVERIFY(editor);
    QCOMPARE(editor->text(), "Scene 1");
    editor->selectAll();
    QTest::keyClicks(editor, typed);
    QTest::keyClick(editor, endedBy);
    // Return is handled in a later turn of the event loop, and so is the renaming.
    QTRY_VERIFY(!rig.list->findChild<QLineEdit *>());
    QApplication::processEvents();
    QCOMPARE(rig.library.calls, calls);
}

void TestCListWidgeView::titleIsNotEditable_data()
{
    Table<QString, int, int>()
        .row("protected", "p", int(CListWidge::TitleColumn), 12)
        .row("read only", "r", int(CListWidge::TitleColumn), 12)
        .row("empty", "-", int(CListWidge::TitleColumn), 12)
        .row("library without renaming", "d", int(CListWidge::TitleColumn), 0)
        .row("double click elsewhere", "d", int(CListWidge::NumberColumn), 12);
}

void TestCListWidgeView::titleIsNotEditable()
{
    const auto [state, column, limit] = Table<QString, int, int>::fetch();
    ListRig rig(state);
    rig.library.titleLimit = limit;
    rig.show();
    doubleClick(rig.list, centre(rig, 1, column));
    QVERIFY(!rig.list->findChild<QLineEdit *>());
    if (column != CListWidge::TitleColumn)
        return;
    rig.list->setCurrentItem(rig.row(1));
    QTest::keyClick(rig.list->viewport(), Qt::Key_F2);
    QVERIFY(!rig.list->findChild<QLineEdit *>());
}

void TestCListWidgeView::failedRenamingIsTold()
{
    ListRig rig("d");
    rig.show();
    rig.library.errors[1] = "disk full";
    rig.list->setCurrentItem(rig.row(1));
    QTest::keyClick(rig.list->viewport(), Qt::Key_F2);
    auto *editor = rig.list->findChild<QLineEdit *>();
    QVERIFY(editor);
    QTest::keyClicks(editor, "x");
    Answers operatorSays({Answers::ok()});
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(operatorSays.seen, QStringList("Error: disk full [OK*]"));
    QCOMPARE(rig.row(1)->titleText(), "Scene 1");
}

/// The library may be re-sorted or protected before the editor's text arrives.
void TestCListWidgeView::renamingGoesByTheRowNotThePlace()
{
    for (const QString change : {"sorted", "protected", "destroyed"}) {
        ListRig rig("ddd");
        rig.show();
        rig.list->setCurrentItem(rig.row(1));
        QTest::keyClick(rig.list->viewport(), Qt::Key_F2);
        auto *editor = rig.list->findChild<QLineEdit *>();
        QVERIFY(editor);
        QTest::keyClicks(editor, "Finale");
        QTest::keyClick(editor, Qt::Key_Return);
        if (change == "sorted")
            rig.list->sortByColumn(CListWidge::NumberColumn, Qt::DescendingOrder);
        else if (change == "protected")
            rig.row(1)->contents.isProtected = true;
        else
            delete rig.row(1);
        QTRY_VERIFY(!rig.list->findChild<QLineEdit *>());
        QApplication::processEvents();
        QCOMPARE(rig.library.calls,
                 change == "sorted" ? QStringList("title Finale at 1") : QStringList());
    }
}

void TestCListWidgeView::deleteAsksOnlyWhenThereIsSomethingToClear()
{
    ListRig rig("dp");
    rig.show();
    Answers operatorSays({Answers::yes()});
    rig.select({2});
    QTest::keyClick(rig.list->viewport(), Qt::Key_Delete);
    QCOMPARE(operatorSays.seen.size(), 0);
    rig.select({1});
    QTest::keyClick(rig.list->viewport(), Qt::Key_Delete);
    QCOMPARE(operatorSays.seen.size(), 1);
    QCOMPARE(rig.library.calls, QStringList("clear 1"));
}

void TestCListWidgeView::returnRecallsNothing()
{
    ListRig rig("d");
    rig.show();
    rig.list->setCurrentItem(rig.row(1));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
        QTest::keyClick(rig.list->viewport(), key);
    QApplication::processEvents();
    QCOMPARE(rig.library.calls, QStringList());
    QVERIFY(!rig.list->findChild<QLineEdit *>());
}

void TestCListWidgeView::rowMayKeepItsClicks()
{
    ListRig rig("dd");
    rig.show();
    rig.row(2)->swallowsClicks = true;
    QTest::mouseClick(rig.list->viewport(), Qt::LeftButton, {},
                      centre(rig, 1, CListWidge::TitleColumn));
    QCOMPARE(rig.selected(), QList<int>{1});
    QCOMPARE(rig.row(1)->lastClicked, int(CListWidge::TitleColumn));
    QTest::mouseClick(rig.list->viewport(), Qt::LeftButton, {},
                      centre(rig, 2, CListWidge::ProtectedColumn));
    QCOMPARE(rig.row(2)->lastClicked, int(CListWidge::ProtectedColumn));
    QCOMPARE(rig.selected(), QList<int>{1});
}

void TestCListWidgeView::selectionIsToldOnce()
{
    ListRig rig("dddd");
    QSignalSpy told(rig.list, qOverload<>(&CListWidge::selectionChanged));
    rig.list->selectAll();
    QCOMPARE(told.size(), 1);
    rig.list->clearSelection();
    QCOMPARE(told.size(), 2);
}

QTEST_MAIN(TestCListWidgeView)
#include "tst_CListWidgeView.moc"

// SPDX-License-Identifier: MIT
// Dragging rows within a list and between two, through the checks.
#include "tests/support/LibraryRig.h"
#include "tests/support/Table.h"

#include <QDropEvent>
#include <QMimeData>

#include <memory>

namespace {

/// A list and its pair, and drags of their rows by events.
struct DragRig : ListRig
{
    explicit DragRig(const QString &states, const QString &otherStates = "d")
        : ListRig(states), other(otherStates)
    {
        list->setOtherList(other.list);
        other.list->setOtherList(list);
        list->setRowsMovable(true);
        show();
        other.show();
        for (int slot = 1; slot <= states.size(); ++slot)
            row(slot)->mover = [this](int from, int to) { shift(from, to); };
    }

    enum Place { Onto, Above, Below };

    /// What is dragged when these rows are.
    static std::unique_ptr<QMimeData> pick(ListRig &from, const QList<int> &dragged)
    {
        from.select(dragged);
        return std::unique_ptr<QMimeData>(
            from.list->model()->mimeData(from.list->selectionModel()->selectedIndexes()));
    }
    QPoint spot(int slot, Place place) const
    {
        const QRect rect = list->visualItemRect(row(slot));
        return {rect.center().x(), place == Onto    ? rect.center().y()
                                   : place == Above ? rect.top() + 1
                                                    : rect.bottom() - 1};
    }
    /// Whether the list takes the drag there, and as what.
    Qt::DropAction hover(const QMimeData *mime, const QPoint &position) const
    {
        QDragEnterEvent enter(position, Qt::CopyAction | Qt::MoveAction, mime, Qt::LeftButton, {});
        QApplication::sendEvent(list->viewport(), &enter);
        if (!enter.isAccepted())
            return Qt::IgnoreAction;
        QDragMoveEvent move(position, Qt::CopyAction | Qt::MoveAction, mime, Qt::LeftButton, {});
        QApplication::sendEvent(list->viewport(), &move);
        return move.isAccepted() ? move.dropAction() : Qt::IgnoreAction;
    }
    /// Drops, and lets the questions be asked.
    bool drop(const QMimeData *mime, const QPoint &position) const
    {
        hover(mime, position);
        QDropEvent event(position, Qt::CopyAction | Qt::MoveAction, mime, Qt::LeftButton, {});
        QApplication::sendEvent(list->viewport(), &event);
        QApplication::processEvents();
        return event.isAccepted();
    }
    bool drop(ListRig &from, const QList<int> &dragged, int slot, Place place = Onto)
    {
        const auto mime = pick(from, dragged);
        return mime && drop(mime.get(), spot(slot, place));
    }

    /// What a library does for moveTo().
    void shift(int from, int to)
    {
        const LibraryRow::Contents moved = row(from)->contents;
        for (int slot = from; slot != to; slot += to > from ? 1 : -1)
            row(slot)->contents = row(slot + (to > from ? 1 : -1))->contents;
        row(to)->contents = moved;
    }
    QStringList titles() const
    {
        QStringList all;
        for (int slot = 1; slot <= list->topLevelItemCount(); ++slot)
            all << row(slot)->contents.title.right(1);
        return all;
    }

    ListRig other;
};

} // namespace

Q_DECLARE_METATYPE(DragRig::Place)

class TestCListWidgeDrops : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void storeDropAsksAndCopies_data();
    void storeDropAsksAndCopies();
    void insertDropMoves_data();
    void insertDropMoves();
    void insertNeedsRowsThatFollowEachOther();
    void insertIsOnlyWhereItMeansSomething();
    void failedMoveIsToldAndStops();
    void failedCopyIsToldAndGoesOn();
    void checksAnswerByThemselves();
    void subclassMayNarrow();
    void dragOfOthersIsIgnored_data();
    void dragOfOthersIsIgnored();
    void dragCutAnywhereIsNoDrop();
    void rowsWithoutContentsAreNotDragged();
    void copyIsOfWhatWasDragged();
    void dropIsUndone();
    void rowDestroyedBeforeTheQuestionEndsTheDrop();
};

void TestCListWidgeDrops::storeDropAsksAndCopies_data()
{
    // states: upper case: the preference to ask is set
    Table<QString, QList<int>, int, bool, QString, QStringList>()
        .row("one row", "dd", {1}, 2, true, "", {"copy Scene 1 to 2"})
        .row("several, from the target down", "ddd", {1, 3}, 2, true, "",
             {"copy Scene 1 to 2", "copy Scene 3 to 3"})
        .row("more rows than there are", "ddd", {1, 2}, 3, true, "", {"copy Scene 1 to 3"})
        .row("asks for one", "DD", {1}, 2, true, "Confirmation: Store to Scene 2 #002? [Yes No*]",
             {"copy Scene 1 to 2"})
        .row("asks for one, no", "DD", {1}, 2, false,
             "Confirmation: Store to Scene 2 #002? [Yes No*]", {})
        .row("asks for several", "DDD", {1, 3}, 2, true,
             "Confirmation: Store to multiple locations [Yes No*]",
             {"copy Scene 1 to 2", "copy Scene 3 to 3"})
        .row("asks for too many", "DDD", {1, 2}, 3, true,
             "Confirmation: Too many rows are selected. \nStore anyway? [Yes No*]",
             {"copy Scene 1 to 3"})
        .row("asks for too many, no", "DDD", {1, 2}, 3, false,
             "Confirmation: Too many rows are selected. \nStore anyway? [Yes No*]", {})
        .row("onto a protected row", "dp", {1}, 2, true, "Error: (2) Is Protected [OK*]", {})
        .row("a protected row farther down", "d-p-", {1, 4}, 2, true,
             "Error: (3) Is Protected [OK*]", {})
        .row("onto a read only row", "de", {1}, 2, true, "Error: (2) Is Read only [OK*]", {})
        .row("the first obstacle counts", "d-epd", {1, 5}, 2, true, "Error: (3) Is Read only [OK*]",
             {})
        .row("onto one that is both", "dq", {1}, 2, true,
             "Error: (2) Is Read only or Protected [OK*]", {})
        .row("a protected row out of reach", "d-p", {1}, 2, true, "", {"copy Scene 1 to 2"})
        .row("an empty row among them", "d-d-", {1, 2}, 3, true, "", {"copy Scene 1 to 3"});
}

void TestCListWidgeDrops::storeDropAsksAndCopies()
{
    const auto [states, dragged, target, answer, box, calls] =
        Table<QString, QList<int>, int, bool, QString, QStringList>::fetch();
    // From the other list as within the list.
    for (const bool within : {true, false}) {
        DragRig rig(states.toLower(), states.toLower());
        rig.library.memory.preferenceValues[IPreferences::ConfirmStore] = states.contains('D');
        Answers operatorSays({[&](QMessageBox *shown) {
            const auto yes = shown->button(QMessageBox::Yes);
            QTest::mouseClick(
                yes && answer ? yes : shown->button(yes ? QMessageBox::No : QMessageBox::Ok),
                Qt::LeftButton);
        }});
        ListRig &from = within ? static_cast<ListRig &>(rig) : rig.other;
        QVERIFY(rig.drop(from, dragged, target, DragRig::Onto)
                || (within && dragged.contains(target)));
        QTRY_COMPARE(operatorSays.seen.join('|'), box);
        QCOMPARE(rig.library.calls, calls);
        QVERIFY(rig.other.library.calls.isEmpty());
        // The rows stored are selected.
        if (!rig.library.calls.isEmpty())
            QVERIFY(rig.row(target)->isSelected());
    }
}

void TestCListWidgeDrops::insertDropMoves_data()
{
    Table<QList<int>, int, DragRig::Place, QString, QList<int>>()
        .row("up", {4}, 2, DragRig::Above, "14235", {2})
        .row("down", {2}, 4, DragRig::Below, "13425", {4})
        .row("to the top", {5}, 1, DragRig::Above, "51234", {1})
        .row("to the end", {1}, 5, DragRig::Below, "23451", {5})
        .row("several up", {3, 4}, 1, DragRig::Above, "34125", {1, 2})
        .row("several down", {1, 2}, 4, DragRig::Below, "34125", {3, 4})
        .row("several to the end", {1, 2, 3}, 5, DragRig::Below, "45123", {3, 4, 5})
        .row("to where they are", {2, 3}, 4, DragRig::Above, "12345", {2, 3});
}

void TestCListWidgeDrops::insertDropMoves()
{
    const auto [dragged, slot, place, titles, selected] =
        Table<QList<int>, int, DragRig::Place, QString, QList<int>>::fetch();
    DragRig rig("ddddd");
    // Moving overwrites nothing: it is not asked about, and protection moves along.
    rig.library.memory.preferenceValues[IPreferences::ConfirmStore] = true;
    rig.row(3)->contents.isProtected = true;
    Answers operatorSays;
    QVERIFY(rig.drop(rig, dragged, slot, place));
    QCOMPARE(rig.titles().join(""), titles);
    QCOMPARE(rig.selected(), selected);
    for (int each = 1; each <= 5; ++each) {
        QCOMPARE(rig.row(each)->isProtected(), rig.row(each)->titleText() == "Scene 3");
    }
    QVERIFY(operatorSays.seen.isEmpty());
}

void TestCListWidgeDrops::insertNeedsRowsThatFollowEachOther()
{
    DragRig rig("dddddd");
    Answers operatorSays({Answers::ok()});
    QVERIFY(rig.drop(rig, {3, 5}, 1, DragRig::Above));
    QTRY_COMPARE(operatorSays.seen,
                 QStringList("Error: Unsupported Operation: Separated rows cannot be inserted. "
                             "[OK*]"));
    QCOMPARE(rig.library.calls, QStringList());
}

void TestCListWidgeDrops::insertIsOnlyWhereItMeansSomething()
{
    DragRig rig("dddd", "dd");
    const auto own = DragRig::pick(rig, {2});
    const auto others = DragRig::pick(rig.other, {1});
    rig.select({2});
    QCOMPARE(rig.hover(own.get(), rig.spot(4, DragRig::Above)), Qt::MoveAction);
    QCOMPARE(rig.hover(own.get(), rig.spot(4, DragRig::Onto)), Qt::CopyAction);
    // Back on itself, and below all rows.
    QCOMPARE(rig.hover(own.get(), rig.spot(2, DragRig::Onto)), Qt::IgnoreAction);
    QCOMPARE(rig.hover(own.get(), {50, 290}), Qt::IgnoreAction);
    // Rows of the other list are copied, wherever they are dropped on a row.
    QCOMPARE(rig.hover(others.get(), rig.spot(4, DragRig::Above)), Qt::CopyAction);
    rig.list->sortByColumn(CListWidge::TitleColumn, Qt::AscendingOrder);
    QCOMPARE(rig.hover(own.get(), rig.spot(4, DragRig::Above)), Qt::CopyAction);
    rig.list->sortByColumn(CListWidge::NumberColumn, Qt::DescendingOrder);
    QCOMPARE(rig.hover(own.get(), rig.spot(4, DragRig::Above)), Qt::CopyAction);
    rig.list->sortByColumn(CListWidge::NumberColumn, Qt::AscendingOrder);
    rig.list->setRowsMovable(false);
    QCOMPARE(rig.hover(own.get(), rig.spot(4, DragRig::Above)), Qt::CopyAction);
}

void TestCListWidgeDrops::failedMoveIsToldAndStops()
{
    DragRig rig("dddd");
    rig.library.errors[1] = "slot 4 is read only";
    Answers operatorSays({Answers::ok()});
    QVERIFY(rig.drop(rig, {1, 2}, 4, DragRig::Below));
    QTRY_COMPARE(operatorSays.seen, QStringList("Error: slot 4 is read only [OK*]"));
    QCOMPARE(rig.library.calls, QStringList("move to 4 from 1"));
}

void TestCListWidgeDrops::failedCopyIsToldAndGoesOn()
{
    DragRig rig("----", "dd");
    rig.library.errors[2] = "broken";
    Answers operatorSays({Answers::ok()});
    QVERIFY(rig.drop(rig.other, {1, 2}, 2));
    QTRY_COMPARE(operatorSays.seen, QStringList("Error: broken [OK*]"));
    QCOMPARE(rig.library.calls, QStringList({"copy Scene 1 to 2", "copy Scene 2 to 3"}));
}

void TestCListWidgeDrops::checksAnswerByThemselves()
{
    DragRig rig("ddp");
    Answers operatorSays({Answers::ok()});
    const CListWidge::Payload headerOnly{"header"};
    CListWidge &list = *rig.list;
    QVERIFY(!list.checkNoProtected(rig.row(1), headerOnly, true));
    QVERIFY(list.checkNoProtected(rig.row(1), headerOnly, false));
    QVERIFY(!list.checkInsertValid(rig.row(1), headerOnly, false));
    QVERIFY(list.checkInsertValid(rig.row(1), headerOnly, true));
    QVERIFY(list.checkDropLocation(nullptr, rig.row(1), headerOnly, true));
    // Without a target there is nothing that could be protected.
    QVERIFY(list.checkNoProtected(nullptr, {"header", "row"}, true));
    QVERIFY(list.getDropConfirmatin(nullptr, nullptr, {"header", "row"}, true));
    QCOMPARE(operatorSays.seen, QStringList());
}

void TestCListWidgeDrops::subclassMayNarrow()
{
    struct Narrow : CListWidge
    {
        bool checkDropLocation(QWidget *source, CListWidgeItem *target, const Payload &payload,
                               bool isStore) override
        {
            asked << QString("%1 %2 %3 %4")
                         .arg(source == this)
                         .arg(target->slotNumber())
                         .arg(payload.size())
                         .arg(isStore);
            return target->slotNumber() != 2;
        }
        QStringList asked;
    };
    DragRig rig("");
    auto *narrow = new Narrow;
    for (int slot = 1; slot <= 3; ++slot)
        narrow->addTopLevelItem(rig.makeRow(slot, 'd'));
    delete std::exchange(rig.list, narrow);
    rig.show();
    rig.drop(rig, {1}, 2);
    rig.drop(rig, {1}, 3);
    QCOMPARE(rig.library.calls, QStringList("copy Scene 1 to 3"));
    QCOMPARE(narrow->asked, QStringList({"1 2 2 1", "1 3 2 1"}));
}

void TestCListWidgeDrops::dragOfOthersIsIgnored_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("bytes");
    const QString ours = CListWidge().model()->mimeTypes().value(0);
    ListRig stranger("d");
    const QByteArray whole = DragRig::pick(stranger, {1})->data(ours);
    QTest::newRow("text") << "text/plain" << QByteArray("#001 Scene 1");
    QTest::newRow("items of other views")
        << "application/x-qabstractitemmodeldatalist" << QByteArray(64, '\0');
    QTest::newRow("nothing") << ours << QByteArray();
    QTest::newRow("noise") << ours << QByteArray(64, 'x');
    QTest::newRow("huge length") << ours << QByteArray("\xff\xff\xff\xf0 abc");
    QTest::newRow("a list that is not the pair") << ours << whole;
    QByteArray otherProgram = whole;
    otherProgram[12] = char(otherProgram[12] ^ 0x55);
    QTest::newRow("another program") << ours << otherProgram;
}

void TestCListWidgeDrops::dragOfOthersIsIgnored()
{
    QFETCH(QString, format);
    QFETCH(QByteArray, bytes);
    DragRig rig("ddd");
    QMimeData mime;
    mime.setData(format, bytes);
    QCOMPARE(rig.hover(&mime, rig.spot(2, DragRig::Onto)), Qt::IgnoreAction);
    QVERIFY(!rig.drop(&mime, rig.spot(2, DragRig::Onto)));
    QCOMPARE(rig.library.calls, QStringList());
}

/// Between any two rows, too.
void TestCListWidgeDrops::dragCutAnywhereIsNoDrop()
{
    DragRig rig("d--", "dd");
    const QString format = rig.list->model()->mimeTypes().value(0);
    const QByteArray whole = DragRig::pick(rig.other, {1, 2})->data(format);
    for (qsizetype length = 0; length < whole.size(); ++length) {
        QMimeData mime;
        mime.setData(format, whole.left(length));
        QVERIFY(!rig.drop(&mime, rig.spot(2, DragRig::Onto)));
    }
    QMimeData mime;
    mime.setData(format, whole);
    QVERIFY(rig.drop(&mime, rig.spot(2, DragRig::Onto)));
    QCOMPARE(rig.library.take(), QStringList({"copy Scene 1 to 2", "copy Scene 2 to 3"}));
}

void TestCListWidgeDrops::rowsWithoutContentsAreNotDragged()
{
    ListRig rig("--d");
    QVERIFY(!DragRig::pick(rig, {1, 2}));
    QVERIFY(DragRig::pick(rig, {1, 3}));
}

void TestCListWidgeDrops::copyIsOfWhatWasDragged()
{
    DragRig rig("ddd");
    const auto mime = DragRig::pick(rig, {1, 2});
    QVERIFY(rig.drop(mime.get(), rig.spot(3, DragRig::Onto)));
    rig.library.take();
    rig.row(1)->contents.title = "changed";
    rig.select({});
    QVERIFY(rig.drop(mime.get(), rig.spot(2, DragRig::Onto)));
    // The second is stored from the drag, not from the row that the first one was stored onto.
    QCOMPARE(rig.library.take(),
             QStringList({"forget 3", "copy Scene 1 to 2", "copy Scene 2 to 3"}));
}

void TestCListWidgeDrops::dropIsUndone()
{
    DragRig rig("d-", "d");
    QVERIFY(rig.drop(rig, {1}, 2));
    QVERIFY(rig.list->isUndoAvailable(true));
    rig.list->Undo(true);
    QVERIFY(!rig.row(2)->hasData());
}

void TestCListWidgeDrops::rowDestroyedBeforeTheQuestionEndsTheDrop()
{
    DragRig rig("ddd");
    const auto mime = DragRig::pick(rig, {1});
    rig.hover(mime.get(), rig.spot(2, DragRig::Onto));
    QDropEvent event(rig.spot(2, DragRig::Onto), Qt::CopyAction, mime.get(), Qt::LeftButton, {});
    QApplication::sendEvent(rig.list->viewport(), &event);
    QVERIFY(event.isAccepted());
    delete rig.row(2);
    QApplication::processEvents();
    QCOMPARE(rig.library.calls, QStringList());
}

QTEST_MAIN(TestCListWidgeDrops)
#include "tst_CListWidgeDrops.moc"

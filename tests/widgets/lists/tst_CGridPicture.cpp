// SPDX-License-Identifier: MIT
// What the grid paints, when, and what it reads for it.
#include "tests/support/GridRig.h"

#include <QScrollArea>

namespace {

/// The regions that a grid is asked to paint.
struct Paints : QObject
{
    explicit Paints(QWidget &widget)
    {
        QApplication::processEvents();
        widget.installEventFilter(this);
    }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            region += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
    QRegion take()
    {
        QApplication::processEvents();
        return std::exchange(region, {});
    }
    QRegion region;
};

QRect cellRect(const CGrid &grid, int row, int column)
{
    QRect cell;
    grid.index2PixelRect({column, row}, cell);
    return cell;
}

} // namespace

class tst_CGridPicture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsWhatTheMemoryHolds_data();
    void showsWhatTheMemoryHolds();
    void drawsInTheRequiredOrder();
    void aLargeBallIsCutToItsCell();
    void disabledCellsFollowTheSizes();
    void readsOnlyForExposedCells_data();
    void readsOnlyForExposedCells();
    void aRefreshPaintsTheCellsThatChanged();
    void aChangeSeenByAnExposeIsNotLost();
    void aClickPaintsItsCellAndTheOneThatItReplaces();
    void theCursorPaintsItsLinesOnly();
    void theKeyboardsCursorIsSeenWithTheFocus();
    void backgroundIsTheParents();
};

void tst_CGridPicture::showsWhatTheMemoryHolds_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<CGrid::GridOrientation>("orientation");
    const char *names[] = {"exclusive", "masks", "fields name channels", "switches"};
    for (int layout = 0; layout < 4; ++layout) {
        QTest::addRow("%s, across", names[layout]) << layout << CGrid::ChannelsAcross;
        QTest::addRow("%s, down", names[layout]) << layout << CGrid::ChannelsDown;
    }
}

void tst_CGridPicture::showsWhatTheMemoryHolds()
{
    QFETCH(int, layout);
    QFETCH(CGrid::GridOrientation, orientation);
    GridRig rig(layout != 0, orientation);
    rig.grid.setMultiMode(layout == 3);
    rig.grid.setDisabledRects(QStringLiteral("(3,3,2,1)"));
    rig.bind();
    if (layout == 2)
        rig.appendFields(5, 20);
    for (int i = 0; i < 8; ++i) {
        rig.value(i).value = layout == 0 ? (i * 5) % 7 : i * 37;
        rig.memory.at(40, 0, i).value = 20 + (i * 3) % 8;
    }
    for (int row = 0; row < 6; ++row) {
        for (int column = 0; column < 8; ++column) {
            const bool shown =
                rig.grid.valueAt(row, column) && !rig.grid.isCellDisabled(row, column);
            QCOMPARE(rig.hasBall(row, column), shown);
        }
    }
}

void tst_CGridPicture::drawsInTheRequiredOrder()
{
    GridRig rig;
    rig.grid.setGridLineColor(Qt::blue);
    rig.grid.setCursorLineColor(Qt::yellow);
    rig.grid.setCursorThickness(5);
    rig.grid.setDisabledRects(QStringLiteral("(2,2,1,1)"));
    rig.bind();
    rig.value(3).value = -1;
    rig.moveTo(rig.centre(2, 3));
    QEnterEvent enter(rig.centre(2, 3), rig.centre(2, 3), rig.centre(2, 3));
    QApplication::sendEvent(&rig.grid, &enter);
    const QImage picture = rig.grid.grab().toImage();
    const auto at = [&](int x, int y) { return picture.pixelColor(x, y); };
    const QRect disabled = cellRect(rig.grid, 2, 2);
    QCOMPARE(at(disabled.left(), disabled.top()), QColor(200, 200, 200));
    QCOMPARE(at(disabled.center().x(), disabled.center().y()),
             QColor(Qt::yellow)); // the bar over it
    QCOMPARE(at(disabled.center().x(), disabled.center().y() + 3), QColor(200, 200, 200));
    QCOMPARE(at(disabled.right() + 1, disabled.center().y()),
             QColor(Qt::blue)); // lines over the bar
    QCOMPARE(at(rig.centre(2, 3).x(), rig.centre(2, 3).y()), QColor(Qt::green)); // balls over all
    QCOMPARE(at(rig.centre(5, 3).x(), rig.grid.cellTop(5)), QColor(Qt::yellow));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&rig.grid, &leave);
    QVERIFY(rig.pixel(2, 0) != QColor(Qt::yellow));
}

void tst_CGridPicture::aLargeBallIsCutToItsCell()
{
    GridRig rig;
    QPixmap large(40, 40);
    large.fill(Qt::black);
    QPainter(&large).fillRect(4, 4, 32, 32, Qt::green);
    rig.grid.setBallImg(large);
    rig.bind();
    rig.value(1).value = 2;
    QVERIFY(rig.hasBall(1, 1));
    const QRect cell = cellRect(rig.grid, 1, 1);
    const QImage picture = rig.grid.grab().toImage();
    QCOMPARE(picture.pixelColor(cell.topLeft()), QColor(Qt::green));
    QCOMPARE(picture.pixelColor(cell.right() + 1, cell.center().y()), rig.grid.gridLineColor());
}

void tst_CGridPicture::disabledCellsFollowTheSizes()
{
    GridRig rig;
    rig.grid.setDisabledRects(QStringLiteral("(1,1,1,1)"));
    rig.grid.setCellWidths(QStringLiteral("40"));
    QCOMPARE(rig.pixel(1, 1), QColor(200, 200, 200));
    QVERIFY(rig.pixel(1, 0) != QColor(200, 200, 200));
}

void tst_CGridPicture::readsOnlyForExposedCells_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<QStringList>("reads"); // for rows 2-3 of columns 1-2
    QTest::newRow("masks") << 1 << QStringList{"readValue 3 7 1", "readValue 3 7 2"};
    QTest::newRow("fields name channels")
        << 2 << QStringList{"readValue 40 0 2", "readValue 40 0 3"};
    QTest::newRow("switches") << 3
                              << QStringList{"readValue 3 10 1", "readValue 3 9 1",
                                             "readValue 3 10 2", "readValue 3 9 2"};
}

void tst_CGridPicture::readsOnlyForExposedCells()
{
    QFETCH(int, layout);
    QFETCH(QStringList, reads);
    GridRig rig;
    rig.grid.setMultiMode(layout == 3);
    rig.bind();
    if (layout == 2)
        rig.appendFields(5);
    rig.show();
    rig.grid.update(cellRect(rig.grid, 2, 1) | cellRect(rig.grid, 3, 2));
    QApplication::processEvents();
    QCOMPARE(rig.reads(), reads);
    // What nobody sees is not read to see whether it has changed, either.
    rig.grid.hide();
    rig.memory.take();
    rig.grid.process(nullptr, CGrid::Refresh, 0);
    rig.grid.onUpdate();
    QCOMPARE(rig.reads(), QStringList());
}

void tst_CGridPicture::aRefreshPaintsTheCellsThatChanged()
{
    GridRig rig;
    rig.bind();
    rig.show();
    rig.grid.process(nullptr, CGrid::Refresh, 0);
    Paints paints(rig.grid);
    rig.value(4).value = 0b1010;
    rig.value(7).value = 0b1;
    rig.grid.process(nullptr, CGrid::Refresh, 3 * 65536 + 4);
    QCOMPARE(paints.take(), QRegion(cellRect(rig.grid, 1, 4)) + cellRect(rig.grid, 3, 4));
    // Key 0 is no cell in particular, though cell 0 is painted.
    rig.grid.process(nullptr, CGrid::Refresh, 0);
    QCOMPARE(paints.take(), QRegion(cellRect(rig.grid, 0, 0)) + cellRect(rig.grid, 0, 7));
    QVERIFY(rig.hasBall(3, 4));
    for (int channel = 0; channel < 8; ++channel)
        rig.value(channel).value = ~rig.value(channel).value;
    rig.grid.process(nullptr, CGrid::Refresh, 0);
    QVERIFY(paints.take().boundingRect().contains(cellRect(rig.grid, 5, 7)));
}

void tst_CGridPicture::aChangeSeenByAnExposeIsNotLost()
{
    GridRig rig;
    rig.bind();
    rig.show();
    rig.grid.process(nullptr, CGrid::Refresh, 0);
    Paints paints(rig.grid);
    // There and back, with an expose in between that sees one of the two cells.
    rig.value(4).value = 0b11;
    rig.grid.update(cellRect(rig.grid, 0, 4));
    paints.take();
    rig.value(4).value = 0;
    rig.grid.process(nullptr, CGrid::Refresh, 0);
    QVERIFY(paints.take().contains(cellRect(rig.grid, 0, 4)));
}

void tst_CGridPicture::aClickPaintsItsCellAndTheOneThatItReplaces()
{
    GridRig rig(false);
    rig.bind();
    rig.value(4).value = 2;
    rig.show();
    rig.grid.process(nullptr, CGrid::Refresh, 0);
    Paints paints(rig.grid);
    rig.grid.connectionChange(4, 4, true);
    QCOMPARE(paints.take(), QRegion(cellRect(rig.grid, 1, 4)) + cellRect(rig.grid, 4, 4));
}

void tst_CGridPicture::theCursorPaintsItsLinesOnly()
{
    GridRig rig;
    rig.show();
    QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QApplication::sendEvent(&rig.grid, &enter);
    Paints paints(rig.grid);
    rig.moveTo(rig.centre(3, 5));
    const QRegion painted = paints.take();
    QVERIFY(painted.contains(QPoint(0, rig.centre(3, 0).y())));
    QVERIFY(painted.contains(QPoint(rig.centre(0, 5).x(), 0)));
    QVERIFY(!painted.intersects(cellRect(rig.grid, 1, 1)));
}

void tst_CGridPicture::theKeyboardsCursorIsSeenWithTheFocus()
{
    GridRig rig;
    rig.show();
    rig.grid.clearFocus();
    const QImage without = rig.grid.grab().toImage();
    rig.grid.setFocus(Qt::TabFocusReason);
    QVERIFY(rig.grid.grab().toImage() != without);
    QTest::keyClick(&rig.grid, Qt::Key_Right);
    const QImage moved = rig.grid.grab().toImage();
    QCOMPARE(moved.pixelColor(cellRect(rig.grid, 0, 1).topLeft()),
             rig.grid.palette().color(QPalette::Highlight));
    rig.moveTo(rig.centre(2, 2));
    QCOMPARE(rig.grid.grab().toImage(), without);
}

void tst_CGridPicture::backgroundIsTheParents()
{
    QWidget parent;
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(10, 20, 30));
    parent.setPalette(palette);
    CGrid grid(&parent);
    QCOMPARE(grid.grab().toImage().pixelColor(3, 3), QColor(10, 20, 30));
}

QTEST_MAIN(tst_CGridPicture)
#include "tst_CGridPicture.moc"

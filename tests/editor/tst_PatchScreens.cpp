// SPDX-License-Identifier: MIT
// The patch screens on the real memory: what the operator patches, reads and takes back.
#include "tests/editor/EditorRig.h"
#include "tests/support/PaintWatch.h"
#include "tests/support/Table.h"
#include "widgets/lists/CGrid.h"
#include "widgets/lists/GridPanel.h"

#include <QMenu>
#include <QUndoStack>

#include <memory>

class TestPatchScreens : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aClickPatchesAndIsOneUndoStep_data();
    void aClickPatchesAndIsOneUndoStep();
    void bulkOperationsAreOneUndoStepEach();
    void aChangeFromElsewhereIsPaintedWithoutBeingAsked_data();
    void aChangeFromElsewhereIsPaintedWithoutBeingAsked();
    void thePairUnderThePointerIsToldInWords();
    void titlesStandWhereTheGridStands();
    void theWheelAndCtrlClickDoNotReset();

private:
    CGrid *grid(const QString &screen, const QString &name)
    {
        for (CGrid *each : m_rig.screen(screen)->findChildren<CGrid *>()) {
            if (each->accessibleName() == name)
                return each;
        }
        return nullptr;
    }
    static GridPanel *panelOf(CGrid *grid)
    {
        return static_cast<GridPanel *>(grid->parentWidget());
    }
    static QPoint centre(const CGrid *grid, int row, int column)
    {
        QRect cell;
        grid->index2PixelRect({column, row}, cell);
        return cell.center();
    }
    QUndoStack &stack() { return *m_rig.memory.undoStack(); }

    EditorRig m_rig;
};

void TestPatchScreens::aClickPatchesAndIsOneUndoStep_data()
{
    // Row 2, column 5.
    Table<QString, QString, QString, int, int, int>()
        .row("input", "input-patch", "Input patch", "kPatchInInput/kPatchIn", 2, 3, 6)
        .row("mixes", "bus-patch", "Mix assign", "kInputAssign/kMixMask", 5, 0, 4)
        .row("outputs", "bus-patch", "Output patch", "kPatchOutOmni/kPatchOut", 2, 51, 54);
}

void TestPatchScreens::aClickPatchesAndIsOneUndoStep()
{
    const auto [screen, name, parameter, element, before, after] =
        Table<QString, QString, QString, int, int, int>::fetch();
    CGrid *patch = grid(screen, name);
    const int steps = stack().count();
    QCOMPARE(m_rig.value(parameter, element), before);
    QTest::mouseClick(patch, Qt::LeftButton, {}, centre(patch, 2, 5));
    QCOMPARE(m_rig.value(parameter, element), after);
    QVERIFY(patch->valueAt(2, 5));
    QCOMPARE(stack().count(), steps + 1);
    QVERIFY(stack().undoText().startsWith(name));
    stack().undo();
    QCOMPARE(m_rig.value(parameter, element), before);
    stack().redo();
    QCOMPARE(m_rig.value(parameter, element), after);
    stack().undo();
    stack().clear();
}

void TestPatchScreens::bulkOperationsAreOneUndoStepEach()
{
    CGrid *patch = grid("bus-patch", "Mix assign");
    const auto mask = [this](int channel) { return m_rig.value("kInputAssign/kMixMask", channel); };
    const std::unique_ptr<QMenu> menu(panelOf(patch)->bulkMenu(3, 7));
    QCOMPARE(menu->actions().size(), 4);
    menu->actions().at(2)->trigger();
    QCOMPARE(std::pair(mask(0), mask(47)), std::pair(8, 8));
    QCOMPARE(stack().count(), 1);
    patch->connectionChange(3, 47, false);
    menu->actions().at(0)->trigger();
    QCOMPARE(std::pair(mask(0), mask(47)), std::pair(0, 0));
    QCOMPARE(stack().count(), 2);
    stack().undo();
    QCOMPARE(std::pair(mask(0), mask(47)), std::pair(8, 0));
    stack().undo();
    QCOMPARE(std::pair(mask(0), mask(46)), std::pair(0, 0));
    stack().clear();
}

void TestPatchScreens::aChangeFromElsewhereIsPaintedWithoutBeingAsked_data()
{
    // Far from the first channel, whose address is the grid's own.
    Table<QString, QString, QString, int, int, QPoint>()
        .row("input", "input-patch", "Input patch", "kPatchInInput/kPatchIn", 40, 12,
             QPoint(11, 40))
        .row("mixes", "bus-patch", "Mix assign", "kInputAssign/kMixMask", 30, 4, QPoint(30, 2))
        .row("outputs", "bus-patch", "Output patch", "kPatchOutOmni/kPatchOut", 4, 60,
             QPoint(11, 4));
}

void TestPatchScreens::aChangeFromElsewhereIsPaintedWithoutBeingAsked()
{
    const auto [screen, name, parameter, element, value, cell] =
        Table<QString, QString, QString, int, int, QPoint>::fetch();
    CGrid *patch = grid(screen, name);
    IMemAPI::TSingleBaseAddress at;
    QVERIFY(m_rig.memory.resolve(parameter, element, at));
    const int before = m_rig.value(parameter, element);
    QVERIFY(!patch->valueAt(cell.y(), cell.x()));
    PaintWatch paints(*patch);
    paints.take();
    m_rig.memory.writeValue(at.group, at.index, at.element, value, 0);
    QVERIFY(patch->valueAt(cell.y(), cell.x()));
    QRegion painted;
    QTRY_VERIFY((painted += paints.take()).contains(centre(patch, cell.y(), cell.x())));
    m_rig.memory.writeValue(at.group, at.index, at.element, before, 0);
}

void TestPatchScreens::titlesStandWhereTheGridStands()
{
    CGrid *patch = grid("input-patch", "Input patch");
    GridPanel *panel = panelOf(patch);
    PaintWatch paints(*panel);
    const QPoint place = patch->pos();
    paints.take();
    patch->move(place + QPoint(3, 7));
    QVERIFY(paints.take().contains(QRect(0, patch->y(), place.x() - 5, patch->height())));
    // The whole of a title is lit, down to the grid.
    QTest::keyClick(patch, Qt::Key_Right);
    QVERIFY(paints.take().contains(QRect(place.x(), patch->y() - 5, 200, 5)));
    patch->move(place);
}

void TestPatchScreens::thePairUnderThePointerIsToldInWords()
{
    CGrid *patch = grid("input-patch", "Input patch");
    const QPoint point = centre(patch, 2, 2);
    QMouseEvent move(QEvent::MouseMove, point, patch->mapToGlobal(point), Qt::NoButton, {}, {});
    QApplication::sendEvent(patch, &move);
    QCOMPARE(panelOf(patch)->pairText(), QString("CH 3 to IN 3: connected"));
    QTest::keyClick(patch, Qt::Key_Right);
    QCOMPARE(panelOf(patch)->pairText(), QString("CH 3 to IN 4: not connected"));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(patch, &leave);
    QCOMPARE(panelOf(patch)->pairText(), QString());
}

void TestPatchScreens::theWheelAndCtrlClickDoNotReset()
{
    CGrid *patch = grid("input-patch", "Input patch");
    QTest::mousePress(patch, Qt::LeftButton, Qt::ControlModifier, centre(patch, 7, 30));
    QTest::mouseRelease(patch, Qt::LeftButton, Qt::ControlModifier, centre(patch, 9, 30));
    gesture::wheel(*patch, -1);
    QCOMPARE(stack().count(), 0);
}

QTEST_MAIN(TestPatchScreens)
#include "tst_PatchScreens.moc"

// SPDX-License-Identifier: MIT
// What clicks, keys and bulk operations write, tell and note for undo.
#include "tests/support/GridRig.h"

class tst_CGridEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clicksWrite_data();
    void clicksWrite();
    void theAllFieldExcludesOthers_data();
    void theAllFieldExcludesOthers();
    void clicksRepatchFields_data();
    void clicksRepatchFields();
    void onlyALeftClickOnOneCellConnects_data();
    void onlyALeftClickOnOneCellConnects();
    void aClickIsOneUndoStep();
    void aReceiverMayVeto();
    void aReceiverMayDestroyTheGrid_data();
    void aReceiverMayDestroyTheGrid();
    void failedWritesTellNothing();
    void withoutAnAddressNothingIsWritten();
    void keysMoveAndConnect();
    void thePointerMovesTheCursor();
    void aRowIsClearedInOneStep();
    void aFieldIsSetInAllChannelsInOneStep_data();
    void aFieldIsSetInAllChannelsInOneStep();
    void allFieldsOfAChannelAreSet();
    void switchesAreWrittenAndNotedOneByOne();
    void switchesAreWrittenUpToTheFirstFailure();
};

void tst_CGridEditing::clicksWrite_data()
{
    QTest::addColumn<bool>("masks");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::addColumn<bool>("told");
    QTest::newRow("exclusive: connect") << false << 0 << 3 << true;
    QTest::newRow("exclusive: disconnect") << false << 3 << 0 << false;
    // A channel that had another field was connected: it is told as if it were disconnected.
    QTest::newRow("exclusive: another field") << false << 5 << 3 << false;
    QTest::newRow("mask: connect") << true << 0b1001 << 0b1101 << true;
    QTest::newRow("mask: disconnect") << true << 0b1101 << 0b1001 << false;
}

void tst_CGridEditing::clicksWrite()
{
    QFETCH(bool, masks);
    QFETCH(int, before);
    QFETCH(int, after);
    QFETCH(bool, told);
    GridRig rig(masks);
    rig.bind();
    rig.value(4).value = before;
    QSignalSpy updated(&rig.grid, &CGrid::patchUpdated);
    rig.click(2, 4);
    QCOMPARE(rig.writes(), QStringList(QString("writeValue 3 7 4 = %1 token 9").arg(after)));
    QCOMPARE(updated, QList<QVariantList>({{2, 4, told}}));
}

void tst_CGridEditing::theAllFieldExcludesOthers_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    // Field 4 is the all-field, bits start at 3: bit n+2 is field n.
    QTest::newRow("another clears it") << 1 << (1 << 6) << (1 << 3);
    QTest::newRow("another off clears it, too") << 1 << (1 << 6 | 1 << 3) << 0;
    // Only the bit numbered like the all-field, counted from 0, is left of the value.
    QTest::newRow("on") << 4 << 0b1111 << (1 << 6);
    QTest::newRow("on, raw bit set") << 4 << 0b11111 << (1 << 6 | 1 << 4);
    QTest::newRow("its own bit does not count") << 4 << (1 << 6) << (1 << 6);
}

void tst_CGridEditing::theAllFieldExcludesOthers()
{
    QFETCH(int, row);
    QFETCH(int, before);
    QFETCH(int, after);
    GridRig rig;
    rig.grid.setGroupIndexStart(3);
    rig.grid.setAllFieldIndex(4);
    rig.bind();
    rig.value(0).value = before;
    rig.click(row, 0);
    QCOMPARE(rig.value(0).value, after);
}

void tst_CGridEditing::clicksRepatchFields_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("column");
    QTest::addColumn<QStringList>("writes");
    QTest::addColumn<QList<bool>>("told");
    const auto write = [](int value) {
        return QStringList(QString("writeValue 40 0 1 = %1 token 9").arg(value));
    };
    QTest::newRow("connect") << 0 << 3 << write(13) << QList<bool>{true};
    QTest::newRow("disconnect") << 13 << 3 << write(0) << QList<bool>{false};
    QTest::newRow("another channel") << 14 << 3 << write(13) << QList<bool>{false};
    QTest::newRow("above the threshold") << 0 << 6 << write(206) << QList<bool>{true};
}

void tst_CGridEditing::clicksRepatchFields()
{
    QFETCH(int, before);
    QFETCH(int, column);
    QFETCH(QStringList, writes);
    QFETCH(QList<bool>, told);
    GridRig rig;
    rig.bind();
    rig.appendFields(2, 10, 200);
    rig.grid.setAltChannelThreshold(6);
    rig.memory.at(40, 0, 1).value = before;
    QSignalSpy updated(&rig.grid, &CGrid::patchUpdated);
    rig.click(1, column);
    QCOMPARE(rig.writes(), writes);
    QCOMPARE(updated.size(), 1);
    QCOMPARE(updated[0], QVariantList({1, column, told[0]}));
    rig.click(4, column); // beyond the table
    QCOMPARE(rig.writes(), QStringList());
    QCOMPARE(updated.size(), 1);
}

void tst_CGridEditing::onlyALeftClickOnOneCellConnects_data()
{
    QTest::addColumn<QPoint>("press");
    QTest::addColumn<QPoint>("release");
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<int>("writes");
    // Cells are 13 pixels, lines in the default style 1 and 2 between columns.
    QTest::newRow("in the cell") << QPoint(16, 3) << QPoint(24, 11) << Qt::LeftButton << 1;
    QTest::newRow("on its line") << QPoint(13, 3) << QPoint(20, 3) << Qt::LeftButton << 1;
    QTest::newRow("another cell") << QPoint(16, 3) << QPoint(30, 3) << Qt::LeftButton << 0;
    QTest::newRow("right button") << QPoint(16, 3) << QPoint(16, 3) << Qt::RightButton << 0;
    QTest::newRow("released outside") << QPoint(3, 3) << QPoint(-5, 3) << Qt::LeftButton << 0;
    QTest::newRow("behind the last line")
        << QPoint(115, 3) << QPoint(115, 3) << Qt::LeftButton << 0;
    QTest::newRow("disabled cell") << QPoint(32, 20) << QPoint(32, 20) << Qt::LeftButton << 0;
}

void tst_CGridEditing::onlyALeftClickOnOneCellConnects()
{
    QFETCH(QPoint, press);
    QFETCH(QPoint, release);
    QFETCH(Qt::MouseButton, button);
    QFETCH(int, writes);
    GridRig rig;
    rig.grid.setDisabledRects(QStringLiteral("(2,1,1,1)"));
    rig.bind();
    QTest::mousePress(&rig.grid, button, {}, press);
    QCOMPARE(rig.writes(), QStringList());
    QTest::mouseRelease(&rig.grid, button, {}, release);
    QCOMPARE(rig.writes().size(), writes);
}

void tst_CGridEditing::aClickIsOneUndoStep()
{
    GridRig rig;
    rig.bind();
    rig.value(4).value = 0b10;
    rig.click(2, 4);
    QCOMPARE(rig.memory.committed, QList<QStringList>({{"undo 131076: 3 7 4 = 2"}}));
    QVERIFY(!rig.grid.autoUndoDisabled());
    rig.grid.connectionChange(2, 4, false);
    QCOMPARE(rig.memory.committed.size(), 1);
}

void tst_CGridEditing::aReceiverMayVeto()
{
    GridRig rig(false);
    rig.bind();
    rig.grid.removeFieldRange(1, 4);
    QVariantList told;
    connect(&rig.grid, &CGrid::aboutToChangeValue, this,
            [&](CGrid *grid, int channel, int field, int value) {
                told = {channel, field, value};
                grid->setChangeOperationCancelled(true);
            });
    rig.click(2, 4);
    QCOMPARE(told, QVariantList({4, 6, 7}));
    QCOMPARE(rig.writes(), QStringList());
    QVERIFY(rig.memory.committed.isEmpty() && !rig.grid.changeOperationCancelled());
}

void tst_CGridEditing::aReceiverMayDestroyTheGrid_data()
{
    QTest::addColumn<bool>("early");
    QTest::addColumn<int>("operation");
    const char *names[] = {"click", "row", "field", "channel", "all"};
    for (int operation = 0; operation < 5; ++operation) {
        QTest::newRow(names[operation]) << false << operation;
        QTest::addRow("%s, before the write", names[operation]) << true << operation;
    }
}

void tst_CGridEditing::aReceiverMayDestroyTheGrid()
{
    QFETCH(bool, early);
    QFETCH(int, operation);
    GridTestMemory memory;
    auto *grid = new CGrid;
    const QPointer<CGrid> alive(grid);
    grid->setAddresses({{{3, 0, 7}, 0, 0}});
    memory.bind(*grid, 3, 7, 0);
    memory.at(3, 7, 0).value = 1;
    memory.at(3, 7, 1).value = 1;
    if (early)
        connect(grid, &CGrid::aboutToChangeValue, [grid] { delete grid; });
    connect(grid, &CGrid::patchUpdated, [grid] { delete grid; });
    switch (operation) {
    case 0: grid->connectionChange(0, 0, true); break;
    case 1: grid->clearRow(0); break;
    case 2: grid->setAllChannelsForField(0, true); break;
    case 3: grid->setAllFieldsForChannel(0, 1); break;
    default: grid->clearAll();
    }
    QVERIFY(!alive);
}

void tst_CGridEditing::failedWritesTellNothing()
{
    GridRig rig;
    rig.bind();
    rig.memory.failsWrites = true;
    QSignalSpy updated(&rig.grid, &CGrid::patchUpdated);
    rig.click(0, 0);
    QCOMPARE(updated.size(), 0);
}

void tst_CGridEditing::withoutAnAddressNothingIsWritten()
{
    GridRig rig;
    QSignalSpy asked(&rig.grid, &CGrid::aboutToChangeValue);
    rig.click(0, 0);
    QCOMPARE(asked.size(), 0); // no memory
    rig.bind();
    rig.grid.setAddresses({});
    QSignalSpy updated(&rig.grid, &CGrid::patchUpdated);
    rig.click(0, 0);
    QCOMPARE(asked.size(), 1);
    QCOMPARE(updated.size(), 0);
    QCOMPARE(rig.writes(), QStringList());
}

void tst_CGridEditing::keysMoveAndConnect()
{
    GridRig rig(false);
    rig.bind();
    QSignalSpy moved(&rig.grid, &CGrid::kbCursorMoved);
    QSignalSpy any(&rig.grid, &CGrid::cursorMoved);
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Down})
        QTest::keyClick(&rig.grid, key);
    QCOMPARE(moved, QList<QVariantList>({{0, 0}, {0, 0}, {1, 0}, {1, 1}}));
    QCOMPARE(any.size(), 4);
    for (int i = 0; i < 20; ++i) {
        QTest::keyClick(&rig.grid, Qt::Key_Right);
        QTest::keyClick(&rig.grid, Qt::Key_Down);
    }
    QCOMPARE(rig.grid.cursorCell(), QPoint(7, 5));
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_A})
        QTest::keyClick(&rig.grid, key);
    const QStringList expected{"writeValue 3 7 7 = 6 token 9", "writeValue 3 7 7 = 0 token 9",
                               "writeValue 3 7 7 = 6 token 9"};
    QCOMPARE(rig.writes(), expected);
    QCOMPARE(rig.memory.committed.size(), 3);
    rig.grid.setVerCount(0);
    QTest::keyClick(&rig.grid, Qt::Key_Right);
    QTest::keyClick(&rig.grid, Qt::Key_Space);
    QCOMPARE(rig.writes(), QStringList());
}

void tst_CGridEditing::thePointerMovesTheCursor()
{
    GridRig rig;
    QSignalSpy moved(&rig.grid, &CGrid::cursorMoved);
    QSignalSpy byKey(&rig.grid, &CGrid::kbCursorMoved);
    QSignalSpy off(&rig.grid, &CGrid::cursorOff);
    rig.moveTo(rig.centre(3, 5));
    rig.moveTo(rig.centre(3, 5) + QPoint(2, 2));
    rig.moveTo({rig.grid.width() - 1, 10}); // the line behind the last column
    rig.moveTo({-20, 10}, Qt::LeftButton);
    QCOMPARE(moved, QList<QVariantList>({{5, 3}}));
    QCOMPARE(byKey.size(), 0);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&rig.grid, &leave);
    QCOMPARE(off.size(), 1);
}

void tst_CGridEditing::aRowIsClearedInOneStep()
{
    GridRig rig;
    rig.bind();
    rig.grid.setDisabledRects(QStringLiteral("(6,2,1,1)"));
    for (int channel : {1, 4, 6})
        rig.value(channel).value = 0b111;
    QSignalSpy updated(&rig.grid, &CGrid::patchUpdated);
    rig.grid.clearRow(2);
    QCOMPARE(updated, QList<QVariantList>({{2, 1, false}, {2, 4, false}}));
    QCOMPARE(rig.value(4).value, 0b011);
    QCOMPARE(rig.value(6).value, 0b111);
    QCOMPARE(rig.memory.committed.size(), 1);
    QCOMPARE(rig.memory.committed[0].size(), 8);
    QCOMPARE(rig.memory.committed[0][4], QStringLiteral("undo 131076: 3 7 4 = 7"));
    rig.grid.clearRow(6);
    QCOMPARE(rig.memory.committed.size(), 1);
}

void tst_CGridEditing::aFieldIsSetInAllChannelsInOneStep_data()
{
    QTest::addColumn<CGrid::GridOrientation>("orientation");
    QTest::newRow("across") << CGrid::ChannelsAcross;
    QTest::newRow("down") << CGrid::ChannelsDown;
}

void tst_CGridEditing::aFieldIsSetInAllChannelsInOneStep()
{
    QFETCH(CGrid::GridOrientation, orientation);
    const bool across = orientation == CGrid::ChannelsAcross;
    GridRig rig(true, orientation);
    rig.bind();
    // Channel 1 has no field 2. The field's place counts, not its number.
    rig.grid.setDisabledRects(across ? QStringLiteral("(1,2,1,1)") : QStringLiteral("(2,1,1,1)"));
    rig.grid.removeFieldRange(0, 3);
    rig.value(3).value = 0b10001;
    QSignalSpy updated(&rig.grid, &CGrid::patchUpdated);
    rig.grid.setAllChannelsForField(2, true);
    QCOMPARE(rig.value(0).value, 0b100);
    QCOMPARE(rig.value(1).value, 0);
    QCOMPARE(rig.value(3).value, 0b10101);
    QCOMPARE(updated.size(), rig.grid.channels() - 1);
    QCOMPARE(updated[2], across ? QVariantList({2, 3, true}) : QVariantList({3, 2, true}));
    QCOMPARE(rig.memory.committed.size(), 1);
    // Keys name channel and field, whichever is the row; values are the channels'.
    QCOMPARE(rig.memory.committed[0][2], QStringLiteral("undo 196610: 3 7 3 = 17"));
    rig.grid.setAllChannelsForField(2, false);
    QCOMPARE(rig.value(3).value, 0b10001);
    rig.memory.take();
    rig.grid.setAllChannelsForField(8, true);
    rig.grid.setAllChannelsForField(-1, true);
    QCOMPARE(rig.writes(), QStringList());
}

void tst_CGridEditing::allFieldsOfAChannelAreSet()
{
    GridRig rig;
    QSignalSpy updated(&rig.grid, &CGrid::patchUpdated);
    rig.grid.setAllFieldsForChannel(2, 1);
    QCOMPARE(updated.size(), 6); // told without a memory, too
    rig.bind();
    rig.grid.setAllFieldsForChannel(2, 1);
    QCOMPARE(rig.value(2).value, -1);
    rig.grid.setAllFieldsForChannel(2, -1); // neither on nor 0: cleared, and told as connected
    QCOMPARE(rig.value(2).value, 0);
    QCOMPARE(updated.last(), QVariantList({5, 2, true}));
    rig.memory.take();
    rig.grid.setAllFieldsForChannel(8, 1);
    QCOMPARE(rig.writes(), QStringList());
    rig.grid.clearAll();
    QCOMPARE(rig.writes().size(), 8);
    QVERIFY(rig.memory.committed.isEmpty());
}

void tst_CGridEditing::switchesAreWrittenAndNotedOneByOne()
{
    GridRig rig;
    rig.grid.setMultiMode(true);
    rig.bind();
    rig.memory.at(3, 8, 4).value = 1;
    rig.click(3, 4);
    const QStringList writes = rig.writes();
    QCOMPARE(writes.size(), 6);
    QCOMPARE(writes[1], QStringLiteral("writeValue 3 8 4 = 1 token 9"));
    QCOMPARE(writes[3], QStringLiteral("writeValue 3 10 4 = 1 token 9"));
    QCOMPARE(rig.memory.committed[0].size(), 6);
    QCOMPARE(rig.memory.committed[0][1], QStringLiteral("undo 196612: 3 8 4 = 1"));
    // More fields than bits: what has no bit is not touched.
    rig.grid.setHorCount(40);
    rig.click(3, 4);
    QCOMPARE(rig.writes().size(), 32);
}

void tst_CGridEditing::switchesAreWrittenUpToTheFirstFailure()
{
    GridRig rig;
    rig.grid.setMultiMode(true);
    rig.bind();
    rig.memory.failsWrites = true;
    rig.click(3, 4);
    QCOMPARE(rig.writes().size(), 1);
}

QTEST_MAIN(tst_CGridEditing)
#include "tst_CGridEditing.moc"

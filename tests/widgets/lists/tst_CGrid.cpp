// SPDX-License-Identifier: MIT
// The grid's properties, its reading of the three layouts, and its place in the memory.
#include "tests/support/GridRig.h"

#include <QAccessible>
#include <QBuffer>

class tst_CGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsAsTheDefaultStyle();
    void sizesOfItsOwnEndTheDefaultStyle();
    void keepsItsThicknessOutsideTheLimits_data();
    void keepsItsThicknessOutsideTheLimits();
    void readsTheLayouts_data();
    void readsTheLayouts();
    void rangesOfChannelsHaveAddressesOfTheirOwn();
    void aFieldNamesItsChannelWithAnOffset();
    void valuesOfChannelsAndFields();
    void copyAndPasteMeanTheCellOfTheKey();
    void aSwitchPerFieldIsOneMask();
    void attachesEveryFieldAgain();
    void subscribesToChannelsOnlyWhenAsked();
    void subscribedChangesWithinTenMillisecondsAreOneUpdate();
    void isATableThatTellsBothEndsAndTheState();
};

void tst_CGrid::startsAsTheDefaultStyle()
{
    CGrid grid(nullptr, "named");
    QCOMPARE(grid.objectName(), QString()); // the constructor's name is not passed on
    QCOMPARE(QSize(grid.cols(), grid.rows()), QSize(16, 16));
    QCOMPARE(grid.size(), QSize(8 * (13 + 1 + 13 + 2), 16 * (13 + 2)));
    QCOMPARE(grid.cellLeft(2), 29);
    QCOMPARE(grid.cellTop(2), 30);
    QVERIFY(grid.valueAsBitMask() && !grid.multiMode() && !grid.isUndoEnable());
    QCOMPARE(grid.orientation(), CGrid::ChannelsAcross);
    QCOMPARE(grid.groupIndexStart(), 1);
    QCOMPARE(grid.cursorThickness(), 3);
    QCOMPARE(grid.cursorLineColor(), QColor(Qt::red));
    QCOMPARE(grid.gridLineColor(), QColor(58, 58, 71));
    QCOMPARE(grid.focusPolicy(), Qt::StrongFocus);
    QVERIFY(grid.hasMouseTracking());
    grid.setVerCount(3);
    QCOMPARE(grid.width(), 13 + 1 + 13 + 2 + 13 + 1);
}

void tst_CGrid::sizesOfItsOwnEndTheDefaultStyle()
{
    CGrid grid;
    grid.setCellWidths(QStringLiteral("20,21"));
    QCOMPARE(grid.cellLeft(2), 20 + 1 + 21 + 2);
    grid.setHorCount(17);
    QCOMPARE(grid.cellLeft(2), 20 + 1 + 21 + 2);
    QCOMPARE(grid.gridHeight(), 16 * 15 + 14); // the new row as a new row comes
    grid.setVerCount(2);
    QCOMPARE(grid.size(), QSize(44, 254));
}

void tst_CGrid::keepsItsThicknessOutsideTheLimits_data()
{
    QTest::addColumn<int>("set");
    QTest::addColumn<int>("expected");
    QTest::newRow("least") << 2 << 2;
    QTest::newRow("most") << 13 << 13;
    QTest::newRow("too thin") << 1 << 7;
    QTest::newRow("too thick") << 14 << 7;
}

void tst_CGrid::keepsItsThicknessOutsideTheLimits()
{
    QFETCH(int, set);
    QFETCH(int, expected);
    CGrid grid;
    grid.setCursorThickness(7);
    grid.setCursorThickness(set);
    QCOMPARE(grid.cursorThickness(), expected);
}

void tst_CGrid::readsTheLayouts_data()
{
    QTest::addColumn<bool>("masks");
    QTest::addColumn<CGrid::GridOrientation>("orientation");
    QTest::addColumn<int>("value");
    QTest::addColumn<QList<int>>("fields"); // connected to channel 3
    const auto across = CGrid::ChannelsAcross;
    const auto down = CGrid::ChannelsDown;
    QTest::newRow("exclusive, none") << false << across << 0 << QList<int>{};
    QTest::newRow("exclusive, field 2") << false << across << 3 << QList<int>{2};
    QTest::newRow("exclusive, down") << false << down << 5 << QList<int>{4};
    QTest::newRow("exclusive, beyond the grid") << false << across << 60 << QList<int>{};
    QTest::newRow("mask") << true << across << 0b100101 << QList<int>{0, 2, 5};
    QTest::newRow("mask, down") << true << down << -1 << QList<int>{0, 1, 2, 3, 4, 5, 6, 7};
}

void tst_CGrid::readsTheLayouts()
{
    QFETCH(bool, masks);
    QFETCH(CGrid::GridOrientation, orientation);
    QFETCH(int, value);
    QFETCH(QList<int>, fields);
    GridRig rig(masks, orientation);
    rig.bind();
    rig.value(3).value = value;
    const bool across = orientation == CGrid::ChannelsAcross;
    for (int row = 0; row < rig.grid.rows(); ++row) {
        for (int column = 0; column < rig.grid.cols(); ++column) {
            const int channel = across ? column : row;
            const int field = across ? row : column;
            QCOMPARE(rig.grid.valueAt(row, column), channel == 3 && fields.contains(field));
        }
    }
    QCOMPARE(rig.grid.getValue(3, false), value);
}

void tst_CGrid::rangesOfChannelsHaveAddressesOfTheirOwn()
{
    GridRig rig;
    rig.bind();
    // Channels 0-3, then 4-7 with two elements for each channel; 8 channels in all.
    rig.grid.setAddresses({{{3, 0, 7}, 0, 4}, {{50, 0, 1}, 4, 8}});
    rig.memory.at(50, 1, 6).maximum = 1000;
    rig.memory.take();
    rig.grid.valueAt(0, 2);
    rig.grid.valueAt(0, 7);
    QCOMPARE(rig.reads(), QStringList({"readValue 3 7 2", "readValue 50 1 6"}));
    rig.grid.setAddresses({{{3, 0, 7}, 0, 2}, {{50, 0, 1}, 4, 2}});
    QCOMPARE(rig.grid.getValue(3, false), -1);
    QVERIFY(!rig.grid.valueAt(0, 3));
    rig.grid.setAddresses({});
    QCOMPARE(rig.grid.getValue(0, false), -1);
    QCOMPARE(rig.reads(), QStringList());
}

void tst_CGrid::aFieldNamesItsChannelWithAnOffset()
{
    GridRig rig;
    rig.bind();
    rig.appendFields(3, 10, 200);
    rig.grid.setAltChannelThreshold(5);
    rig.grid.swapChannels(1, 21, 2, 22);
    const QList<int> valueOfChannel{10, 12, 11, 13, 14, 205, 206, 207};
    for (int channel = 0; channel < 8; ++channel) {
        rig.memory.at(40, 0, 1).value = valueOfChannel[channel];
        for (int other = 0; other < 8; ++other)
            QCOMPARE(rig.grid.valueAt(1, other), other == channel);
    }
    QVERIFY(!rig.grid.valueAt(3, 0)); // beyond the table
    QCOMPARE(rig.grid.lookup_multiAddressModeOffset(40, 5, false), 200);
    QCOMPARE(rig.grid.lookup_multiAddressModeOffset(40, 5, true), 10);
    QCOMPARE(rig.grid.lookup_multiAddressModeOffset(41, 5, false), 0);
}

void tst_CGrid::valuesOfChannelsAndFields()
{
    GridRig rig;
    QCOMPARE(rig.grid.getValue(0, false), -1); // no memory yet
    rig.bind();
    rig.grid.swapChannels(1, 21, 2, 22);
    rig.value(4).value = 22;
    QCOMPARE(rig.grid.getValue(4, false), 21);
    rig.appendFields(7, 10, 200);
    rig.grid.setAltChannelThreshold(5);
    rig.memory.at(40, 0, 4).value = 14;
    QCOMPARE(rig.grid.getValue(4, false), 4);
    // The field's number counts for the threshold.
    rig.memory.at(40, 0, 5).value = 214;
    QCOMPARE(rig.grid.getValue(5, false), 14);
    QCOMPARE(rig.grid.getValue(5, true), 204);
    QCOMPARE(rig.grid.getValue(7, false), -1);
}

void tst_CGrid::copyAndPasteMeanTheCellOfTheKey()
{
    GridRig rig;
    rig.bind();
    rig.value(5).value = 12;
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    rig.grid.copyParameters(out, 2 * 65536 + 5);
    QDataStream in(bytes);
    const TParamInfoReader reader(&in);
    QVERIFY(reader.isValid());
    QCOMPARE(reader.info(), (TParamInfo{3, 5, 7, 12}));
    rig.value(5).value = 0;
    rig.memory.take();
    QDataStream back(bytes);
    rig.grid.pasteParameters(back, 0);
    QCOMPARE(rig.writes(), QStringList("writeValue 3 7 5 = 12 token 9"));
    QDataStream nothing(QByteArray(40, 'x'));
    rig.grid.pasteParameters(nothing, 0);
    QByteArray none;
    QDataStream outside(&none, QIODevice::WriteOnly);
    rig.grid.copyParameters(outside, 6 * 65536);
    QVERIFY(none.isEmpty());
    rig.grid.process(nullptr, CGrid::ResetToDefault, 0);
    rig.grid.reset2defaults(0);
    QCOMPARE(rig.writes(), QStringList());
}

void tst_CGrid::aSwitchPerFieldIsOneMask()
{
    GridRig rig;
    rig.grid.setMultiMode(true);
    rig.bind();
    rig.memory.at(3, 9, 4).value = 5; // anything but 0 is on
    QVERIFY(rig.grid.valueAt(2, 4) && !rig.grid.valueAt(1, 4));
    QCOMPARE(rig.grid.getValue(4, false), 0b100);
    TParamInfo info;
    rig.grid.valueAt(2, 4, &info);
    QCOMPARE(info, (TParamInfo{3, 4, 9, 1}));
    rig.memory.take();
    rig.grid.getValue(4, false);
    QCOMPARE(rig.reads().size(), 6);
}

void tst_CGrid::attachesEveryFieldAgain()
{
    GridRig rig;
    rig.appendFields(2); // no memory yet: ignored
    rig.bind();
    rig.grid.appendAddress(40, 0, 6, 0, 0);
    const QString field = QStringLiteral("attachProxy %1 0").arg(packedAddress(40, 0, 6));
    QCOMPARE(rig.memory.take(), QStringList(field));
    rig.grid.disconnectMemAPI();
    QVERIFY(
        rig.memory.take().contains(QStringLiteral("detachProxy %1").arg(packedAddress(40, 0, 6))));
    rig.memory.bind(rig.grid, 3, 7, 0);
    QVERIFY(rig.memory.take().contains(field));
}

void tst_CGrid::subscribesToChannelsOnlyWhenAsked()
{
    GridRig rig;
    rig.bind();
    rig.grid.connectMemAPI();
    QVERIFY(rig.memory.take({"createNotifier"}).isEmpty());
    rig.grid.setAutoUpdates(true);
    rig.grid.connectMemAPI();
    const QStringList calls = rig.memory.take({"createNotifier"});
    QCOMPARE(calls.size(), 8);
    QCOMPARE(calls.last(), QStringLiteral("createNotifier 3 7 7 01onAutoUpdate()"));
}

void tst_CGrid::subscribedChangesWithinTenMillisecondsAreOneUpdate()
{
    struct Paints : QObject
    {
        bool eventFilter(QObject *, QEvent *event) override
        {
            count += event->type() == QEvent::Paint;
            return false;
        }
        int count = 0;
    } paints;
    GridRig rig;
    rig.bind();
    rig.show();
    rig.grid.process(nullptr, CGrid::Refresh, 0);
    QApplication::processEvents();
    rig.grid.installEventFilter(&paints);
    rig.value(2).value = 1;
    for (int i = 0; i < 5; ++i)
        rig.grid.onAutoUpdate();
    QApplication::processEvents();
    QCOMPARE(paints.count, 0);
    QTRY_COMPARE(paints.count, 1);
    QTest::qWait(30);
    QCOMPARE(paints.count, 1);
    rig.grid.onAutoUpdate();
    QTRY_COMPARE(paints.count, 2);
}

void tst_CGrid::isATableThatTellsBothEndsAndTheState()
{
    GridRig rig(false);
    rig.bind();
    rig.grid.setChannelTitles(QStringLiteral("CH 1..8"));
    rig.grid.setDisabledRects(QStringLiteral("(0,0,1,1)"));
    rig.value(4).value = 3;
    QAccessibleInterface *table = QAccessible::queryAccessibleInterface(&rig.grid);
    QCOMPARE(table->role(), QAccessible::Table);
    QAccessibleTableInterface *cells = table->tableInterface();
    QCOMPARE(QSize(cells->columnCount(), cells->rowCount()), QSize(8, 6));
    QCOMPARE(cells->columnDescription(4), QStringLiteral("CH 5"));
    QAccessibleInterface *cell = cells->cellAt(2, 4);
    QCOMPARE(table->child(2 * 8 + 4), cell);
    QCOMPARE(table->indexOfChild(cell), 2 * 8 + 4);
    QCOMPARE(cell->text(QAccessible::Name), QStringLiteral("CH 5 to Field 3"));
    QCOMPARE(cell->text(QAccessible::Value), QStringLiteral("connected"));
    QVERIFY(cell->state().checked);
    cell->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(cell->text(QAccessible::Value), QStringLiteral("not connected"));
    QCOMPARE(cells->cellAt(0, 0)->text(QAccessible::Value), QStringLiteral("not available"));
    QVERIFY(!cells->cellAt(6, 0));
    rig.grid.setVerCount(2);
    QVERIFY(!cell->isValid() && cell->state().invalid);
    QCOMPARE(cell->text(QAccessible::Name), QString());
}

QTEST_MAIN(tst_CGrid)
#include "tst_CGrid.moc"

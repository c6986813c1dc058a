// SPDX-License-Identifier: MIT
#include "tests/support/Table.h"
#include "widgets/lists/GridDisabledCells.h"
#include "widgets/lists/GridNumbering.h"
#include "widgets/lists/GridTitles.h"

#include <QTest>

#include <limits>

class tst_GridNumbering : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void removedRangesCountInTheOrderOfRemoval_data();
    void removedRangesCountInTheOrderOfRemoval();
    void bitsOfFields_data();
    void bitsOfFields();
    void bitOrdersAddUpAndTheFirstWins();
    void channelsChangePlaces();
    void rectanglesOfDisabledCells_data();
    void rectanglesOfDisabledCells();
    void runsOfTitles();
};

using Ranges = QList<std::pair<int, int>>;

void tst_GridNumbering::removedRangesCountInTheOrderOfRemoval_data()
{
    // expected: for fields 0, 5, 20, 40
    Table<Ranges, QList<int>>()
        .row("none", {}, {0, 5, 20, 40})
        .row("one", {{5, 8}}, {0, 9, 24, 44})
        .row("highest first", {{30, 39}, {5, 8}}, {0, 19, 34, 50})
        .row("lowest first hides the other", {{5, 8}, {30, 39}}, {0, 9, 24, 44})
        .row("nothing in it", {{5, 4}}, {0, 5, 20, 40})
        .row("backwards", {{20, 10}}, {0, 5, 11, 31});
}

void tst_GridNumbering::removedRangesCountInTheOrderOfRemoval()
{
    const auto [ranges, expected] = Table<Ranges, QList<int>>::fetch();
    GridNumbering numbering;
    for (const auto &[from, to] : ranges)
        numbering.removeFieldRange(from, to);
    const QList<int> fields{0, 5, 20, 40};
    for (int i = 0; i < fields.size(); ++i)
        QCOMPARE(numbering.fieldToValue(fields[i]), expected[i]);
}

void tst_GridNumbering::bitsOfFields_data()
{
    Table<int, QString, int, int, int>()
        .row("plain", 1, "", 0, 5, 5)
        .row("from bit 8 on", 9, "", 0, 2, 10)
        .row("around the end", 31, "", 0, 5, 3)
        .row("before the start", -1, "", 0, 0, 30)
        .row("field 32 is field 0", 1, "", 0, 32, 0)
        .row("lowest start", std::numeric_limits<int>::min(), "", 0, 0, 31)
        .row("in the order", 1, "0,3:7,6,5", 3, 1, 6)
        .row("channel outside", 1, "0,3:7,6,5", 4, 1, 1)
        .row("after the list", 1, "0,3:7,6,5", 0, 3, 3)
        .row("out of range", 1, "0,3:40,32,-1,9", 0, 0, 0)
        .row("no number", 1, "0,3:7,x,,9", 0, 2, 2)
        .row("beyond the table", 1, "0,3:7", 0, 33, 1)
        .row("more than the table", 1, "0,3:" + QString("4,").repeated(40) + "5", 0, 31, 4)
        .row("white space", 1, "9,9:1 ; 0,3 : 7 , 6", 0, 1, 6)
        .row("three parts", 1, "0,3:7:6", 0, 0, 0)
        .row("one part", 1, "0,3", 0, 0, 0)
        .row("three channels", 1, "0,3,4:7", 0, 0, 0)
        .row("a sign", 1, "-1,3:7", 0, 0, 0)
        .row("begins late", 1, "x0,3:7", 0, 0, 0)
        .row("huge channel", 1, "0,99999999999:7", 0, 0, 0)
        .row("others are kept", 1, "x;;0,3:7;:", 0, 0, 7);
}

void tst_GridNumbering::bitsOfFields()
{
    const auto [start, order, channel, field, bit] = Table<int, QString, int, int, int>::fetch();
    GridNumbering numbering;
    numbering.setGroupIndexStart(start);
    numbering.addBitOrder(order);
    QCOMPARE(numbering.getMemApiBitMask(channel, field), quint32(1) << bit);
}

void tst_GridNumbering::bitOrdersAddUpAndTheFirstWins()
{
    GridNumbering numbering;
    numbering.addBitOrder(u"0,3:7");
    numbering.addBitOrder(u"2,5:9");
    QCOMPARE(numbering.getMemApiBitMask(2, 0), quint32(1) << 7);
    QCOMPARE(numbering.getMemApiBitMask(4, 0), quint32(1) << 9);
}

void tst_GridNumbering::channelsChangePlaces()
{
    GridNumbering numbering;
    numbering.swapChannels(1, 11, 2, 12);
    QCOMPARE(numbering.remapSwapValues(1, true), 2u);
    QCOMPARE(numbering.remapSwapValues(2, true), 1u);
    QCOMPARE(numbering.remapSwapValues(11, false), 12u);
    QCOMPARE(numbering.remapSwapValues(12, false), 11u);
    QCOMPARE(numbering.remapSwapValues(1, false), 1u);
}

void tst_GridNumbering::rectanglesOfDisabledCells_data()
{
    const QList<QPoint> corners{{1, 2}, {3, 5}};
    Table<QString, QList<QPoint>, QList<QPoint>>()
        .row("one", "(1,2,3,4)", corners, {{0, 2}, {4, 2}, {1, 6}, {1, 1}})
        .row("blanks", " ( 1, 2 ,3,4 ) ", corners, {{4, 4}})
        .row("two", "(1,2,3,4) ; (7,7,1,1)", corners + QList<QPoint>{{7, 7}}, {{6, 7}})
        .row("bad ones between", "(1,2,3);x;(1,2,3,-4);;(7,7,1,1)", {{7, 7}}, corners)
        .row("begins late", "x(1,2,3,4)", {}, corners)
        .row("a tab inside", "(1,\t2,3,4)", {}, corners)
        .row("text behind spoils the last number", "(1,2,3,4)x", {}, {{1, 2}})
        .row("empty", "(1,2,0,4)", {}, {{1, 2}, {0, 2}})
        .row("endless", "(1,2,2147483647,2147483647)", corners, {{0, 0}});
}

void tst_GridNumbering::rectanglesOfDisabledCells()
{
    const auto [text, disabled, enabled] = Table<QString, QList<QPoint>, QList<QPoint>>::fetch();
    GridDisabledCells cells;
    cells.add(text);
    for (const QPoint &cell : disabled)
        QVERIFY2(cells.contains(cell.x(), cell.y()), qPrintable(QString::number(cell.x())));
    for (const QPoint &cell : enabled)
        QVERIFY2(!cells.contains(cell.x(), cell.y()), qPrintable(QString::number(cell.x())));
    cells.add(u"(90,90,1,1)");
    for (const QPoint &cell : disabled)
        QVERIFY(cells.contains(cell.x(), cell.y()));
}

void tst_GridNumbering::runsOfTitles()
{
    GridTitles titles;
    titles.setText(QStringLiteral("CH 1..3; ST 1L ;;A..B;9..7"));
    const QStringList expected{"CH 1", "CH 2", "CH 3", "ST 1L", "", "A..B", "9..7", ""};
    for (int i = 0; i < expected.size(); ++i)
        QCOMPARE(titles.title(i), expected[i]);
    titles.setText(QStringLiteral("X1..2000000000;Y"));
    QCOMPARE(titles.title(32766), QStringLiteral("X32767"));
    QCOMPARE(titles.title(32767), QString());
    titles.setText({});
    QCOMPARE(titles.title(0), QString());
}

QTEST_MAIN(tst_GridNumbering)
#include "tst_GridNumbering.moc"

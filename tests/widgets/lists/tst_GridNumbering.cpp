// SPDX-License-Identifier: MIT
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
    QTest::addColumn<Ranges>("ranges");
    QTest::addColumn<QList<int>>("expected"); // for fields 0, 5, 20, 40
    QTest::newRow("none") << Ranges{} << QList<int>{0, 5, 20, 40};
    QTest::newRow("one") << Ranges{{5, 8}} << QList<int>{0, 9, 24, 44};
    QTest::newRow("highest first") << Ranges{{30, 39}, {5, 8}} << QList<int>{0, 19, 34, 50};
    QTest::newRow("lowest first hides the other") << Ranges{{5, 8}, {30, 39}}
                                                  << QList<int>{0, 9, 24, 44};
    QTest::newRow("nothing in it") << Ranges{{5, 4}} << QList<int>{0, 5, 20, 40};
    QTest::newRow("backwards") << Ranges{{20, 10}} << QList<int>{0, 5, 11, 31};
}

void tst_GridNumbering::removedRangesCountInTheOrderOfRemoval()
{
    QFETCH(Ranges, ranges);
    QFETCH(QList<int>, expected);
    GridNumbering numbering;
    for (const auto &[from, to] : ranges)
        numbering.removeFieldRange(from, to);
    const QList<int> fields{0, 5, 20, 40};
    for (int i = 0; i < fields.size(); ++i)
        QCOMPARE(numbering.fieldToValue(fields[i]), expected[i]);
}

void tst_GridNumbering::bitsOfFields_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<QString>("order");
    QTest::addColumn<int>("channel");
    QTest::addColumn<int>("field");
    QTest::addColumn<int>("bit");
    QTest::newRow("plain") << 1 << "" << 0 << 5 << 5;
    QTest::newRow("from bit 8 on") << 9 << "" << 0 << 2 << 10;
    QTest::newRow("around the end") << 31 << "" << 0 << 5 << 3;
    QTest::newRow("before the start") << -1 << "" << 0 << 0 << 30;
    QTest::newRow("field 32 is field 0") << 1 << "" << 0 << 32 << 0;
    QTest::newRow("lowest start") << std::numeric_limits<int>::min() << "" << 0 << 0 << 31;
    QTest::newRow("in the order") << 1 << "0,3:7,6,5" << 3 << 1 << 6;
    QTest::newRow("channel outside") << 1 << "0,3:7,6,5" << 4 << 1 << 1;
    QTest::newRow("after the list") << 1 << "0,3:7,6,5" << 0 << 3 << 3;
    QTest::newRow("out of range") << 1 << "0,3:40,32,-1,9" << 0 << 0 << 0;
    QTest::newRow("no number") << 1 << "0,3:7,x,,9" << 0 << 2 << 2;
    QTest::newRow("beyond the table") << 1 << "0,3:7" << 0 << 33 << 1;
    QTest::newRow("more than the table") << 1 << "0,3:" + QString("4,").repeated(40) + "5" << 0 << 31 << 4;
    QTest::newRow("white space") << 1 << "9,9:1 ; 0,3 : 7 , 6" << 0 << 1 << 6;
    QTest::newRow("three parts") << 1 << "0,3:7:6" << 0 << 0 << 0;
    QTest::newRow("one part") << 1 << "0,3" << 0 << 0 << 0;
    QTest::newRow("three channels") << 1 << "0,3,4:7" << 0 << 0 << 0;
    QTest::newRow("a sign") << 1 << "-1,3:7" << 0 << 0 << 0;
    QTest::newRow("begins late") << 1 << "x0,3:7" << 0 << 0 << 0;
    QTest::newRow("huge channel") << 1 << "0,99999999999:7" << 0 << 0 << 0;
    QTest::newRow("others are kept") << 1 << "x;;0,3:7;:" << 0 << 0 << 7;
}

void tst_GridNumbering::bitsOfFields()
{
    QFETCH(int, start);
    QFETCH(QString, order);
    QFETCH(int, channel);
    QFETCH(int, field);
    QFETCH(int, bit);
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
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<QPoint>>("disabled");
    QTest::addColumn<QList<QPoint>>("enabled");
    const QList<QPoint> corners{{1, 2}, {3, 5}};
    QTest::newRow("one") << "(1,2,3,4)" << corners << QList<QPoint>{{0, 2}, {4, 2}, {1, 6}, {1, 1}};
    QTest::newRow("blanks") << " ( 1, 2 ,3,4 ) " << corners << QList<QPoint>{{4, 4}};
    QTest::newRow("two") << "(1,2,3,4) ; (7,7,1,1)" << corners + QList<QPoint>{{7, 7}}
                         << QList<QPoint>{{6, 7}};
    QTest::newRow("bad ones between") << "(1,2,3);x;(1,2,3,-4);;(7,7,1,1)" << QList<QPoint>{{7, 7}}
                                      << corners;
    QTest::newRow("begins late") << "x(1,2,3,4)" << QList<QPoint>{} << corners;
    QTest::newRow("a tab inside") << "(1,\t2,3,4)" << QList<QPoint>{} << corners;
    QTest::newRow("text behind spoils the last number") << "(1,2,3,4)x" << QList<QPoint>{}
                                                        << QList<QPoint>{{1, 2}};
    QTest::newRow("empty") << "(1,2,0,4)" << QList<QPoint>{} << QList<QPoint>{{1, 2}, {0, 2}};
    QTest::newRow("endless") << "(1,2,2147483647,2147483647)" << corners << QList<QPoint>{{0, 0}};
}

void tst_GridNumbering::rectanglesOfDisabledCells()
{
    QFETCH(QString, text);
    QFETCH(QList<QPoint>, disabled);
    QFETCH(QList<QPoint>, enabled);
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

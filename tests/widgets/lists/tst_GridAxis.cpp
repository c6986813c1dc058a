// SPDX-License-Identifier: MIT
#include "tests/support/Table.h"
#include "widgets/lists/GridAxis.h"

#include <QRandomGenerator>
#include <QTest>

class tst_GridAxis : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsOfSizes_data();
    void listsOfSizes();
    void placesAreTheSumsOfSizesAndLines();
    void everyPixelHasItsCell();
    void countsStayWithinReason();
    void cellsThatDoNotExistAreLeftAlone();
};

void tst_GridAxis::listsOfSizes_data()
{
    Table<bool, QString, QList<int>>()
        .row("out of range and no number", false, "5, x,60", {5, 13, 13, 13})
        .row("limits of sizes", false, "2,50,1,51", {2, 50, 13, 13})
        .row("limits of lines", true, "1,14,0,15", {1, 14, 1, 1})
        .row("white space", false, " 20 ,\t21\n,  22 , 23 ", {20, 21, 22, 23})
        .row("empty items", false, ",9,,9", {13, 9, 13, 9})
        .row("empty", true, "", {1, 1, 1, 1})
        .row("too many", false, "9,9,9,9,9,9", {9, 9, 9, 9})
        .row("too large for a number", false, "99999999999,9", {13, 9, 13, 13});
}

void tst_GridAxis::listsOfSizes()
{
    const auto [lines, text, expected] = Table<bool, QString, QList<int>>::fetch();
    GridAxis axis;
    axis.setCount(4);
    lines ? axis.setLines(u"7,7,7,7") : axis.setSizes(u"7,7,7,7");
    lines ? axis.setLines(text) : axis.setSizes(text);
    for (int cell = 0; cell < 4; ++cell)
        QCOMPARE(lines ? axis.at(cell).line : axis.at(cell).size, expected[cell]);
}

void tst_GridAxis::placesAreTheSumsOfSizesAndLines()
{
    GridAxis axis;
    axis.setCount(3);
    axis.setSizes(u"10,20,30");
    axis.setLines(u"1,2,3");
    const QList<int> begins{0, 0, 11, 33, 66, 66};
    for (int cell = -1; cell <= 4; ++cell)
        QCOMPARE(axis.begin(cell), begins[cell + 1]);
    QCOMPARE(axis.end(1), 31);
    QCOMPARE(axis.length(), 66);
    axis.setSize(0, 40);
    QCOMPARE(axis.begin(2), 63);
    axis.setLine(1, 99);
    QCOMPARE(axis.begin(2), 62);
    axis.setCount(2);
    QCOMPARE(axis.length(), 62);
}

void tst_GridAxis::everyPixelHasItsCell()
{
    QRandomGenerator random(20);
    GridAxis axis;
    axis.setCount(300);
    for (int cell = 0; cell < axis.count(); ++cell) {
        axis.setSize(cell, random.bounded(2, 51));
        axis.setLine(cell, random.bounded(1, 15));
    }
    for (int pixel = -5; pixel < axis.length() + 5; ++pixel) {
        int first = 0;
        while (first < axis.count() && pixel >= axis.end(first))
            ++first;
        QCOMPARE(axis.indexAt(pixel), first);
        const int withLine = axis.cellWithLineAt(pixel);
        if (pixel >= 0 && pixel < axis.length())
            QVERIFY(axis.begin(withLine) <= pixel && pixel < axis.begin(withLine + 1));
    }
}

void tst_GridAxis::countsStayWithinReason()
{
    GridAxis axis;
    axis.setCount(-3);
    QCOMPARE(axis.count(), 0);
    QCOMPARE(axis.length(), 0);
    QCOMPARE(axis.indexAt(5), 0);
    axis.setCount(2'000'000'000);
    QCOMPARE(axis.count(), int(GridAxis::MostCells));
}

void tst_GridAxis::cellsThatDoNotExistAreLeftAlone()
{
    GridAxis axis;
    axis.setCount(2);
    axis.setSize(-1, 20);
    axis.setLine(2, 9);
    QCOMPARE(axis.length(), 28);
}

QTEST_MAIN(tst_GridAxis)
#include "tst_GridAxis.moc"

// SPDX-License-Identifier: MIT
// The scales' data against sums that were worked out apart from it, and how codes find their rows.
#include "tests/support/Table.h"
#include "widgets/meters/MeterScale.h"

#include <QTest>

#include <algorithm>

using Maker = MeterScale (*)();
Q_DECLARE_METATYPE(Maker)

namespace {

MeterScale summedUp(MeterScale scale)
{
    scale.sumUp();
    return scale;
}

} // namespace

class tst_MeterScale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnsAddUp_data();
    void columnsAddUp();
    void codesFindTheirRow_data();
    void codesFindTheirRow();
    void rowsOutsideAreHeldAtTheEnds();
    void aStepIsCountedFromTheNextShorterRow_data();
    void aStepIsCountedFromTheNextShorterRow();
};

void tst_MeterScale::columnsAddUp_data()
{
    // sumOfLevels: without the end row's 65535
    Table<Maker, int, int, int>()
        .row("normal", Maker(MeterScale::normal), 64, 136, 5393)
        .row("sigma", Maker(MeterScale::sigma), 4, 3, 127 + 8191)
        .row("layer", Maker(MeterScale::layer), 64, 31, 5393)
        .row("selected channel", Maker(MeterScale::selectedChannel), 64, 103, 5393)
        .row("compressor out", Maker(MeterScale::compressorOut), 74, 82, 5393 + 389)
        .row("reduction", Maker(MeterScale::reduction), 45, 111, 4336)
        .row("selected channel's reduction", Maker(MeterScale::reductionSelectedChannel), 35, 69,
             3547)
        .row("effect's reduction", Maker(MeterScale::reductionEffect), 49, 88, 4557);
}

void tst_MeterScale::columnsAddUp()
{
    const auto [make, rows, fullScale, sumOfLevels] = Table<Maker, int, int, int>::fetch();
    MeterScale scale = make();
    QCOMPARE(scale.rowCount(), rows);
    int sum = 0;
    for (const TMeterMapping &row : scale.rows().first(scale.rows().size() - 1))
        sum += row.level;
    QCOMPARE(sum, sumOfLevels);
    QCOMPARE(int(scale.rows().front().level), 0);
    QCOMPARE(int(scale.rows().back().level), 65535);
    scale.sumUp();
    QCOMPARE(scale.fullScale(), fullScale);
    for (int row = 1; row < scale.rowCount(); ++row) {
        QVERIFY2(scale.offset(row) >= scale.offset(row - 1), qPrintable(QString::number(row)));
        QVERIFY2(scale.rows()[row].level > scale.rows()[row - 1].level,
                 qPrintable(QString::number(row)));
    }
}

void tst_MeterScale::codesFindTheirRow_data()
{
    Table<Maker, int, int>()
        .row("silence is row 1", Maker(MeterScale::normal), 0, 1)
        .row("just below the first level", Maker(MeterScale::normal), 46, 1)
        .row("the first level", Maker(MeterScale::normal), 47, 2)
        .row("between two levels", Maker(MeterScale::normal), 52, 6)
        .row("full scale is the last row", Maker(MeterScale::normal), 127, 63)
        .row("nothing is beyond", Maker(MeterScale::normal), 16383, 63)
        .row("not even the end row's code", Maker(MeterScale::normal), 65535, 63)
        .row("dark lamp", Maker(MeterScale::sigma), 126, 1)
        .row("lit lamp", Maker(MeterScale::sigma), 127, 2)
        .row("no leading row", Maker(MeterScale::compressorReduction), 86, 0)
        .row("last of eight", Maker(MeterScale::compressorReduction), 127, 7);
}

void tst_MeterScale::codesFindTheirRow()
{
    const auto [make, code, row] = Table<Maker, int, int>::fetch();
    QCOMPARE(make().indexOf(static_cast<unsigned short>(code)), row);
}

void tst_MeterScale::rowsOutsideAreHeldAtTheEnds()
{
    const MeterScale scale = summedUp(MeterScale::normal());
    QCOMPARE(scale.offset(-5), 0);
    QCOMPARE(scale.offset(64), 136);
    QCOMPARE(scale.stepBelow(1000), 3);
}

void tst_MeterScale::aStepIsCountedFromTheNextShorterRow_data()
{
    Table<Maker, int, int>()
        .row("nothing is shorter", Maker(MeterScale::normal), 1, 0)
        .row("one pixel", Maker(MeterScale::normal), 2, 1)
        .row("two pixels", Maker(MeterScale::normal), 7, 2)
        .row("past a row of equal length", Maker(MeterScale::normal), 62, 6)
        .row("past rows of equal length", Maker(MeterScale::layer), 6, 1);
}

void tst_MeterScale::aStepIsCountedFromTheNextShorterRow()
{
    const auto [make, row, step] = Table<Maker, int, int>::fetch();
    QCOMPARE(summedUp(make()).stepBelow(row), step);
}

QTEST_GUILESS_MAIN(tst_MeterScale)
#include "tst_MeterScale.moc"

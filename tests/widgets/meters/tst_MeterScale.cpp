// SPDX-License-Identifier: MIT
// The scales' data against sums that were worked out apart from it, and how codes find their rows.
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
    void lengthsNeverShrink_data() { columnsAddUp_data(); }
    void lengthsNeverShrink();
    void codesFindTheirRow_data();
    void codesFindTheirRow();
    void rowsOutsideAreHeldAtTheEnds();
    void aStepIsCountedFromTheNextShorterRow_data();
    void aStepIsCountedFromTheNextShorterRow();
};

void tst_MeterScale::columnsAddUp_data()
{
    QTest::addColumn<Maker>("make");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("fullScale");
    QTest::addColumn<int>("sumOfLevels"); // without the end row's 65535
    QTest::newRow("normal") << Maker(MeterScale::normal) << 64 << 136 << 5393;
    QTest::newRow("sigma") << Maker(MeterScale::sigma) << 4 << 3 << 127 + 8191;
    QTest::newRow("layer") << Maker(MeterScale::layer) << 64 << 31 << 5393;
    QTest::newRow("selected channel") << Maker(MeterScale::selectedChannel) << 64 << 103 << 5393;
    QTest::newRow("compressor out") << Maker(MeterScale::compressorOut) << 74 << 82 << 5393 + 389;
    QTest::newRow("reduction") << Maker(MeterScale::reduction) << 45 << 111 << 4336;
    QTest::newRow("selected channel's reduction")
        << Maker(MeterScale::reductionSelectedChannel) << 35 << 69 << 3547;
    QTest::newRow("effect's reduction") << Maker(MeterScale::reductionEffect) << 49 << 88 << 4557;
}

void tst_MeterScale::columnsAddUp()
{
    QFETCH(Maker, make);
    MeterScale scale = make();
    QFETCH(int, sumOfLevels);
    QTEST(scale.rowCount(), "rows");
    int sum = 0;
    for (const TMeterMapping &row : scale.rows().first(scale.rows().size() - 1))
        sum += row.level;
    QCOMPARE(sum, sumOfLevels);
    QCOMPARE(int(scale.rows().front().level), 0);
    QCOMPARE(int(scale.rows().back().level), 65535);
    scale.sumUp();
    QTEST(scale.fullScale(), "fullScale");
}

void tst_MeterScale::lengthsNeverShrink()
{
    QFETCH(Maker, make);
    MeterScale scale = make();
    scale.sumUp();
    for (int row = 1; row < scale.rowCount(); ++row) {
        QVERIFY2(scale.offset(row) >= scale.offset(row - 1), qPrintable(QString::number(row)));
        QVERIFY2(scale.rows()[row].level > scale.rows()[row - 1].level,
                 qPrintable(QString::number(row)));
    }
}

void tst_MeterScale::codesFindTheirRow_data()
{
    QTest::addColumn<Maker>("make");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("row");
    QTest::newRow("silence is row 1") << Maker(MeterScale::normal) << 0 << 1;
    QTest::newRow("just below the first level") << Maker(MeterScale::normal) << 46 << 1;
    QTest::newRow("the first level") << Maker(MeterScale::normal) << 47 << 2;
    QTest::newRow("between two levels") << Maker(MeterScale::normal) << 52 << 6;
    QTest::newRow("full scale is the last row") << Maker(MeterScale::normal) << 127 << 63;
    QTest::newRow("nothing is beyond") << Maker(MeterScale::normal) << 16383 << 63;
    QTest::newRow("not even the end row's code") << Maker(MeterScale::normal) << 65535 << 63;
    QTest::newRow("dark lamp") << Maker(MeterScale::sigma) << 126 << 1;
    QTest::newRow("lit lamp") << Maker(MeterScale::sigma) << 127 << 2;
    QTest::newRow("no leading row") << Maker(MeterScale::compressorReduction) << 86 << 0;
    QTest::newRow("last of eight") << Maker(MeterScale::compressorReduction) << 127 << 7;
}

void tst_MeterScale::codesFindTheirRow()
{
    QFETCH(Maker, make);
    QFETCH(int, code);
    QTEST(make().indexOf(static_cast<unsigned short>(code)), "row");
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
    QTest::addColumn<Maker>("make");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("step");
    QTest::newRow("nothing is shorter") << Maker(MeterScale::normal) << 1 << 0;
    QTest::newRow("one pixel") << Maker(MeterScale::normal) << 2 << 1;
    QTest::newRow("two pixels") << Maker(MeterScale::normal) << 7 << 2;
    QTest::newRow("past a row of equal length") << Maker(MeterScale::normal) << 62 << 6;
    QTest::newRow("past rows of equal length") << Maker(MeterScale::layer) << 6 << 1;
}

void tst_MeterScale::aStepIsCountedFromTheNextShorterRow()
{
    QFETCH(Maker, make);
    MeterScale scale = make();
    QFETCH(int, row);
    scale.sumUp();
    QTEST(scale.stepBelow(row), "step");
}

QTEST_GUILESS_MAIN(tst_MeterScale)
#include "tst_MeterScale.moc"

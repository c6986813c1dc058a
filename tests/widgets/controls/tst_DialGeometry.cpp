// SPDX-License-Identifier: MIT
#include "tests/support/Table.h"
#include "widgets/controls/DialGeometry.h"

#include <QTest>

#include <cmath>

class tst_DialGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsStandForEqualPartsOfTheRange_data();
    void rowsStandForEqualPartsOfTheRange();
    void attenuatorRowsFollowTheScale_data();
    void attenuatorRowsFollowTheScale();
    void anglesGiveValues_data();
    void anglesGiveValues();
    void largeRangesTakeAStraightDragOf128Pixels_data();
    void largeRangesTakeAStraightDragOf128Pixels();
    void segmentsMeetAlsoWhenTheyOnlyTouch_data();
    void segmentsMeetAlsoWhenTheyOnlyTouch();
    void theSmallerAngleLiesBetweenVectors();
    void grabOffsetIsTheKnobsLeadOverThePress();
    void pressOnTheCentreGrabsWithoutOffset();
    void turningStopsAtBothEnds_data();
    void turningStopsAtBothEnds();
    void aJumpOfMoreThan135DegreesIsIgnored();
    void relativeDragsFollowTheTip();
};

namespace {

QPointF around(double degrees, double radius = 100)
{
    const double angle = DialGeometry::radian(degrees);
    return {radius * std::sin(angle), -radius * std::cos(angle)};
}

DialGeometry started(double knob, double press, bool relative = false)
{
    DialGeometry geometry;
    geometry.start({0, 0}, around(press), knob, -135, 135, relative);
    return geometry;
}

} // namespace

void tst_DialGeometry::rowsStandForEqualPartsOfTheRange_data()
{
    Table<int, int, int, int, int, bool, int>()
        .row("minimum", 0, 0, 100, 10, -1, false, 0)
        .row("just below the second row", 9, 0, 100, 10, -1, false, 0)
        .row("second row", 10, 0, 100, 10, -1, false, 1)
        .row("maximum", 100, 0, 100, 10, -1, false, 9)
        .row("negative minimum", 0, -50, 50, 10, -1, false, 5)
        .row("disabled first: minimum", 0, 0, 100, 10, 0, false, 1)
        .row("disabled first: maximum", 100, 0, 100, 10, 0, false, 9)
        .row("disabled last: maximum", 100, 0, 100, 10, 9, false, 8)
        .row("inverted: minimum", 0, 0, 100, 10, -1, true, 9)
        .row("inverted: maximum", 100, 0, 100, 10, -1, true, 0)
        .row("inverted, disabled first", 0, 0, 100, 10, 0, true, 8)
        .row("empty range", 5, 5, 5, 10, -1, false, 0)
        .row("only a disabled picture", 5, 0, 10, 1, 0, false, 1)
        .row("before the memory gave a range", -559038801, -559038801, 2125315823, 10, -1, false, 0)
        .row("top of the widest range", 2125315823, -559038801, 2125315823, 10, -1, false, 9);
}

void tst_DialGeometry::rowsStandForEqualPartsOfTheRange()
{
    const auto [value, minimum, maximum, rows, disabledRow, inverted, row] =
        Table<int, int, int, int, int, bool, int>::fetch();
    QCOMPARE(DialGeometry::row(value, minimum, maximum, {rows, disabledRow, inverted}), row);
}

void tst_DialGeometry::attenuatorRowsFollowTheScale_data()
{
    // For a range of -96 dB to +24 dB in tenths.
    Table<int, int>()
        .row("minimum", -960, 0)
        .row("first step of the lower part", -918, 1)
        .row("just below -30 dB", -301, 15)
        .row("-30 dB", -300, 15)
        .row("-29.9 dB", -299, 15)
        .row("-15 dB", -150, 20)
        .row("-0.1 dB", -1, 24)
        .row("0 dB", 0, 24)
        .row("+3.9 dB", 39, 24)
        .row("+4 dB", 40, 25)
        .row("just below the maximum", 239, 29)
        .row("maximum", 240, 30);
}

void tst_DialGeometry::attenuatorRowsFollowTheScale()
{
    const auto [value, row] = Table<int, int>::fetch();
    QCOMPARE(DialGeometry::attenuatorRow(value, -960, 240), row);
}

void tst_DialGeometry::anglesGiveValues_data()
{
    Table<double, int, int, int>()
        .row("start", -135.0, 0, 100, 0)
        .row("end", 135.0, 0, 100, 100)
        .row("top", 0.0, -63, 63, 0)
        .row("rounds up from half a step", -133.6, 0, 100, 1)
        .row("stays below half a step", -133.7, 0, 100, 0)
        .row("unbound range", 135.0, -559038801, 2125315823, 2125315823);
}

void tst_DialGeometry::anglesGiveValues()
{
    const auto [degrees, minimum, maximum, value] = Table<double, int, int, int>::fetch();
    QCOMPARE(DialGeometry::valueAt(degrees, minimum, maximum), value);
}

void tst_DialGeometry::largeRangesTakeAStraightDragOf128Pixels_data()
{
    Table<int, int, int>()
        .row("one a pixel", 3, 128, 3)
        .row("range of 129", 3, 129, 3)
        .row("range of 1000", 1, 1000, 7)
        .row("range of 1000, downwards", -1, 1000, -7)
        .row("whole range", 128, 1000, 1000)
        .row("no overflow", 1000000, 2000000000, 2147483647);
}

void tst_DialGeometry::largeRangesTakeAStraightDragOf128Pixels()
{
    const auto [pixels, maximum, change] = Table<int, int, int>::fetch();
    QCOMPARE(DialGeometry::straightChange(pixels, 0, maximum), change);
}

void tst_DialGeometry::segmentsMeetAlsoWhenTheyOnlyTouch_data()
{
    // Against the segment from (0, 0) to (10, 0).
    Table<QPointF, QPointF, bool, QPointF>()
        .row("crossing", QPointF(5, -5), QPointF(5, 5), true, QPointF(5, 0))
        .row("touching", QPointF(10, 0), QPointF(10, 5), true, QPointF(10, 0))
        .row("touching within the tolerance", QPointF(4, 1e-9), QPointF(4, 5), true, QPointF(4, 0))
        .row("beside", QPointF(11, -5), QPointF(11, 5), false, QPointF(-1, -1))
        .row("too short", QPointF(5, 1), QPointF(5, 5), false, QPointF(-1, -1))
        .row("parallel", QPointF(0, 0), QPointF(10, 0), false, QPointF(-1, -1));
}

void tst_DialGeometry::segmentsMeetAlsoWhenTheyOnlyTouch()
{
    const auto [c, d, meet, point] = Table<QPointF, QPointF, bool, QPointF>::fetch();
    QPointF met(-1, -1);
    QCOMPARE(DialGeometry::intersection({0, 0}, {10, 0}, c, d, met), meet);
    QVERIFY(qAbs(met.x() - point.x()) < 1e-6 && qAbs(met.y() - point.y()) < 1e-6);
}

void tst_DialGeometry::theSmallerAngleLiesBetweenVectors()
{
    QCOMPARE(DialGeometry::degree(DialGeometry::vectorAngle(around(170), around(-170))), 20.0);
    QCOMPARE(DialGeometry::degree(DialGeometry::vectorAngle(around(-30), around(60))), 90.0);
}

void tst_DialGeometry::grabOffsetIsTheKnobsLeadOverThePress()
{
    QCOMPARE(DialGeometry::degree(started(30, 10).grabOffset()), 20.0);
    QCOMPARE(started(30, 10, true).grabOffset(), 0.0);
}

void tst_DialGeometry::pressOnTheCentreGrabsWithoutOffset()
{
    DialGeometry geometry;
    geometry.start({7, 7}, {7, 7}, 40, -135, 135, false);
    QCOMPARE(geometry.grabOffset(), 0.0);
    double angle = 99;
    QVERIFY(!geometry.angleOf({7, 7}, angle));
    QCOMPARE(angle, 99.0);
}

void tst_DialGeometry::turningStopsAtBothEnds_data()
{
    Table<double, double, double, double>()
        .row("past the end, through the dead zone", 100.0, 100.0, 300.0, 135.0)
        .row("past the start, through the dead zone", -100.0, -100.0, -300.0, -135.0)
        .row("inside the sweep", 0.0, 0.0, 60.0, 60.0)
        .row("grabbed beside the pointer line", 0.0, 90.0, 130.0, 40.0);
}

void tst_DialGeometry::turningStopsAtBothEnds()
{
    const auto [knob, from, to, end] = Table<double, double, double, double>::fetch();
    DialGeometry geometry = started(knob, from);
    const double step = to > from ? 2 : -2;
    for (double angle = from; step > 0 ? angle <= to : angle >= to; angle += step)
        geometry.trace(around(angle));
    QVERIFY2(qAbs(geometry.angle() - end) < 1e-6, qPrintable(QString::number(geometry.angle())));
}

void tst_DialGeometry::aJumpOfMoreThan135DegreesIsIgnored()
{
    DialGeometry geometry = started(-100, -100);
    QCOMPARE(geometry.trace(around(36)), -100.0);
    geometry = started(-100, -100);
    QVERIFY(geometry.trace(around(34)) > 33);
}

void tst_DialGeometry::relativeDragsFollowTheTip()
{
    DialGeometry geometry = started(0, 20, true);
    QVERIFY(qAbs(geometry.trace(around(40)) - 40) < 1e-9);
}

QTEST_GUILESS_MAIN(tst_DialGeometry)
#include "tst_DialGeometry.moc"

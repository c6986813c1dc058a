// SPDX-License-Identifier: MIT
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
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("disabledRow");
    QTest::addColumn<bool>("inverted");
    QTest::addColumn<int>("row");

    QTest::newRow("minimum") << 0 << 0 << 100 << 10 << -1 << false << 0;
    QTest::newRow("just below the second row") << 9 << 0 << 100 << 10 << -1 << false << 0;
    QTest::newRow("second row") << 10 << 0 << 100 << 10 << -1 << false << 1;
    QTest::newRow("maximum") << 100 << 0 << 100 << 10 << -1 << false << 9;
    QTest::newRow("negative minimum") << 0 << -50 << 50 << 10 << -1 << false << 5;
    QTest::newRow("disabled first: minimum") << 0 << 0 << 100 << 10 << 0 << false << 1;
    QTest::newRow("disabled first: maximum") << 100 << 0 << 100 << 10 << 0 << false << 9;
    QTest::newRow("disabled last: maximum") << 100 << 0 << 100 << 10 << 9 << false << 8;
    QTest::newRow("inverted: minimum") << 0 << 0 << 100 << 10 << -1 << true << 9;
    QTest::newRow("inverted: maximum") << 100 << 0 << 100 << 10 << -1 << true << 0;
    QTest::newRow("inverted, disabled first") << 0 << 0 << 100 << 10 << 0 << true << 8;
    QTest::newRow("empty range") << 5 << 5 << 5 << 10 << -1 << false << 0;
    QTest::newRow("only a disabled picture") << 5 << 0 << 10 << 1 << 0 << false << 1;
    QTest::newRow("before the memory gave a range")
        << -559038801 << -559038801 << 2125315823 << 10 << -1 << false << 0;
    QTest::newRow("top of the widest range")
        << 2125315823 << -559038801 << 2125315823 << 10 << -1 << false << 9;
}

void tst_DialGeometry::rowsStandForEqualPartsOfTheRange()
{
    QFETCH(int, value);
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, rows);
    QFETCH(int, disabledRow);
    QFETCH(bool, inverted);
    QTEST(DialGeometry::row(value, minimum, maximum, {rows, disabledRow, inverted}), "row");
}

void tst_DialGeometry::attenuatorRowsFollowTheScale_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("row");
    // For a range of -96 dB to +24 dB in tenths.
    QTest::newRow("minimum") << -960 << 0;
    QTest::newRow("first step of the lower part") << -918 << 1;
    QTest::newRow("just below -30 dB") << -301 << 15;
    QTest::newRow("-30 dB") << -300 << 15;
    QTest::newRow("-29.9 dB") << -299 << 15;
    QTest::newRow("-15 dB") << -150 << 20;
    QTest::newRow("-0.1 dB") << -1 << 24;
    QTest::newRow("0 dB") << 0 << 24;
    QTest::newRow("+3.9 dB") << 39 << 24;
    QTest::newRow("+4 dB") << 40 << 25;
    QTest::newRow("just below the maximum") << 239 << 29;
    QTest::newRow("maximum") << 240 << 30;
}

void tst_DialGeometry::attenuatorRowsFollowTheScale()
{
    QFETCH(int, value);
    QTEST(DialGeometry::attenuatorRow(value, -960, 240), "row");
}

void tst_DialGeometry::anglesGiveValues_data()
{
    QTest::addColumn<double>("degrees");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("value");
    QTest::newRow("start") << -135.0 << 0 << 100 << 0;
    QTest::newRow("end") << 135.0 << 0 << 100 << 100;
    QTest::newRow("top") << 0.0 << -63 << 63 << 0;
    QTest::newRow("rounds up from half a step") << -133.6 << 0 << 100 << 1;
    QTest::newRow("stays below half a step") << -133.7 << 0 << 100 << 0;
    QTest::newRow("unbound range") << 135.0 << -559038801 << 2125315823 << 2125315823;
}

void tst_DialGeometry::anglesGiveValues()
{
    QFETCH(double, degrees);
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QTEST(DialGeometry::valueAt(degrees, minimum, maximum), "value");
}

void tst_DialGeometry::largeRangesTakeAStraightDragOf128Pixels_data()
{
    QTest::addColumn<int>("pixels");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("change");
    QTest::newRow("one a pixel") << 3 << 128 << 3;
    QTest::newRow("range of 129") << 3 << 129 << 3;
    QTest::newRow("range of 1000") << 1 << 1000 << 7;
    QTest::newRow("range of 1000, downwards") << -1 << 1000 << -7;
    QTest::newRow("whole range") << 128 << 1000 << 1000;
    QTest::newRow("no overflow") << 1000000 << 2000000000 << 2147483647;
}

void tst_DialGeometry::largeRangesTakeAStraightDragOf128Pixels()
{
    QFETCH(int, pixels);
    QFETCH(int, maximum);
    QTEST(DialGeometry::straightChange(pixels, 0, maximum), "change");
}

void tst_DialGeometry::segmentsMeetAlsoWhenTheyOnlyTouch_data()
{
    QTest::addColumn<QPointF>("c");
    QTest::addColumn<QPointF>("d");
    QTest::addColumn<bool>("meet");
    QTest::addColumn<QPointF>("point");
    // Against the segment from (0, 0) to (10, 0).
    QTest::newRow("crossing") << QPointF(5, -5) << QPointF(5, 5) << true << QPointF(5, 0);
    QTest::newRow("touching") << QPointF(10, 0) << QPointF(10, 5) << true << QPointF(10, 0);
    QTest::newRow("touching within the tolerance")
        << QPointF(4, 1e-9) << QPointF(4, 5) << true << QPointF(4, 0);
    QTest::newRow("beside") << QPointF(11, -5) << QPointF(11, 5) << false << QPointF(-1, -1);
    QTest::newRow("too short") << QPointF(5, 1) << QPointF(5, 5) << false << QPointF(-1, -1);
    QTest::newRow("parallel") << QPointF(0, 0) << QPointF(10, 0) << false << QPointF(-1, -1);
}

void tst_DialGeometry::segmentsMeetAlsoWhenTheyOnlyTouch()
{
    QFETCH(QPointF, c);
    QFETCH(QPointF, d);
    QFETCH(QPointF, point);
    QPointF met(-1, -1);
    QTEST(DialGeometry::intersection({0, 0}, {10, 0}, c, d, met), "meet");
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
    QTest::addColumn<double>("knob");
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::addColumn<double>("end");
    QTest::newRow("past the end, through the dead zone") << 100.0 << 100.0 << 300.0 << 135.0;
    QTest::newRow("past the start, through the dead zone") << -100.0 << -100.0 << -300.0 << -135.0;
    QTest::newRow("inside the sweep") << 0.0 << 0.0 << 60.0 << 60.0;
    QTest::newRow("grabbed beside the pointer line") << 0.0 << 90.0 << 130.0 << 40.0;
}

void tst_DialGeometry::turningStopsAtBothEnds()
{
    QFETCH(double, knob);
    QFETCH(double, from);
    QFETCH(double, to);
    QFETCH(double, end);
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

// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/TestedExport.h"

#include <QPointF>

/// The arithmetic of a knob: how a drag around its centre turns it, and how angles, values and picture
/// rows correspond. Points are in screen coordinates, y growing downwards. Angles of the knob are in
/// radians, clockwise from twelve o'clock.
class CONSOLEWIDGETS_TESTED DialGeometry
{
public:
    /// The sweep of the knob, in degrees from twelve o'clock.
    static constexpr double SweepStart = -135.0;
    static constexpr double SweepEnd = 135.0;

    static double radian(double degrees);
    static double degree(double radians);
    /// Turns a clockwise-from-top angle into a mathematical angle, and back.
    static double convertAngle(double angle);
    /// The smaller angle between two vectors, 0 to pi.
    static double vectorAngle(QPointF first, QPointF second);
    /// Where the segments from `a` to `b` and from `c` to `d` meet; touching counts. False, and `point`
    /// untouched, when they do not.
    static bool intersection(QPointF a, QPointF b, QPointF c, QPointF d, QPointF &point);

    /// The value at a knob angle in degrees. Angles beyond the sweep give values beyond the range,
    /// held inside what an int holds.
    static int valueAt(double degrees, int minimum, int maximum);
    /// The change of value for a straight drag by `pixels`: one per pixel up to a range of 128, above
    /// that the whole range for 128 pixels.
    static int straightChange(int pixels, int minimum, int maximum);

    /// How the pictures of a strip stand for values.
    struct Strip
    {
        int rows = 1;
        int disabledRow = -1;
        bool inverted = false;
    };
    /// The row for a value. May not exist in a strip that has no row for values.
    static int row(int value, int minimum, int maximum, const Strip &strip);
    /// The picture, 0 to 30, of an attenuator whose value is in tenths of a decibel.
    static int attenuatorRow(int value, int minimum, int maximum);

    /// The angle of a point about the centre; false, and `angle` untouched, at the centre itself.
    bool angleOf(QPointF point, double &angle) const;
    /// The knob angle of the running drag, in degrees.
    double angle() const { return degree(m_angle); }
    /// Difference between the knob angle and the angle of the press point.
    double grabOffset() const { return m_grabOffset; }

    /// A drag begins at `press` with the knob at `knobDegrees`; `relative`: it follows the pointer's
    /// rotation from the knob's tip instead of from the last point.
    void start(QPointF centre, QPointF press, double knobDegrees, double startDegrees,
               double endDegrees, bool relative);
    /// Follows the drag to `point` and returns the knob angle in degrees. Turning past an end stops
    /// there; a jump across the dead zone, or of more than 135 degrees, is ignored.
    double trace(QPointF point);

private:
    double approachedLimit(double turn) const;
    double step(double turn, double delta) const;
    void setAngle(double angle);

    QPointF m_centre;
    QPointF m_tip;
    QPointF m_last;
    double m_startAngle = 0;
    double m_endAngle = 0;
    double m_angle = 0;
    double m_grabOffset = 0;
    bool m_relative = false;
};

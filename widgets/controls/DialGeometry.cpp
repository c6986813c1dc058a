// SPDX-License-Identifier: MIT
#include "widgets/controls/DialGeometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

const double pi = std::acos(-1.0);

/// One over the sweep of 270 degrees.
constexpr double PerSweepDegree = 0.003703703703703704;
/// A jump beyond this angle in one event is no turn of the knob.
constexpr double LargestTurn = 2.356194490192345;
/// How far segments may miss each other and still meet.
constexpr double MeetTolerance = 1e-06;
/// A straight drag over this many pixels covers a large range.
constexpr int StraightPixels = 128;

/// The attenuator strip: -30 dB stands at picture 15, 0 dB at 24, the maximum at 30.
constexpr int AttenuatorKnee = -300;
constexpr int AttenuatorKneeRow = 15;
constexpr int AttenuatorZeroRow = 24;
constexpr int AttenuatorLastRow = 30;
constexpr int AttenuatorUpperRows = 6;

/// The integer part, as far as an int goes.
int held(double value)
{
    constexpr double low = std::numeric_limits<int>::min();
    constexpr double high = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, low, high));
}

double span(int minimum, int maximum)
{
    return static_cast<double>(maximum) - minimum;
}

double cross(QPointF a, QPointF b)
{
    return a.x() * b.y() - a.y() * b.x();
}

/// On which side of the line from `a` to `b` the point lies, and how far.
double side(QPointF point, QPointF a, QPointF b)
{
    return (point.y() - a.y()) * (b.x() - a.x()) + (point.x() - a.x()) * (a.y() - b.y());
}

} // namespace

double DialGeometry::radian(double degrees)
{
    return degrees * pi * (1.0 / 180);
}

double DialGeometry::degree(double radians)
{
    return radians * 180 / pi;
}

double DialGeometry::convertAngle(double angle)
{
    return pi * 0.5 - angle;
}

double DialGeometry::vectorAngle(QPointF first, QPointF second)
{
    const double d =
        std::abs(std::atan2(second.y(), second.x()) - std::atan2(first.y(), first.x()));
    return d >= pi ? 2 * pi - d : d;
}

bool DialGeometry::intersection(QPointF a, QPointF b, QPointF c, QPointF d, QPointF &point)
{
    const double t1 = side(d, a, b) * side(c, a, b);
    const double s1 = side(a, c, d);
    const double s2 = side(b, c, d);
    // Deliberate: segments that only touch, within the tolerance, meet. Parallel ones have no point.
    if (t1 > MeetTolerance || s1 * s2 > MeetTolerance || s1 == s2)
        return false;
    point = a + (b - a) * (s1 / (s1 - s2));
    return true;
}

int DialGeometry::valueAt(double degrees, int minimum, int maximum)
{
    const double steps = (degrees - SweepStart) * span(minimum, maximum) * PerSweepDegree + 0.5;
    return held(std::trunc(steps) + minimum);
}

int DialGeometry::straightChange(int pixels, int minimum, int maximum)
{
    const qint64 range = qint64(maximum) - minimum;
    return range > StraightPixels ? held(static_cast<double>(range * pixels / StraightPixels))
                                  : pixels;
}

int DialGeometry::row(int value, int minimum, int maximum, const Strip &strip)
{
    const int count = strip.rows - (strip.disabledRow >= 0 ? 1 : 0);
    const float perRow = static_cast<float>(span(minimum, maximum)) / static_cast<float>(count);
    const float raw = perRow > 0 ? static_cast<float>(span(minimum, value)) / perRow : 0;
    int index = std::max(0, std::min(held(raw), count - 1));
    if (strip.disabledRow == 0)
        ++index;
    return strip.inverted ? strip.rows - index - 1 : index;
}

int DialGeometry::attenuatorRow(int value, int minimum, int maximum)
{
    if (value < AttenuatorKnee) {
        const double perRow = span(minimum, AttenuatorKnee) * 0.0625;
        return perRow > 0 ? held(std::trunc(span(minimum, value) / perRow)) : 0;
    }
    if (value == AttenuatorKnee)
        return AttenuatorKneeRow;
    if (value < 0) {
        // Deliberate: 660 is fixed; with a minimum of -960 it maps -300 to 0 onto 15 to 24.
        const float above = static_cast<float>(span(minimum, value) - 660);
        return held(std::trunc(above * 0.033333335F + AttenuatorKneeRow));
    }
    if (value == 0)
        return AttenuatorZeroRow;
    if (value >= maximum)
        return AttenuatorLastRow;
    const int perRow = std::max(1, maximum / AttenuatorUpperRows);
    return value / perRow + AttenuatorZeroRow;
}

bool DialGeometry::angleOf(QPointF point, double &angle) const
{
    const QPointF d = point - m_centre;
    if (d.x() == 0 && d.y() == 0)
        return false;
    angle = convertAngle(std::atan2(-d.y(), d.x()));
    return true;
}

void DialGeometry::start(QPointF centre, QPointF press, double knobDegrees, double startDegrees,
                         double endDegrees, bool relative)
{
    m_centre = centre;
    m_last = press;
    m_startAngle = radian(startDegrees);
    m_endAngle = radian(endDegrees);
    m_relative = relative;
    setAngle(radian(knobDegrees));
    double pressAngle = 0;
    m_grabOffset = !relative && angleOf(press, pressAngle) ? m_angle - pressAngle : 0;
}

double DialGeometry::trace(QPointF point)
{
    const double turn = cross(m_centre - m_last, point - m_last);
    const QPointF reference = m_relative ? m_tip : m_last;
    const double delta = vectorAngle(reference - m_centre, point - m_centre);
    const double facing = cross(m_centre - m_tip, point - m_tip) * turn;
    const QPointF from = m_last;
    m_last = point;
    if (facing < 0) {
        // Beyond the far side of the knob: the drag goes on from where it crossed that line.
        const double opposite = convertAngle(approachedLimit(turn) + pi);
        const double reach = 2 * std::hypot(point.x() - m_centre.x(), point.y() - m_centre.y())
                             + 2 * std::hypot(from.x() - m_centre.x(), from.y() - m_centre.y());
        const QPointF far = m_centre + reach * QPointF(std::cos(opposite), -std::sin(opposite));
        intersection(from, point, m_centre, far, m_last);
    } else if (delta <= LargestTurn) {
        setAngle(m_angle + step(turn, delta));
    }
    return angle();
}

double DialGeometry::approachedLimit(double turn) const
{
    return turn >= 0 ? m_startAngle : m_endAngle;
}

double DialGeometry::step(double turn, double delta) const
{
    const double limit = approachedLimit(turn);
    return turn >= 0 ? std::max(-delta, limit - m_angle) : std::min(delta, limit - m_angle);
}

void DialGeometry::setAngle(double angle)
{
    m_angle = angle;
    const double mathematical = convertAngle(angle);
    m_tip = m_centre + QPointF(std::cos(mathematical), -std::sin(mathematical));
}

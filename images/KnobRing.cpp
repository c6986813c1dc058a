// SPDX-License-Identifier: MIT
#include "images/KnobRing.h"

#include "images/Drawing.h"
#include "images/KnobGeometry.h"
#include "images/KnobStyle.h"

#include <QConicalGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace artwork {

namespace {

constexpr QColor grooveColour(9, 10, 12, 215);
constexpr QColor grooveLip(255, 255, 255, 26);
constexpr QColor markColour(176, 184, 194, 150);
constexpr double segmentDegrees = 5.2;

// Upright and level marks have less room than diagonal ones: the cell ends there.
double markEnd(const KnobGeometry &geometry, double angle)
{
    const double room = geometry.cell.width() / 2.0 - 0.8;
    const double turn = radians(angle);
    return std::min(geometry.markOuter,
                    room / std::max(std::abs(std::sin(turn)), std::abs(std::cos(turn))));
}

void paintMarks(QPainter &painter, const KnobStyle &style)
{
    const KnobGeometry &geometry = style.geometry;
    painter.setPen(QPen(markColour, 1.0, Qt::SolidLine, Qt::FlatCap));
    for (int mark = 0; mark < style.marks; ++mark) {
        const double angle = angleAt(positionOfRow(mark, style.marks));
        painter.drawLine(pointAt(angle, geometry.markInner),
                         pointAt(angle, markEnd(geometry, angle)));
    }
}

void strokeArc(QPainter &painter, double radius, const LitArc &arc, const QPen &pen)
{
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(arcPath(radius, arc.from, arc.to));
}

// Brightens towards the value, so that the eye finds the end of the arc first.
QBrush arcBrush(const LitArc &arc, const QColor &colour)
{
    constexpr double turn = 360.0;
    constexpr double sixOClock = 180.0;
    const auto stop = [](double angle) { return (sixOClock - angle) / turn; };
    QConicalGradient gradient(QPointF(), -90.0);
    gradient.setColorAt(stop(arc.from), blend(colour, Qt::black, 0.34));
    gradient.setColorAt(stop(arc.to), colour);
    return gradient;
}

void paintGroove(QPainter &painter, const KnobGeometry &geometry, const LitArc &arc)
{
    const auto pen = [](const QColor &colour, double width) {
        return QPen(colour, width, Qt::SolidLine, Qt::FlatCap);
    };
    painter.save();
    painter.translate(0.0, 0.7);
    strokeArc(painter, geometry.ringRadius, arc, pen(grooveLip, geometry.ringWidth));
    painter.restore();
    strokeArc(painter, geometry.ringRadius, arc, pen(grooveColour, geometry.ringWidth));
}

void paintLight(QPainter &painter, const KnobGeometry &geometry, const LitArc &arc,
                const QColor &colour)
{
    const auto pen = [](const QBrush &brush, double width) {
        return QPen(brush, width, Qt::SolidLine, Qt::FlatCap);
    };
    const double width = geometry.ringWidth;
    strokeArc(painter, geometry.ringRadius, arc, pen(withAlpha(colour, 30), width + 3.6));
    strokeArc(painter, geometry.ringRadius, arc, pen(withAlpha(colour, 52), width + 1.6));
    strokeArc(painter, geometry.ringRadius, arc, pen(arcBrush(arc, colour), width - 0.5));
    const QColor core = withAlpha(blend(colour, Qt::white, 0.7), 120);
    strokeArc(painter, geometry.ringRadius, arc, pen(core, width * 0.28));
}

void paintSegments(QPainter &painter, const KnobStyle &style, double position)
{
    const int last = style.detents - 1;
    const int reached = static_cast<int>(std::lround(position * last));
    for (int step = 0; step <= last; ++step) {
        const double middle = angleAt(positionOfRow(step, style.detents));
        const LitArc segment{middle - segmentDegrees / 2, middle + segmentDegrees / 2};
        paintGroove(painter, style.geometry, segment);
        if (style.enabled && step <= reached)
            paintLight(painter, style.geometry, segment, style.accent);
    }
}

} // namespace

LitArc litArc(const KnobStyle &style, double position)
{
    const bool centred = style.origin == KnobStyle::Origin::Centre;
    return {centred ? angleAt(0.5) : firstAngle, angleAt(position)};
}

void paintRing(QPainter &painter, const KnobStyle &style, double position)
{
    paintMarks(painter, style);
    if (style.detents > 0) {
        paintSegments(painter, style, position);
        return;
    }
    paintGroove(painter, style.geometry, {firstAngle, lastAngle});
    const LitArc lit = litArc(style, position);
    if (style.enabled && lit.from != lit.to)
        paintLight(painter, style.geometry, lit, style.accent);
}

} // namespace artwork

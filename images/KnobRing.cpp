// SPDX-License-Identifier: MIT
#include "images/KnobRing.h"

#include "images/Drawing.h"
#include "images/KnobGeometry.h"
#include "images/KnobStyle.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace artwork {

namespace {

constexpr QColor grooveColour(9, 10, 12, 215);
constexpr QColor grooveLip(255, 255, 255, 26);
constexpr QColor markColour(184, 192, 202, 190);

// Layers of light around the lit part, each as strong as the others: together they fade outwards.
constexpr int glowLayers = 5;
constexpr int glowAlpha = 20;
constexpr double glowSpread = 3.2;

// A ring with detents is a row of ticks: thicker than an unbroken ring, about half of it gap.
constexpr double segmentShare = 0.5;
constexpr double segmentThickness = 1.5;

// Upright and level marks have less room than diagonal ones: the cell ends there.
double markEnd(const KnobGeometry &geometry, double angle)
{
    const double room = geometry.cell.width() / 2.0 - 1.0;
    const double turn = radians(angle);
    return std::min(geometry.markOuter,
                    room / std::max(std::abs(std::sin(turn)), std::abs(std::cos(turn))));
}

// The mark at twelve o'clock is all that can be lit while a knob that starts there rests there.
bool marksRest(const KnobStyle &style, double position, double markPosition)
{
    return style.enabled && style.origin == KnobStyle::Origin::Centre && position == 0.5
           && markPosition == position;
}

void paintMarks(QPainter &painter, const KnobStyle &style, double position)
{
    const KnobGeometry &geometry = style.geometry;
    for (int mark = 0; mark < style.marks; ++mark) {
        const double markPosition = positionOfRow(mark, style.marks);
        const double angle = angleAt(markPosition);
        const bool lit = marksRest(style, position, markPosition);
        painter.setPen(
            QPen(lit ? style.accent : markColour, lit ? 2.0 : 1.2, Qt::SolidLine, Qt::FlatCap));
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
    const auto pen = [](const QColor &shade, double width) {
        return QPen(shade, width, Qt::SolidLine, Qt::FlatCap);
    };
    const double width = geometry.ringWidth;
    for (int layer = glowLayers; layer > 0; --layer) {
        const double spread = glowSpread * layer / glowLayers;
        strokeArc(painter, geometry.ringRadius, arc,
                  pen(withAlpha(colour, glowAlpha), width + spread));
    }
    strokeArc(painter, geometry.ringRadius, arc, pen(colour, width - 0.5));
    const QColor core = withAlpha(blend(colour, Qt::white, 0.7), 120);
    strokeArc(painter, geometry.ringRadius, arc, pen(core, width * 0.28));
}

void paintSegments(QPainter &painter, const KnobStyle &style, double position)
{
    KnobGeometry geometry = style.geometry;
    geometry.ringWidth *= segmentThickness;
    const int last = style.detents - 1;
    const double half = segmentShare * (lastAngle - firstAngle) / last / 2;
    const int reached = static_cast<int>(std::lround(position * last));
    for (int step = 0; step <= last; ++step) {
        const double middle = angleAt(positionOfRow(step, style.detents));
        const LitArc segment{middle - half, middle + half};
        paintGroove(painter, geometry, segment);
        if (style.enabled && step <= reached)
            paintLight(painter, geometry, segment, style.accent);
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
    paintMarks(painter, style, position);
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

// SPDX-License-Identifier: MIT
#include "images/KnobBody.h"

#include "images/Drawing.h"
#include "images/KnobGeometry.h"
#include "images/KnobRing.h"
#include "images/KnobStyle.h"

#include <QConicalGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace artwork {

namespace {

constexpr QColor edgeColour(5, 6, 7);
constexpr QColor skirtTop(70, 74, 81);
constexpr QColor skirtBottom(20, 21, 24);
constexpr QColor metalBright(108, 113, 121);
constexpr QColor metalDark(50, 53, 58);
constexpr QColor pointerColour(246, 248, 250);

void fillCircle(QPainter &painter, double radius, const QBrush &brush)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawEllipse(QPointF(), radius, radius);
}

void strokeCircle(QPainter &painter, double radius, const QBrush &brush, double width)
{
    painter.setPen(QPen(brush, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPointF(), radius, radius);
}

// Each groove has a dark bottom and one flank that catches the light, the more the higher it is.
void paintGrip(QPainter &painter, const KnobGeometry &geometry, double turned)
{
    const double inner = geometry.capRadius + 0.9;
    const double outer = geometry.bodyRadius - 0.5;
    const double pitch = 360.0 / geometry.gripCount;
    for (int groove = 0; groove < geometry.gripCount; ++groove) {
        const double angle = turned + (groove + 0.5) * pitch;
        const double height = std::cos(radians(angle));
        const double side = std::sin(radians(angle)) < 0 ? -1.0 : 1.0;
        painter.setPen(QPen(QColor(0, 0, 0, 105), 0.9, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(pointAt(angle, inner), pointAt(angle, outer));
        const double flank = angle + side * pitch * 0.33;
        const int light = static_cast<int>(std::lround(14 + 34 * std::max(0.0, height)));
        painter.setPen(QPen(QColor(255, 255, 255, light), 0.7, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(pointAt(flank, inner), pointAt(flank, outer));
    }
}

void paintSkirt(QPainter &painter, const KnobStyle &style, double position)
{
    const double radius = style.geometry.bodyRadius;
    fillCircle(painter, radius, edgeColour);
    fillCircle(painter, radius - 0.5, fromAbove(radius, skirtTop, skirtBottom));
    paintGrip(painter, style.geometry, angleAt(position));
    strokeCircle(painter, radius - 0.9,
                 fromAbove(radius * 0.8, QColor(255, 255, 255, 92), QColor(255, 255, 255, 0)), 0.8);
}

// The lit part of the ring shines on the edge of the skirt beside it.
void paintReflection(QPainter &painter, const KnobStyle &style, double position)
{
    const LitArc lit = litArc(style, position);
    if (!style.enabled || lit.from == lit.to)
        return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(withAlpha(style.accent, 84), 0.9, Qt::SolidLine, Qt::FlatCap));
    painter.drawPath(arcPath(style.geometry.bodyRadius - 0.6, lit.from, lit.to));
}

// Turned metal shows two bright fans, towards the light and away from it.
QConicalGradient turnedMetal()
{
    QConicalGradient gradient(QPointF(), 90.0);
    const QColor middle = blend(metalDark, metalBright, 0.35);
    gradient.setColorAt(0.0, metalBright);
    gradient.setColorAt(0.12, middle);
    gradient.setColorAt(0.25, metalDark);
    gradient.setColorAt(0.38, blend(metalDark, metalBright, 0.2));
    gradient.setColorAt(0.5, blend(metalDark, metalBright, 0.5));
    gradient.setColorAt(0.62, blend(metalDark, metalBright, 0.2));
    gradient.setColorAt(0.75, metalDark);
    gradient.setColorAt(0.88, middle);
    gradient.setColorAt(1.0, metalBright);
    return gradient;
}

void paintCap(QPainter &painter, const KnobGeometry &geometry)
{
    const double radius = geometry.capRadius;
    fillCircle(painter, radius + 1.6, softShadow({0.0, 0.9}, radius - 0.6, radius + 1.6, 190));
    fillCircle(painter, radius, fromAbove(radius, QColor(168, 174, 183), QColor(28, 30, 33)));
    fillCircle(painter, radius - 0.9, turnedMetal());
    fillCircle(painter, radius - 0.9,
               fromAbove(radius, QColor(255, 255, 255, 20), QColor(0, 0, 0, 96)));
}

void paintPointer(QPainter &painter, const KnobGeometry &geometry, double angle)
{
    const QLineF line(pointAt(angle, geometry.pointerFrom), pointAt(angle, geometry.pointerTo));
    const double width = geometry.pointerWidth;
    painter.setPen(QPen(QColor(0, 0, 0, 130), width + 1.0, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(line.translated(0.0, 0.5));
    painter.setPen(QPen(pointerColour, width, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(line);
}

} // namespace

void paintCastShadow(QPainter &painter, const KnobGeometry &geometry)
{
    const double radius = geometry.bodyRadius;
    const QPointF below(0.0, radius * 0.17);
    const double reach = geometry.cell.height() / 2.0 - below.y() - 1.0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(softShadow(below, radius * 0.8, reach, 170));
    painter.drawEllipse(below, reach, reach);
}

void paintBody(QPainter &painter, const KnobStyle &style, double position)
{
    paintSkirt(painter, style, position);
    paintReflection(painter, style, position);
    paintCap(painter, style.geometry);
    if (style.enabled)
        paintPointer(painter, style.geometry, angleAt(position));
}

} // namespace artwork

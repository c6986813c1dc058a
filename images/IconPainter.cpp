// SPDX-License-Identifier: MIT
#include "images/IconPainter.h"

#include "images/Drawing.h"
#include "images/KnobGeometry.h"
#include "images/KnobPainter.h"
#include "images/KnobStyle.h"

#include <QPainter>

namespace artwork {

namespace {

void paintPlate(QPainter &painter)
{
    QLinearGradient plate(0, 2, 0, 62);
    plate.setColorAt(0.0, QColor(70, 76, 85));
    plate.setColorAt(1.0, QColor(27, 29, 33));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(10, 11, 13));
    painter.drawRoundedRect(QRectF(2, 2, 60, 60), 14, 14);
    painter.setBrush(plate);
    painter.drawRoundedRect(QRectF(2.6, 2.6, 58.8, 58.8), 13.4, 13.4);
    QLinearGradient shine(0, 3, 0, 30);
    shine.setColorAt(0.0, QColor(255, 255, 255, 80));
    shine.setColorAt(1.0, QColor(255, 255, 255, 0));
    painter.setPen(QPen(shine, 0.7));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(3, 3, 58, 58), 13, 13);
}

void paintLamp(QPainter &painter, const QColor &colour)
{
    const QPointF centre(toolIconSide / 2.0, toolIconSide / 2.0);
    painter.setPen(Qt::NoPen);
    QRadialGradient glow(centre, 9);
    glow.setColorAt(0.5, withAlpha(colour, 90));
    glow.setColorAt(1.0, withAlpha(colour, 0));
    painter.setBrush(glow);
    painter.drawEllipse(centre, 9, 9);
    QLinearGradient lamp(0, 5, 0, 15);
    lamp.setColorAt(0.0, blend(colour, Qt::white, 0.25));
    lamp.setColorAt(1.0, blend(colour, Qt::black, 0.12));
    painter.setBrush(lamp);
    painter.drawEllipse(centre, 5.5, 5.5);
}

} // namespace

void paintApplicationIcon(QPainter &painter, QSize size)
{
    constexpr double drawnSide = 64.0;
    constexpr double knobShare = 0.96;
    painter.save();
    painter.scale(size.width() / drawnSide, size.height() / drawnSide);
    paintPlate(painter);
    const double margin = (drawnSide - knobShare * largeKnob.cell.width()) / 2;
    painter.translate(margin, margin);
    painter.scale(knobShare, knobShare);
    paintKnob(painter, {.geometry = largeKnob, .accent = accent::amber, .marks = 0}, 0.68);
    painter.restore();
}

void paintUndo(QPainter &painter, QSize)
{
    QPainterPath arrow(QPointF(4, 8));
    arrow.lineTo(12, 8);
    arrow.arcTo(QRectF(8, 8, 8, 8), 90, -180);
    arrow.lineTo(7, 16);
    arrow.moveTo(8, 4);
    arrow.lineTo(4, 8);
    arrow.lineTo(8, 12);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(lineColour, 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(arrow);
}

void paintRedo(QPainter &painter, QSize size)
{
    painter.save();
    painter.translate(size.width(), 0);
    painter.scale(-1, 1);
    paintUndo(painter, size);
    painter.restore();
}

void paintOnline(QPainter &painter, QSize)
{
    paintLamp(painter, accent::green);
}

void paintOffline(QPainter &painter, QSize)
{
    paintLamp(painter, accent::red);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(46, 10, 8));
    painter.drawRoundedRect(QRectF(7, 9, 6, 2), 0.6, 0.6);
}

} // namespace artwork

// SPDX-License-Identifier: MIT
#include "images/LampPainter.h"

#include "images/Drawing.h"
#include "images/KnobStyle.h"
#include "images/StrokeText.h"

#include <QPainter>

namespace artwork {

namespace {

constexpr QColor lampGround(32, 35, 39);
constexpr QColor lampWell(10, 11, 13);
constexpr QColor faintLine(104, 111, 120);
constexpr int groupCount = 8;
constexpr double linePen = 1.3;

QPen roundPen(const QColor &colour, double width = linePen)
{
    return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void paintLamp(QPainter &painter, const QRectF &body, const QColor &colour, bool lit)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(lit ? blend(colour, lampWell, 0.55) : lampWell);
    painter.drawRoundedRect(body.adjusted(-1, -1, 1, 1), 3, 3);
    QLinearGradient face(body.topLeft(), body.bottomLeft());
    face.setColorAt(0, lit ? blend(colour, Qt::white, 0.4) : blend(colour, lampWell, 0.72));
    face.setColorAt(1, lit ? colour : blend(colour, lampWell, 0.82));
    painter.setBrush(face);
    painter.drawRoundedRect(body, 2, 2);
}

void paintGroupLamps(QPainter &painter, QSize size, bool lit)
{
    painter.fillRect(QRect(QPoint(0, 0), size), lampGround);
    const double height = double(size.height()) / groupCount;
    for (int lamp = 0; lamp < groupCount; ++lamp)
        paintLamp(painter, QRectF(3, lamp * height + 3, size.width() - 6, height - 6),
                  accent::amber, lit);
}

/// A slope that rises to a level line.
QPainterPath highPass(const QPointF &left)
{
    QPainterPath curve(left + QPointF(0, 3));
    curve.cubicTo(left + QPointF(5, -2), left + QPointF(6, -3), left + QPointF(10, -3));
    curve.lineTo(left + QPointF(16, -3));
    return curve;
}

void paintPortLamps(QPainter &painter, QSize size, bool lit)
{
    painter.fillRect(QRect(QPoint(0, 0), size), lampGround);
    const double height = size.height() / 2.0;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(roundPen(lit ? blend(accent::red, Qt::white, 0.5) : faintLine, 1.1));
    painter.drawPath(strokeText("48V", 6).translated(24, height / 2));
    painter.setPen(roundPen(lit ? blend(accent::blue, Qt::white, 0.5) : faintLine, 1.1));
    painter.drawPath(highPass({16, height * 1.5}));
    paintLamp(painter, QRectF(4, 3.5, 6, height - 7), accent::red, lit);
    paintLamp(painter, QRectF(4, height + 3.5, 6, height - 7), accent::blue, lit);
}

void paintSlats(QPainter &painter, const QRectF &area, const QColor &top, const QColor &bottom)
{
    constexpr double pitch = 8;
    for (double y = area.top(); y < area.bottom(); y += pitch) {
        QLinearGradient slat(0, y, 0, y + pitch);
        slat.setColorAt(0, top);
        slat.setColorAt(0.85, bottom);
        slat.setColorAt(1, lampWell);
        painter.fillRect(QRectF(area.left(), y, area.width(), pitch), slat);
    }
}

void paintEdge(QPainter &painter, QSize size, const QColor &colour)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, 1));
    painter.drawRect(QRectF(QPointF(0.5, 0.5), QSizeF(size) - QSizeF(1, 1)));
}

} // namespace

void paintGroupLampsLit(QPainter &painter, QSize size)
{
    paintGroupLamps(painter, size, true);
}

void paintGroupLampsDark(QPainter &painter, QSize size)
{
    paintGroupLamps(painter, size, false);
}

void paintPortLampsLit(QPainter &painter, QSize size)
{
    paintPortLamps(painter, size, true);
}

void paintPortLampsDark(QPainter &painter, QSize size)
{
    paintPortLamps(painter, size, false);
}

void paintPairStates(QPainter &painter, QSize size)
{
    constexpr double radius = 7;
    const QPointF middle(size.width() / 2.0, size.height() / 4.0);
    painter.fillRect(QRect(QPoint(0, 0), size), lampGround);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(roundPen(faintLine, 1.8));
    painter.drawEllipse(middle, radius, radius);
    painter.setPen(roundPen(accent::teal, 2.2));
    for (const double side : {-4.5, 4.5})
        painter.drawEllipse(middle + QPointF(side, size.height() / 2.0), radius, radius);
}

void paintRollClosed(QPainter &painter, QSize size)
{
    paintSlats(painter, QRectF(QPointF(0, 0), QSizeF(size)), QColor(74, 79, 87),
               QColor(46, 50, 56));
    painter.setPen(roundPen(withAlpha(Qt::white, 150), 1.8));
    const QPointF middle(size.width() / 2.0, size.height() / 2.0);
    painter.drawPolyline(
        QPolygonF({middle + QPointF(-7, -3), middle + QPointF(0, 4), middle + QPointF(7, -3)}));
    paintEdge(painter, size, lampWell);
}

void paintRollMoving(QPainter &painter, QSize size)
{
    paintRollOpen(painter, size);
    // The lower bar, by which the panel is pulled down.
    painter.fillRect(QRect(0, size.height() - 4, size.width(), 4), accent::teal);
}

void paintRollOpen(QPainter &painter, QSize size)
{
    QLinearGradient ground(0, 0, 0, size.height());
    ground.setColorAt(0, QColor(24, 27, 30));
    ground.setColorAt(1, QColor(40, 44, 49));
    painter.fillRect(QRect(QPoint(0, 0), size), ground);
    paintEdge(painter, size, blend(accent::teal, lampWell, 0.6));
}

} // namespace artwork

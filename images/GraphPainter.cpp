// SPDX-License-Identifier: MIT
#include "images/GraphPainter.h"

#include <QColor>
#include <QPainter>
#include <QPainterPath>

namespace artwork {

namespace {

constexpr QColor groundColour(16, 18, 21);
constexpr QColor gridColour(42, 47, 53);
constexpr QColor zeroColour(84, 94, 104);
constexpr QColor diagonalColour(66, 74, 83);
constexpr QColor frameColour(70, 78, 87);
constexpr QColor numberColour(150, 160, 171);

constexpr int lowestLevel = -72;
constexpr int span = 90;
constexpr int firstLine = -60;
constexpr int lineDistance = 20;
constexpr int lastLine = 0;
constexpr int roomyWidth = 150;

constexpr double numberHeight = 7;
constexpr double digitWidth = 4.4;
constexpr double digitAdvance = 6.6;

/// The pixel of a level on an axis whose pixels end at `last`.
int placeOf(int level, int last)
{
    return (level - lowestLevel) * last / span;
}

/// The strokes of a character that levels are written with, in a box of 1 by 1.
QPainterPath strokesOf(QChar character)
{
    QPainterPath path;
    switch (character.unicode()) {
    case '-':
        path.moveTo(0.1, 0.55);
        path.lineTo(0.9, 0.55);
        break;
    case '0': path.addEllipse(QRectF(0, 0, 1, 1)); break;
    case '2':
        path.moveTo(0.02, 0.25);
        path.cubicTo(0.1, -0.1, 0.95, -0.08, 0.97, 0.28);
        path.cubicTo(0.97, 0.55, 0.3, 0.75, 0, 1);
        path.lineTo(1, 1);
        break;
    case '4':
        path.moveTo(0.75, 1);
        path.lineTo(0.75, 0);
        path.lineTo(0, 0.7);
        path.lineTo(1, 0.7);
        break;
    case '6':
        path.moveTo(0.85, 0.02);
        path.cubicTo(0.35, 0.1, 0, 0.4, 0, 0.68);
        path.addEllipse(QRectF(0, 0.4, 1, 0.6));
        break;
    default: break;
    }
    return path;
}

/// Writes a level around `centre`.
void paintNumber(QPainter &painter, int level, const QPointF &centre)
{
    const QString text = QString::number(level);
    const double width = (text.size() - 1) * digitAdvance + digitWidth;
    painter.save();
    painter.translate(centre.x() - width / 2, centre.y() - numberHeight / 2);
    painter.setPen(QPen(numberColour, 1.1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QTransform box = QTransform::fromScale(digitWidth, numberHeight);
    for (const QChar character : text) {
        painter.drawPath(box.map(strokesOf(character)));
        painter.translate(digitAdvance, 0);
    }
    painter.restore();
}

} // namespace

void paintDynamicsGround(QPainter &painter, QSize size)
{
    const QSize last = size - QSize(1, 1);
    painter.fillRect(QRect(QPoint(), size), groundColour);
    painter.setPen(QPen(diagonalColour, 1, Qt::DotLine));
    painter.drawLine(QLineF(0.5, last.height() + 0.5, last.width() + 0.5, 0.5));
    for (int level = firstLine; level <= lastLine; level += lineDistance) {
        const QColor colour = level == 0 ? zeroColour : gridColour;
        painter.fillRect(placeOf(level, last.width()), 0, 1, size.height(), colour);
        painter.fillRect(0, last.height() - placeOf(level, last.height()), size.width(), 1, colour);
    }
}

void paintDynamicsScale(QPainter &painter, QSize size)
{
    const QSize ground = size - DynamicsScale::around(0);
    const QRect free(QPoint(DynamicsScale::Left, DynamicsScale::Above), ground);
    painter.setPen(QPen(frameColour, 1));
    painter.drawRect(QRectF(free).adjusted(-0.5, -0.5, 0.5, 0.5));
    const QSize last = ground - QSize(1, 1);
    for (int level = firstLine; level <= lastLine; level += lineDistance)
        paintNumber(painter, level,
                    {free.left() - 15.0, free.bottom() - placeOf(level, last.height()) + 0.5});
    // Side by side numbers need more room than below each other.
    const int distance = last.width() < roomyWidth ? 2 * lineDistance : lineDistance;
    for (int level = lastLine; level >= firstLine; level -= distance) {
        // The minus sign would push the digits off their line.
        const double sign = level < 0 ? digitAdvance / 2 : 0;
        paintNumber(
            painter, level,
            {free.left() + placeOf(level, last.width()) + 0.5 - sign, free.bottom() + 11.0});
    }
}

} // namespace artwork

// SPDX-License-Identifier: MIT
#include "images/KeyPainter.h"

#include "images/Drawing.h"
#include "images/StrokeText.h"

#include <QImage>
#include <QPainter>

#include <algorithm>

namespace artwork {

namespace {

enum KeyRow { OnRow, OffRow, HeldRow, DisabledRow };

constexpr QColor wellColour(8, 9, 10);
constexpr QColor rubberTop(74, 79, 87);
constexpr QColor rubberBottom(42, 45, 50);
constexpr QColor labelColour(214, 219, 226);
constexpr QColor litLabelColour(16, 17, 18);
constexpr double corner = 3.5;
constexpr double labelShare = 0.36; ///< height of the label, of the key's
constexpr double labelPen = 1.35;
constexpr double labelPenShare = 0.05; ///< of large keys: width of the pen, of the key's height

struct Face
{
    QColor top;
    QColor bottom;
    QColor label;
    QColor edge; ///< the line of light along the upper edge, of shade when the key is held
    double sink; ///< how far the label moves down
};

Face faceOf(const KeyStrip &strip, int row)
{
    switch (row) {
    case OnRow:
        return {blend(strip.accent, Qt::white, 0.3), blend(strip.accent, Qt::black, 0.1),
                litLabelColour, withAlpha(Qt::white, 150), 0};
    case HeldRow:
        return {blend(rubberBottom, Qt::black, 0.35), blend(rubberTop, Qt::black, 0.3),
                blend(strip.accent, Qt::white, 0.35), withAlpha(Qt::black, 150), 0.7};
    case DisabledRow:
        return {QColor(48, 51, 56), QColor(44, 47, 52), QColor(88, 93, 100),
                withAlpha(Qt::white, 10), 0};
    default: return {rubberTop, rubberBottom, labelColour, withAlpha(Qt::white, 52), 0};
    }
}

void paintKey(QPainter &painter, const KeyStrip &strip, int row)
{
    const Face face = faceOf(strip, row);
    const QRectF well(QPointF(0.5, 0.5), QSizeF(strip.cell) - QSizeF(1, 1));
    const QRectF body = well.adjusted(1, 1, -1, -1);
    painter.setPen(Qt::NoPen);
    painter.setBrush(row == OnRow ? blend(strip.accent, wellColour, 0.55) : wellColour);
    painter.drawRoundedRect(well, corner + 1, corner + 1);
    QLinearGradient shade(body.topLeft(), body.bottomLeft());
    shade.setColorAt(0, face.top);
    shade.setColorAt(1, face.bottom);
    painter.setBrush(shade);
    painter.drawRoundedRect(body, corner, corner);
    QLinearGradient edge(body.topLeft(), body.topLeft() + QPointF(0, body.height() / 2));
    edge.setColorAt(0, face.edge);
    edge.setColorAt(1, withAlpha(face.edge, 0));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(edge, 1));
    painter.drawRoundedRect(body.adjusted(0.5, 0.5, -0.5, -0.5), corner - 0.5, corner - 0.5);
    const double pen = std::max(labelPen, labelPenShare * strip.cell.height());
    painter.setPen(QPen(face.label, pen, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(strokeText(strip.label, labelShare * strip.cell.height())
                         .translated(body.center() + QPointF(0, face.sink)));
}

} // namespace

QSize sizeOf(const KeyStrip &strip)
{
    return {strip.cell.width(), strip.cell.height() * strip.rows};
}

void paintStrip(QPainter &painter, const KeyStrip &strip)
{
    for (int row = 0; row < strip.rows; ++row) {
        painter.save();
        painter.translate(0, row * strip.cell.height());
        paintKey(painter, strip, row);
        painter.restore();
    }
}

} // namespace artwork

// SPDX-License-Identifier: MIT
#include "images/KnobStrip.h"

#include "images/KnobGeometry.h"
#include "images/KnobPainter.h"

#include <QImage>
#include <QPainter>

namespace artwork {

namespace {

// Each cell is drawn on its own, so that rounding does not depend on its place in the strip: equal
// knobs give equal pictures, and alike ones compress well.
QImage cellPicture(const KnobStyle &style, double position, double ratio)
{
    QImage picture(style.geometry.cell * ratio, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    paintKnob(painter, style, position);
    return picture;
}

void paintColumn(QPainter &painter, const KnobStyle &style, const KnobStrip &strip)
{
    const double ratio = painter.device()->devicePixelRatioF();
    QPointF place;
    const auto append = [&](const KnobStyle &look, double position) {
        painter.drawImage(place, cellPicture(look, position, ratio));
        place.ry() += style.geometry.cell.height();
    };
    if (strip.disabledRow) {
        KnobStyle disabled = style;
        disabled.enabled = false;
        append(disabled, 0.0);
    }
    for (int row = 0; row < strip.rows; ++row)
        append(style, positionOfRow(row, strip.rows));
}

} // namespace

QSize sizeOf(const KnobStrip &strip)
{
    const QSize cell = strip.columns.front().geometry.cell;
    const int rows = strip.rows + (strip.disabledRow ? 1 : 0);
    return {cell.width() * static_cast<int>(strip.columns.size()), cell.height() * rows};
}

void paintStrip(QPainter &painter, const KnobStrip &strip)
{
    painter.save();
    for (const KnobStyle &style : strip.columns) {
        paintColumn(painter, style, strip);
        painter.translate(style.geometry.cell.width(), 0);
    }
    painter.restore();
}

} // namespace artwork

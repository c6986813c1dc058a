// SPDX-License-Identifier: MIT
#include "images/KnobStrip.h"

#include "images/KnobGeometry.h"
#include "images/KnobPainter.h"

#include <QPainter>

namespace artwork {

namespace {

void paintColumn(QPainter &painter, const KnobStyle &style, const KnobStrip &strip)
{
    painter.save();
    const int height = style.geometry.cell.height();
    if (strip.disabledRow) {
        KnobStyle disabled = style;
        disabled.enabled = false;
        paintKnob(painter, disabled, 0.0);
        painter.translate(0, height);
    }
    for (int row = 0; row < strip.rows; ++row) {
        paintKnob(painter, style, positionOfRow(row, strip.rows));
        painter.translate(0, height);
    }
    painter.restore();
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

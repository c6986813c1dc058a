// SPDX-License-Identifier: MIT
#include "images/KnobPainter.h"

#include "images/KnobBody.h"
#include "images/KnobGeometry.h"
#include "images/KnobRing.h"
#include "images/KnobStyle.h"

#include <QPainter>

namespace artwork {

namespace {

// A pale knob keeps its shape: the operator still sees that something could be there.
constexpr double disabledOpacity = 0.5;

} // namespace

void paintKnob(QPainter &painter, const KnobStyle &style, double position)
{
    const QSizeF cell = style.geometry.cell;
    painter.save();
    painter.setClipRect(QRectF(QPointF(), cell));
    painter.translate(cell.width() / 2, cell.height() / 2);
    if (!style.enabled)
        painter.setOpacity(disabledOpacity);
    paintCastShadow(painter, style.geometry);
    paintRing(painter, style, position);
    paintBody(painter, style, position);
    painter.restore();
}

} // namespace artwork

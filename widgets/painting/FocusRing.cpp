// SPDX-License-Identifier: MIT
#include "widgets/painting/FocusRing.h"

#include <QPainter>
#include <QWidget>

void focusring::draw(QPainter &painter, const QWidget &control, const QColor &colour)
{
    constexpr qreal cornerRadius = 3;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(colour.isValid() ? colour : control.palette().color(QPalette::Highlight));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(control.rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius,
                            cornerRadius);
}

// SPDX-License-Identifier: MIT
#include "widgets/graphs/DynamicsGraph.h"

#include <QPainter>
#include <QWidget>

SegmentPlotter dynamicsgraph::plotter(QPainter &painter)
{
    return SegmentPlotter(
        [&painter](QPoint dot) { painter.fillRect(QRect(dot, QSize(1, 1)), CurveColour); });
}

QPixmap dynamicsgraph::background(const QPixmap &known, const QWidget &widget,
                                  const QPixmap &picture)
{
    const QSize pixels = (QSizeF(widget.size()) * widget.devicePixelRatio()).toSize();
    if (known.size() == pixels)
        return known;
    QPixmap pixmap(pixels);
    pixmap.setDevicePixelRatio(widget.devicePixelRatio());
    if (pixmap.isNull())
        return pixmap;
    pixmap.fill(widget.palette().color(widget.backgroundRole()));
    QPainter(&pixmap).drawPixmap(0, 0, picture);
    return pixmap;
}

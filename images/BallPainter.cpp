// SPDX-License-Identifier: MIT
#include "images/BallPainter.h"

#include "images/Drawing.h"
#include "images/KnobStyle.h"

#include <QPainter>

namespace artwork {

namespace {

void paintBall(QPainter &painter, QSize size, const QColor &colour)
{
    const QPointF centre(size.width() / 2.0, size.height() / 2.0);
    const double radius = size.width() / 2.0 - 0.5;
    QRadialGradient light(centre, radius, centre - QPointF(radius, radius) * 0.35);
    light.setColorAt(0.0, blend(colour, Qt::white, 0.7));
    light.setColorAt(0.45, colour);
    light.setColorAt(1.0, blend(colour, Qt::black, 0.3));
    painter.setPen(Qt::NoPen);
    painter.setBrush(light);
    painter.drawEllipse(centre, radius, radius);
}

} // namespace

void paintAmberBall(QPainter &painter, QSize size)
{
    paintBall(painter, size, accent::amber);
}

void paintBlueBall(QPainter &painter, QSize size)
{
    paintBall(painter, size, accent::blue);
}

void paintGreenBall(QPainter &painter, QSize size)
{
    paintBall(painter, size, accent::green);
}

} // namespace artwork

// SPDX-License-Identifier: MIT
#include "widgets/graphs/DynamicsGraph.h"

#include "widgets/painting/Picture.h"

void dynamicsgraph::drawGround(QPainter &painter, const QWidget &widget, const QPixmap &picture,
                               const QBrush &background)
{
    Picture ground(widget.size());
    ground.fill(background);
    ground.add(picture, picture.rect());
    ground.draw(painter);
}

void dynamicsgraph::CurvePainter::plotToFit(const SegmentPlotter::Curve &curve)
{
    plotter().plotToFit(size(), curve);
}

void dynamicsgraph::CurvePainter::plotPixelPerDecibel(const SegmentPlotter::Curve &curve)
{
    plotter().plotPixelsPerDecibel(m_pixels.ratio(), size(), curve);
}

/// A dot is as wide as the line.
SegmentPlotter dynamicsgraph::CurvePainter::plotter()
{
    const QSize dot(m_pixels.width(1), m_pixels.width(1));
    return SegmentPlotter(
        [this, dot](QPoint corner) { m_painter.fillRect(QRect(corner, dot), CurveColour); });
}

/// Where the upper left corners of dots may be.
QSize dynamicsgraph::CurvePainter::size() const
{
    const int more = m_pixels.width(1) - 1;
    return m_pixels.all().size() - QSize(more, more);
}

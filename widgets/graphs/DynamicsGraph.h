// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/graphs/SegmentPlotter.h"
#include "widgets/painting/OnDevicePixels.h"

#include <QColor>
#include <QPixmap>
#include <QWidget>

/// What the graphs of dynamics blocks have in common.
namespace dynamicsgraph {

// Where the parameters of every dynamics block are, beside the threshold.
constexpr qint16 TypeIndex = 1;
constexpr qint16 RangeIndex = 10;
constexpr qint16 RatioIndex = 13;
constexpr qint16 GainIndex = 14;
constexpr qint16 KneeIndex = 15;

constexpr QSize SizeWithoutPicture(40, 30);
constexpr QColor CurveColour(255, 255, 0);
constexpr QColor GroundColour(20, 22, 25); ///< of a graph that has nothing else behind its curve

/// Draws the ground of a graph: `picture` in the upper left corner of `widget`, on `background`.
void drawGround(QPainter &painter, const QWidget &widget, const QPixmap &picture,
                const QBrush &background);

/// Draws curves on a widget, in pixels of the device, so that a line is everywhere equally wide: about
/// one device-independent pixel.
class CurvePainter
{
public:
    CurvePainter(QPainter &painter, const QWidget &widget)
        : m_painter(painter), m_pixels(painter, widget.size())
    {
    }

    /// SegmentPlotter::plotToFit() in the whole widget.
    void plotToFit(const SegmentPlotter::Curve &curve);
    /// One device-independent pixel per decibel, from the widget's lower left corner.
    void plotPixelPerDecibel(const SegmentPlotter::Curve &curve);

private:
    SegmentPlotter plotter();
    QSize size() const;

    QPainter &m_painter;
    OnDevicePixels m_pixels;
};

} // namespace dynamicsgraph

// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/graphs/SegmentPlotter.h"

#include <QColor>
#include <QPixmap>

class QPainter;
class QWidget;

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

/// Draws with the curve's colour; a dot is one device-independent pixel, whatever the scale.
SegmentPlotter plotter(QPainter &painter);

/// `known` if it still fits the widget, else a pixmap of the widget's size: `picture` in its upper left
/// corner on the background colour.
QPixmap background(const QPixmap &known, const QWidget &widget, const QPixmap &picture);

} // namespace dynamicsgraph

// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

namespace artwork {

/// Sweep of every knob in degrees; twelve o'clock is 0, clockwise is positive.
constexpr double firstAngle = -135.0;
constexpr double lastAngle = 135.0;

/// Radii and widths of one knob size, in device-independent pixels, measured from its centre.
struct KnobGeometry
{
    QSize cell;         ///< size of one picture in a strip
    double ringRadius;  ///< middle line of the value ring
    double ringWidth;   ///< thickness of the value ring
    double markInner;   ///< where the marks outside the ring begin
    double markOuter;   ///< where they end on the diagonals
    double bodyRadius;  ///< rubber skirt
    double capRadius;   ///< metal cap on the skirt, edge included
    double pointerFrom; ///< inner end of the indicator line
    double pointerTo;   ///< outer end of the indicator line
    double pointerWidth;
    int gripCount; ///< grooves around the skirt
};

/// The two sizes of the editor: main controls and the dense rows of a strip.
extern const KnobGeometry largeKnob;
extern const KnobGeometry smallKnob;

/// Angle in degrees of a `position` between 0 (minimum) and 1 (maximum).
double angleAt(double position);

/// Position 0..1 of picture `row` when `rows` pictures run from minimum to maximum.
double positionOfRow(int row, int rows);

} // namespace artwork

// SPDX-License-Identifier: MIT
#pragma once

#include "images/KnobStyle.h"

#include <QSize>

#include <vector>

class QPainter;

namespace artwork {

/// A strip of knob pictures: equal cells, minimum in the top row, maximum in the bottom row.
struct KnobStrip
{
    std::vector<KnobStyle> columns; ///< one column of cells per category; all of one geometry
    int rows = 121;                 ///< pictures from minimum to maximum
    bool disabledRow = false;       ///< one more row on top, with the look of a disabled knob
};

/// Size of the whole strip in device-independent pixels.
QSize sizeOf(const KnobStrip &strip);

/// Draws all cells of `strip`, beginning at the painter's origin.
void paintStrip(QPainter &painter, const KnobStrip &strip);

} // namespace artwork

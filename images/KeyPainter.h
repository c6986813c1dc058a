// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QSize>

class QPainter;

namespace artwork {

/// A strip of key pictures, one below the other: on, off, held down, disabled, as far as `rows` goes.
struct KeyStrip
{
    QSize cell;
    const char *label; ///< see strokeText()
    QColor accent;     ///< of the lit key
    int rows = 4;
};

/// Size of the whole strip in device-independent pixels.
QSize sizeOf(const KeyStrip &strip);

/// Draws all cells of `strip`, beginning at the painter's origin; the panel shows between them.
void paintStrip(QPainter &painter, const KeyStrip &strip);

} // namespace artwork

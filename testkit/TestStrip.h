// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QPixmap>

/// Strips whose cells tell by their colour which they are.
namespace teststrip {

/// What the cell in that place is filled with.
inline QColor colour(int column, int row)
{
    return QColor(40 + 10 * row % 200, 60 + 50 * column, 200 - 7 * row % 150);
}

/// `ratio` is the device pixel ratio: the strip has that many times the pixels.
inline QPixmap make(int columns, int rows, const QSize &cell, int ratio = 1)
{
    QPixmap strip(QSize(cell.width() * columns, cell.height() * rows) * ratio);
    QPainter painter(&strip);
    for (int column = 0; column < columns; ++column) {
        for (int row = 0; row < rows; ++row)
            painter.fillRect(
                QRect(QPoint(column * cell.width(), row * cell.height()) * ratio, cell * ratio),
                colour(column, row));
    }
    painter.end();
    strip.setDevicePixelRatio(ratio);
    return strip;
}

} // namespace teststrip

// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/utilities/NS_Utilities.h"
#include "testkit/TestStrip.h"

#include <QWidget>

/// Keys of the size of a test strip's cells, and what they show.
namespace keystrip {

constexpr QSize Cell(30, 20);
/// Rows of a strip.
enum Row { On, Off, Held, Disabled };

inline QPixmap make(int rows, int columns = 1, int ratio = 1)
{
    return teststrip::make(columns, rows, Cell, ratio);
}

/// The colour in the middle of what is on the screen.
inline QColor shown(QWidget &key)
{
    const QImage image = key.grab().toImage();
    return image.pixelColor(image.rect().center());
}

inline QColor grey(const QColor &colour)
{
    QPixmap plain(4, 4);
    plain.fill(colour);
    return NS_Utilities::applyGreyTransformation(plain).pixelColor(1, 1);
}

} // namespace keystrip

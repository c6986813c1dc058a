// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QRegion>

class QWidget;

/// What windows show, pixel by pixel. GUI thread.
namespace windowpicture {

/// What the window's backing store holds; null where the window has none to look into. What waits to
/// be painted is painted first.
QImage present(QWidget &window);

/// The same after everything in the window has been painted anew.
QImage repainted(QWidget &window);

/// All pixels that differ; everything where the pictures are not of one size and kind.
QRegion differing(const QImage &one, const QImage &other);

/// The innermost widget at the middle of a rectangle in the window's pixels.
QWidget *widgetAt(QWidget &window, const QImage &picture, const QRect &pixels);

} // namespace windowpicture

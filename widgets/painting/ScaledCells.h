// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/TestedExport.h"

#include <QImage>

class QPixmap;

/// Cells of pictures in the number of pixels that they take on the screen. Each is scaled when it is
/// first drawn, alone, so that its neighbours do not bleed into it, and kept for all controls that show
/// the picture. Those that were not drawn for the longest time are dropped when there are too many.
/// GUI thread.
namespace scaledcells {

/// All that is kept together, in bytes.
constexpr qsizetype MostBytes = 64 * 1024 * 1024;

/// The cell of `picture` scaled to `size` pixels: Format_RGB32, or Format_ARGB32_Premultiplied where the
/// picture lets something through. Holds until the next call.
CONSOLEWIDGETS_TESTED const QImage &find(const QPixmap &picture, const QRect &cell,
                                         const QSize &size);

/// What is kept now, in bytes.
CONSOLEWIDGETS_TESTED qsizetype bytes();

} // namespace scaledcells

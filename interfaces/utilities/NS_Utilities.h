// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/Export.h"

#include <QImage>
#include <QPixmap>
#include <QPoint>
#include <QSize>

class QPainter;

/// Small services that the widgets expect from the editor's platform.
namespace NS_Utilities {

/// Whether the caller runs on the GUI thread. False before there is an application. Any thread.
CONSOLECOMPANIONS_EXPORT bool mainThreadRunning();

/// Loads a picture by file or resource name. Beside "name.png" a version with twice the pixels,
/// "name@2x.png" (likewise @3x), is preferred when a screen is scaled; its device pixel ratio is set.
/// A null pixmap, and one warning per name, when there is none. GUI thread.
CONSOLECOMPANIONS_EXPORT QPixmap loadPixmap(const QString &name);

/// The file that loadPixmap() would read for `name` at that scale factor.
CONSOLECOMPANIONS_EXPORT QString pixmapFile(const QString &name, qreal scale);

/// The keyboard modifiers held now. GUI thread.
CONSOLECOMPANIONS_EXPORT Qt::KeyboardModifiers modifierState();

/// A grey picture for a control that is disabled: luminance, faded towards the middle, alpha and
/// device pixel ratio kept.
CONSOLECOMPANIONS_EXPORT QImage applyGreyTransformation(const QPixmap &picture);

/// The source rectangle, in the picture's own pixels, of a cell of a picture that is divided into
/// `grid` (columns, rows) equal cells; x of `cell` is the column, y the row. A negative column means
/// column 0. Empty when the row or column does not exist or the picture does not hold a pixel a cell.
CONSOLECOMPANIONS_EXPORT QRect partialPixmapRect(const QPoint &cell, const QPixmap &picture,
                                                 const QSize &grid);

/// Draws that cell with its top-left corner at the painter's origin, in device-independent pixels.
/// `grey` draws it as applyGreyTransformation() would.
CONSOLECOMPANIONS_EXPORT void drawPartialPixmap(QPainter &painter, const QPoint &cell,
                                                const QPixmap &picture, const QSize &grid,
                                                bool grey);

} // namespace NS_Utilities

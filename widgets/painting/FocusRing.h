// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

class QColor;
class QPainter;
class QWidget;

/// The ring around the control that has the keyboard focus.
namespace focusring {

/// `colour`; the palette's highlight colour when it is not valid.
CONSOLEWIDGETS_EXPORT void draw(QPainter &painter, const QWidget &control, const QColor &colour);

} // namespace focusring

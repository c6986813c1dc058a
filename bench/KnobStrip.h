// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>

/// Pictures of a knob in all its positions, one below the other.
namespace knobstrip {

constexpr int CellSize = 48;

/// Every pixel is opaque, and the pixmap has no alpha channel.
QPixmap opaque(int rows);

/// A round knob with soft edges; around it one sees what is behind.
QPixmap translucent(int rows);

} // namespace knobstrip

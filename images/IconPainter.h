// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

class QPainter;

namespace artwork {

/// Side of the square in which tool icons are drawn, in device-independent pixels.
constexpr int toolIconSide = 20;

/// The application's icon: a knob on a dark plate, filling `size`.
void paintApplicationIcon(QPainter &painter, QSize size);

/// An arrow that turns back to the left.
void paintUndo(QPainter &painter, QSize size);

/// The mirror image of the undo arrow.
void paintRedo(QPainter &painter, QSize size);

/// A green lamp: the editor is connected to the console.
void paintOnline(QPainter &painter, QSize size);

/// A red lamp with a bar across, so that it differs from the green one not only in colour.
void paintOffline(QPainter &painter, QSize size);

} // namespace artwork

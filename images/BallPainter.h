// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

class QPainter;

namespace artwork {

/// Side of the square in which the balls of patch grids are drawn, in device-independent pixels.
constexpr int ballSide = 9;

// A lit ball that shows a connection, filling `size`.
void paintAmberBall(QPainter &painter, QSize size);
void paintBlueBall(QPainter &painter, QSize size);
void paintGreenBall(QPainter &painter, QSize size);

} // namespace artwork

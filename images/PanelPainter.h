// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

class QPainter;

namespace artwork {

/// Fills `size` with brushed dark metal that repeats without a seam in both directions.
///
/// The grain is one device pixel high, so it is finer, not larger, on a denser screen.
void paintBrushedPanel(QPainter &painter, QSize size);

/// Fills `size` with the raised bar on top of a channel strip; repeats horizontally.
void paintStripHeader(QPainter &painter, QSize size);

/// Draws an etched line along the longer side of `size`; repeats along it.
void paintSeparator(QPainter &painter, QSize size);

} // namespace artwork

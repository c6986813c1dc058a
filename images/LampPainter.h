// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

class QPainter;

namespace artwork {

/// A column of eight lamps for groups, and one of two for the switches of a head amp port: phantom power
/// and high-pass filter. Each comes lit and dark, in pictures of one size.
constexpr QSize groupLamps(20, 96);
constexpr QSize portLamps(36, 24);
void paintGroupLampsLit(QPainter &painter, QSize size);
void paintGroupLampsDark(QPainter &painter, QSize size);
void paintPortLampsLit(QPainter &painter, QSize size);
void paintPortLampsDark(QPainter &painter, QSize size);

/// Two pictures, one below the other: a channel that stands alone, and one of a pair.
constexpr QSize pairStates(56, 56);
void paintPairStates(QPainter &painter, QSize size);

/// The looks of a panel that rolls open: shut, the blind that moves, and open.
constexpr QSize rollPanel(152, 96);
void paintRollClosed(QPainter &painter, QSize size);
void paintRollMoving(QPainter &painter, QSize size);
void paintRollOpen(QPainter &painter, QSize size);

} // namespace artwork

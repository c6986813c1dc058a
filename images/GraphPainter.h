// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

class QPainter;

namespace artwork {

/// The ground of a dynamics graph, from -72 to +18 dB over the width and over the height of `size`: a
/// grid, stronger at 0 dB, and the diagonal on which a level stays as it is.
void paintDynamicsGround(QPainter &painter, QSize size);

/// What stands around such a ground: a frame, and the levels to the left and below. The ground's place
/// is the square that stays free.
struct DynamicsScale
{
    static constexpr int Left = 30;
    static constexpr int Above = 8;
    static constexpr int Right = 14;
    static constexpr int Below = 20;

    static constexpr QSize around(int side) { return {Left + side + Right, Above + side + Below}; }
};
void paintDynamicsScale(QPainter &painter, QSize size);

} // namespace artwork

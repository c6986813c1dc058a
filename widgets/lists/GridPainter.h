// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/lists/CGridPrivate.h"
#include "widgets/painting/OnDevicePixels.h"

/// Draws a part of a grid: background, disabled cells, cross-hair, lines, balls, in this order. The
/// memory is read for the cells of that part only. GUI thread.
class GridPainter
{
public:
    GridPainter(CGrid &grid, QPainter &painter)
        : m_grid(*grid.d), m_painter(painter), m_pixels(painter, grid.size())
    {
    }

    void paint(const QRect &exposed);

private:
    void drawBG(const QRect &exposed);
    void drawDisabledCells(const QRect &cells);
    void drawCursor(const QRect &exposed);
    void drawLines(const QRect &exposed, const QRect &cells);
    void drawBalls(const QRect &cells);
    void drawBall(int row, int column);
    void readLanes(const QRect &cells);
    std::optional<int> readLane(int lane, int first, int last);
    void drawKeyboardCursor(const QRect &exposed);
    void fill(const QRect &part, const QColor &colour);
    bool isDisabled(int column, int row) const;

    CGrid::Private &m_grid;
    QPainter &m_painter;
    OnDevicePixels m_pixels;       ///< what the painter draws in
    std::vector<QRect> m_disabled; ///< what of the disabled rectangles is among the cells drawn
    std::vector<std::optional<int>> m_values; ///< of the lanes through them
    std::vector<int> m_fields;                ///< the numbers of their fields
    QSize m_ballSize;
    bool m_across = true;
};

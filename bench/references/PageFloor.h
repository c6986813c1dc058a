// SPDX-License-Identifier: MIT
#pragma once

#include "bench/PagePlan.h"

#include <QImage>

#include <array>
#include <vector>

/// The least that a frame of a page can be, whatever the screen's scale: all cells are there in the
/// pixels of the screen, it is known where each belongs, and they are put into the window's backing
/// store one after the other, with one flush. Opaque cells are copied line by line; under translucent
/// ones what is behind is put back first, and one painter draws them all.
class PageFloor
{
public:
    /// A page of meters and dials.
    explicit PageFloor(const meterpage::Plan &plan);

    QWidget &window() { return m_window; }
    /// Returns the processor time in seconds.
    double frame(int number);

private:
    /// A part of a picture and its place; in pixels of the screen.
    struct Cell
    {
        const QImage *picture;
        QRect source;
        QPoint at;
    };
    using Cells = std::vector<Cell>;

    void addDial(Cells &cells, const QRect &place, int step) const;
    void addMeter(Cells &cells, const QRect &place, int length) const;
    void addGround(Cells &cells, const QRect &pixels) const;

    const bool m_translucent;
    QWidget m_window;
    QImage m_lit, m_unlit, m_dial;
    QImage m_ground;               ///< what the window shows without controls
    std::array<Cells, 2> m_frames; ///< the third is like the first
};

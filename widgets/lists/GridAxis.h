// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/TestedExport.h"

#include <QStringView>

#include <vector>

/// A column or row of a grid.
struct CCellProp
{
    int size = 13; ///< of the cell, in pixels
    int line = 1;  ///< of the grid line that follows it

    friend bool operator==(const CCellProp &, const CCellProp &) = default;
};

/// The columns or the rows of a grid: where they are, and which is at a pixel. No question takes longer
/// in a larger grid, apart from a binary search.
class CONSOLEWIDGETS_TESTED GridAxis
{
public:
    /// What is outside these takes the default.
    static constexpr int LeastSize = 2;
    static constexpr int MostSize = 50;
    static constexpr int LeastLine = 1;
    static constexpr int MostLine = 14;
    /// A cell's row and column share one number, 16 bits each, of which one is the sign.
    static constexpr int MostCells = 32767;

    GridAxis() { setCount(16); }

    int count() const { return static_cast<int>(m_cells.size()); }
    /// New cells take the default. Held between 0 and MostCells.
    void setCount(int count);

    const CCellProp &at(int cell) const { return m_cells[cell]; }
    bool has(int cell) const { return cell >= 0 && cell < count(); }

    /// For a cell that does not exist nothing happens.
    void setSize(int cell, int size);
    void setLine(int cell, int line);
    /// All cells take the default size and the lines `first`, `second`, `first`...
    void setDefaultStyle(int first, int second);
    /// Sizes (lines) in order from a list "13, 20, 13"; cells without an item take the default.
    void setSizes(QStringView text);
    void setLines(QStringView text);

    /// The cell's first pixel: 0 for cells below 0, the end of the last line for those beyond.
    int begin(int cell) const;
    /// The pixel behind the cell, where its line begins.
    int end(int cell) const { return begin(cell) + (has(cell) ? m_cells[cell].size : 0); }
    /// The pixels of all cells and lines.
    int length() const { return m_begins.back(); }

    /// The first cell that ends behind the pixel, so that a line belongs to the cell that follows it;
    /// count() when there is none.
    int indexAt(int pixel) const;
    /// The cell that has the pixel in it or in its line; held inside the cells.
    int cellWithLineAt(int pixel) const;

private:
    void sum();

    std::vector<CCellProp> m_cells;
    std::vector<int> m_begins{0}; ///< one more than cells
};

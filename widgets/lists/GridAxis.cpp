// SPDX-License-Identifier: MIT
#include "widgets/lists/GridAxis.h"

#include "widgets/lists/GridText.h"

#include <algorithm>

namespace {

constexpr CCellProp Default;

int sizeOrDefault(int size)
{
    const bool fits = size >= GridAxis::LeastSize && size <= GridAxis::MostSize;
    return fits ? size : Default.size;
}

int lineOrDefault(int line)
{
    const bool fits = line >= GridAxis::LeastLine && line <= GridAxis::MostLine;
    return fits ? line : Default.line;
}

} // namespace

void GridAxis::setCount(int count)
{
    m_cells.resize(static_cast<size_t>(std::clamp(count, 0, MostCells)));
    sum();
}

void GridAxis::setSize(int cell, int size)
{
    if (!has(cell))
        return;
    m_cells[cell].size = sizeOrDefault(size);
    sum();
}

void GridAxis::setLine(int cell, int line)
{
    if (!has(cell))
        return;
    m_cells[cell].line = lineOrDefault(line);
    sum();
}

void GridAxis::setDefaultStyle(int first, int second)
{
    for (size_t cell = 0; cell < m_cells.size(); ++cell)
        m_cells[cell] = {Default.size, cell % 2 == 0 ? first : second};
    sum();
}

void GridAxis::setSizes(QStringView text)
{
    for (CCellProp &cell : m_cells)
        cell.size = Default.size;
    auto cell = m_cells.begin();
    gridtext::forEachItem(text, u',', [&](QStringView item) {
        if (cell == m_cells.end())
            return false;
        (cell++)->size = gridtext::numberOr(item, LeastSize, MostSize, Default.size);
        return true;
    });
    sum();
}

void GridAxis::setLines(QStringView text)
{
    for (CCellProp &cell : m_cells)
        cell.line = Default.line;
    auto cell = m_cells.begin();
    gridtext::forEachItem(text, u',', [&](QStringView item) {
        if (cell == m_cells.end())
            return false;
        (cell++)->line = gridtext::numberOr(item, LeastLine, MostLine, Default.line);
        return true;
    });
    sum();
}

int GridAxis::begin(int cell) const
{
    return m_begins[std::clamp(cell, 0, count())];
}

int GridAxis::indexAt(int pixel) const
{
    // The cell whose begin is the last at or before the pixel; on its line it is the next.
    const auto behind = std::upper_bound(m_begins.begin() + 1, m_begins.end(), pixel);
    const int cell = static_cast<int>(behind - m_begins.begin()) - 1;
    return has(cell) && pixel >= end(cell) ? cell + 1 : cell;
}

int GridAxis::cellWithLineAt(int pixel) const
{
    const auto behind = std::upper_bound(m_begins.begin(), m_begins.end(), pixel);
    const int cell = static_cast<int>(behind - m_begins.begin()) - 1;
    return std::clamp(cell, 0, std::max(0, count() - 1));
}

void GridAxis::sum()
{
    m_begins.resize(m_cells.size() + 1);
    int pixel = 0;
    for (size_t cell = 0; cell < m_cells.size(); ++cell) {
        m_begins[cell] = pixel;
        pixel += m_cells[cell].size + m_cells[cell].line;
    }
    m_begins.back() = pixel;
}

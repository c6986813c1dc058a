// SPDX-License-Identifier: MIT
#include "widgets/lists/GridPainter.h"

#include <QPainter>

#include <algorithm>

namespace {
constexpr QColor DisabledCell(200, 200, 200);
constexpr double DisabledOpacity = 0.4;
} // namespace

void GridPainter::paint(const QRect &exposed)
{
    drawBG(exposed);
    const QRect cells = m_grid.cellsIn(exposed);
    if (cells.isEmpty())
        return;
    drawDisabledCells(cells);
    if (m_grid.mouseInside)
        drawCursor(exposed);
    drawLines(exposed, cells);
    if (m_grid.grid.memAPI() && !m_grid.ball.isNull())
        drawBalls(cells);
    drawKeyboardCursor(exposed);
}

void GridPainter::drawBG(const QRect &exposed)
{
    const CGrid &grid = m_grid.grid;
    m_painter.fillRect(exposed, grid.palette().brush(grid.backgroundRole()));
}

void GridPainter::drawDisabledCells(const QRect &cells)
{
    m_disabled.clear();
    for (const QRect &each : m_grid.disabled.rectangles()) {
        const QRect part = each.isValid() ? each & cells : QRect();
        if (part.isEmpty())
            continue;
        m_disabled.push_back(part);
        const QPoint begin(m_grid.columns.begin(part.left()), m_grid.rows.begin(part.top()));
        const QPoint end(m_grid.columns.begin(part.right() + 1), m_grid.rows.begin(part.bottom() + 1));
        m_painter.fillRect(QRect(begin, end - QPoint(1, 1)), DisabledCell);
    }
}

bool GridPainter::isDisabled(int column, int row) const
{
    return std::any_of(m_disabled.begin(), m_disabled.end(),
                       [=](const QRect &each) { return each.contains(column, row); });
}

void GridPainter::drawCursor(const QRect &exposed)
{
    for (const QRect &bar : {m_grid.rowBar(), m_grid.columnBar()}) {
        if (bar.intersects(exposed))
            m_painter.fillRect(bar & exposed, m_grid.cursorLineColor);
    }
}

void GridPainter::drawLines(const QRect &exposed, const QRect &cells)
{
    for (int column = cells.left(); column <= cells.right(); ++column)
        m_painter.fillRect(m_grid.columns.end(column), exposed.top(), m_grid.columns.at(column).line,
                           exposed.height(), m_grid.gridLineColor);
    for (int row = cells.top(); row <= cells.bottom(); ++row)
        m_painter.fillRect(exposed.left(), m_grid.rows.end(row), exposed.width(),
                           m_grid.rows.at(row).line, m_grid.gridLineColor);
}

void GridPainter::drawBalls(const QRect &cells)
{
    if (!m_grid.grid.isEnabled())
        m_painter.setOpacity(DisabledOpacity);
    m_ballSize = (QSizeF(m_grid.ball.size()) / m_grid.ball.devicePixelRatio()).toSize();
    readLanes(cells);
    const GridStorage &storage = m_grid.storage();
    const bool lanesAreColumns = m_grid.lanesAreColumns();
    // Row by row, as pictures lie in memory, whatever way the lanes run.
    for (int row = cells.top(); row <= cells.bottom(); ++row) {
        for (int column = cells.left(); column <= cells.right(); ++column) {
            const auto &value = lanesAreColumns ? m_values[static_cast<size_t>(column - cells.left())]
                                                : m_values[static_cast<size_t>(row - cells.top())];
            const int field = m_across ? row - cells.top() : column - cells.left();
            if (value && storage.connects(*value, m_across ? column : row,
                                          m_fields[static_cast<size_t>(field)])
                && !isDisabled(column, row))
                drawBall(row, column);
        }
    }
    m_painter.setOpacity(1);
}

/// What the lanes through these cells hold, and how their fields are numbered.
void GridPainter::readLanes(const QRect &cells)
{
    const bool areColumns = m_grid.lanesAreColumns();
    m_values.clear();
    const int last = areColumns ? cells.right() : cells.bottom();
    for (int lane = areColumns ? cells.left() : cells.top(); lane <= last; ++lane)
        m_values.push_back(areColumns ? readLane(lane, cells.top(), cells.bottom())
                                      : readLane(lane, cells.left(), cells.right()));
    m_across = m_grid.orientation == CGrid::ChannelsAcross;
    m_fields.clear();
    const int lastField = m_across ? cells.bottom() : cells.right();
    for (int field = m_across ? cells.top() : cells.left(); field <= lastField; ++field)
        m_fields.push_back(m_grid.addressing.numbering.fieldToValue(field));
}

std::optional<int> GridPainter::readLane(int lane, int first, int last)
{
    const auto at = m_grid.lanesAreColumns() ? m_grid.addressOf(first, lane)
                                             : m_grid.addressOf(lane, first);
    if (!at)
        return {};
    const quint32 bits = m_grid.laneBits(lane, first, last);
    const int value = m_grid.memory().getBitParam(*at, bits);
    std::optional<quint32> &seen = m_grid.seenValue(lane);
    if (seen && ((*seen ^ static_cast<quint32>(value)) & bits) != 0)
        seen.reset();
    return value;
}

/// What of the ball is larger than the cell is cut off.
void GridPainter::drawBall(int row, int column)
{
    const QPoint begin(m_grid.columns.begin(column), m_grid.rows.begin(row));
    const QSize size(m_grid.columns.at(column).size, m_grid.rows.at(row).size);
    const QPoint corner = begin + QPoint((size.width() - m_ballSize.width()) / 2,
                                         (size.height() - m_ballSize.height()) / 2);
    if (m_ballSize.width() <= size.width() && m_ballSize.height() <= size.height()) {
        m_painter.drawPixmap(corner, m_grid.ball);
        return;
    }
    const QRect shown = QRect(corner, m_ballSize) & QRect(begin, size);
    const double ratio = m_grid.ball.devicePixelRatio();
    const QRectF source(QPointF(shown.topLeft() - corner) * ratio, QSizeF(shown.size()) * ratio);
    m_painter.drawPixmap(QRectF(shown), m_grid.ball, source);
}

void GridPainter::drawKeyboardCursor(const QRect &exposed)
{
    const CGrid &grid = m_grid.grid;
    const QRect cell = m_grid.cellRect(m_grid.cursor);
    if (!m_grid.keyboardCursor || !grid.hasFocus() || !cell.intersects(exposed))
        return;
    m_painter.setPen(grid.palette().color(QPalette::Highlight));
    m_painter.setBrush(Qt::NoBrush);
    m_painter.drawRect(cell.adjusted(0, 0, -1, -1));
}

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
    const bool columns = m_grid.lanesAreColumns();
    const int first = columns ? cells.left() : cells.top();
    const int last = columns ? cells.right() : cells.bottom();
    for (int lane = first; lane <= last; ++lane)
        drawLane(lane, cells);
    m_painter.setOpacity(1);
}

void GridPainter::drawLane(int lane, const QRect &cells)
{
    const bool isColumn = m_grid.lanesAreColumns();
    const int first = isColumn ? cells.top() : cells.left();
    const int last = isColumn ? cells.bottom() : cells.right();
    const auto at = isColumn ? m_grid.addressOf(first, lane) : m_grid.addressOf(lane, first);
    if (!at)
        return;
    const quint32 bits = m_grid.laneBits(lane, first, last);
    const int value = m_grid.memory().getBitParam(*at, bits);
    std::optional<quint32> &seen = m_grid.seenValue(lane);
    if (seen && ((*seen ^ static_cast<quint32>(value)) & bits) != 0)
        seen.reset();
    for (int cell = first; cell <= last; ++cell) {
        const int row = isColumn ? cell : lane;
        const int column = isColumn ? lane : cell;
        if (m_grid.connects(value, row, column) && !isDisabled(column, row))
            drawBall(m_grid.cellRect({column, row}));
    }
}

/// What of the ball is larger than the cell is cut off.
void GridPainter::drawBall(const QRect &cell)
{
    const double ratio = m_grid.ball.devicePixelRatio();
    const QSize size = (QSizeF(m_grid.ball.size()) / ratio).toSize();
    const QPoint corner = cell.topLeft() + QPoint((cell.width() - size.width()) / 2,
                                                  (cell.height() - size.height()) / 2);
    if (size.width() <= cell.width() && size.height() <= cell.height()) {
        m_painter.drawPixmap(corner, m_grid.ball);
        return;
    }
    const QRect shown = QRect(corner, size) & cell;
    const QRectF source((shown.topLeft() - corner) * ratio, QSizeF(shown.size()) * ratio);
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

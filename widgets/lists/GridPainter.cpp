// SPDX-License-Identifier: MIT
#include "widgets/lists/GridPainter.h"

#include "widgets/painting/ImageStrip.h"
#include "widgets/painting/Picture.h"

#include <QRegion>

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
    m_painter.fillRect(m_pixels.of(exposed), grid.palette().brush(grid.backgroundRole()));
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
        const QPoint end(m_grid.columns.begin(part.right() + 1),
                         m_grid.rows.begin(part.bottom() + 1));
        fill(QRect(begin, end - QPoint(1, 1)), DisabledCell);
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
            fill(bar & exposed, m_grid.cursorLineColor);
    }
}

void GridPainter::drawLines(const QRect &exposed, const QRect &cells)
{
    // All lines of one width are equally wide, wherever they fall between the pixels.
    for (int column = cells.left(); column <= cells.right(); ++column) {
        const int width = m_grid.columns.at(column).line;
        QRect line =
            m_pixels.of(QRect(m_grid.columns.end(column), exposed.top(), width, exposed.height()));
        line.setWidth(m_pixels.width(width));
        m_painter.fillRect(line, m_grid.gridLineColor);
    }
    for (int row = cells.top(); row <= cells.bottom(); ++row) {
        const int width = m_grid.rows.at(row).line;
        QRect line =
            m_pixels.of(QRect(exposed.left(), m_grid.rows.end(row), exposed.width(), width));
        line.setHeight(m_pixels.width(width));
        m_painter.fillRect(line, m_grid.gridLineColor);
    }
}

void GridPainter::fill(const QRect &part, const QColor &colour)
{
    m_painter.fillRect(m_pixels.of(part), colour);
}

void GridPainter::drawBalls(const QRect &cells)
{
    if (!m_grid.grid.isEnabled())
        m_painter.setOpacity(DisabledOpacity);
    m_ballSize = picturecells::size(m_grid.ball, {1, 1});
    readLanes(cells);
    const GridStorage &storage = m_grid.storage();
    const bool lanesAreColumns = m_grid.lanesAreColumns();
    // Row by row, as pictures lie in memory, whatever way the lanes run.
    for (int row = cells.top(); row <= cells.bottom(); ++row) {
        for (int column = cells.left(); column <= cells.right(); ++column) {
            const auto &value = lanesAreColumns
                                    ? m_values[static_cast<size_t>(column - cells.left())]
                                    : m_values[static_cast<size_t>(row - cells.top())];
            const int field = m_across ? row - cells.top() : column - cells.left();
            if (value
                && storage.connects(*value, m_across ? column : row,
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
    const auto at =
        m_grid.lanesAreColumns() ? m_grid.addressOf(first, lane) : m_grid.addressOf(lane, first);
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
    const QPoint corner = begin
                          + QPoint((size.width() - m_ballSize.width()) / 2,
                                   (size.height() - m_ballSize.height()) / 2);
    const QPixmap &ball = m_grid.ball;
    const bool fits = m_ballSize.width() <= size.width() && m_ballSize.height() <= size.height();
    if (fits && m_pixels.ratio() == 1 && ball.devicePixelRatio() == 1)
        m_painter.drawPixmap(corner, ball);
    else
        drawBlit(m_painter, m_pixels, Blit::of(ball, ball.rect(), corner, QRect(begin, size)));
}

void GridPainter::drawKeyboardCursor(const QRect &exposed)
{
    const CGrid &grid = m_grid.grid;
    const QRect cell = m_grid.cellRect(m_grid.cursor);
    if (!m_grid.keyboardCursor || !grid.hasFocus() || !cell.intersects(exposed))
        return;
    const QRect outer = m_pixels.of(cell);
    const int width = m_pixels.width(1);
    const QRegion frame = QRegion(outer) - outer.adjusted(width, width, -width, -width);
    for (const QRect &side : frame)
        m_painter.fillRect(side, grid.palette().color(QPalette::Highlight));
}

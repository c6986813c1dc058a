// SPDX-License-Identifier: MIT
// What of the grid is to be painted, and when.
#include "widgets/lists/GridPainter.h"
#include "widgets/painting/DevicePixels.h"

#include <QPainter>
#include <QPaintEvent>

#include <algorithm>

namespace {
/// More changes than this are painted as a whole: a ragged region costs more than it saves.
constexpr size_t MostSingleCells = 64;
} // namespace

QRect CGrid::Private::cellRect(const QPoint &cell) const
{
    return {QPoint(columns.begin(cell.x()), rows.begin(cell.y())),
            QPoint(columns.end(cell.x()) - 1, rows.end(cell.y()) - 1)};
}

QRect CGrid::Private::rowBar() const
{
    const QRect cell = cellRect(cursor);
    return {0, cell.top() + (cell.height() - cursorThickness) / 2, grid.width(), cursorThickness};
}

QRect CGrid::Private::columnBar() const
{
    const QRect cell = cellRect(cursor);
    return {cell.left() + (cell.width() - cursorThickness) / 2, 0, cursorThickness, grid.height()};
}

QRect CGrid::Private::cellsIn(const QRect &pixels) const
{
    const QRect inside = pixels & QRect(0, 0, columns.length(), rows.length());
    if (inside.isEmpty())
        return {};
    return {QPoint(columns.cellWithLineAt(inside.left()), rows.cellWithLineAt(inside.top())),
            QPoint(columns.cellWithLineAt(inside.right()), rows.cellWithLineAt(inside.bottom()))};
}

QRect CGrid::Private::visiblePixels() const
{
    if (!grid.isVisible())
        return {};
    QRect visible = grid.rect();
    QPoint corner;
    for (const QWidget *widget = &grid; !widget->isWindow(); widget = widget->parentWidget()) {
        corner += widget->pos();
        visible &= widget->parentWidget()->rect().translated(-corner);
    }
    return visible;
}

quint32 CGrid::Private::laneBits(int lane, int first, int last) const
{
    if (!multiMode)
        return GridMemory::AllBits;
    const bool areColumns = lanesAreColumns();
    quint32 bits = 0;
    for (int cell = first; cell <= last; ++cell) {
        const int row = areColumns ? cell : lane;
        const int column = areColumns ? lane : cell;
        bits |= storage().bits(grid.channelOf(row, column), fieldValueOf(row, column));
    }
    return bits;
}

std::optional<quint32> &CGrid::Private::seenValue(int lane)
{
    const int lanes = lanesAreColumns() ? columns.count() : rows.count();
    if (seen.size() != static_cast<size_t>(lanes))
        seen.assign(static_cast<size_t>(lanes), std::nullopt);
    return seen[static_cast<size_t>(lane)];
}

/// Collects the cells of a lane, among `cells`, that look otherwise than when it was last seen.
void CGrid::Private::refreshLane(int lane, const QRect &cells, std::vector<QRect> &changed)
{
    const bool isColumn = lanesAreColumns();
    const int first = isColumn ? cells.top() : cells.left();
    const int last = isColumn ? cells.bottom() : cells.right();
    const auto at = isColumn ? addressOf(first, lane) : addressOf(lane, first);
    if (!at)
        return;
    const quint32 bits = laneBits(lane, first, last);
    const auto value = static_cast<quint32>(memory().getBitParam(*at, bits));
    std::optional<quint32> &known = seenValue(lane);
    const std::optional<quint32> before = known;
    known = (before.value_or(0) & ~bits) | (value & bits);
    if (before == known)
        return;
    for (int cell = first; cell <= last; ++cell) {
        const QPoint place = isColumn ? QPoint(lane, cell) : QPoint(cell, lane);
        if (!before
            || connects(static_cast<int>(*before), place.y(), place.x())
                   != connects(static_cast<int>(*known), place.y(), place.x()))
            changed.push_back(cellRect(place));
    }
}

/// Asks for a paint of `named`, a cell that somebody says has changed, and of the visible cells whose
/// values have: those that share its parameter, or all.
void CGrid::refreshCells(const QPoint &named, RefreshScope scope)
{
    const QRect cells = d->cellsIn(d->visiblePixels());
    if (cells.isEmpty())
        return;
    if (cells.contains(named))
        updatePart(d->cellRect(named));
    if (!memAPI())
        return;
    std::vector<QRect> changed;
    const bool areColumns = d->lanesAreColumns();
    int first = areColumns ? cells.left() : cells.top();
    int last = areColumns ? cells.right() : cells.bottom();
    if (scope == RefreshScope::Parameter) {
        const int own = areColumns ? named.x() : named.y();
        first = std::max(first, own);
        last = std::min(last, own);
    }
    for (int lane = first; lane <= last; ++lane)
        d->refreshLane(lane, cells, changed);
    if (changed.size() > MostSingleCells)
        update();
    else
        std::for_each(changed.begin(), changed.end(),
                      [this](const QRect &cell) { updatePart(cell); });
}

void CGrid::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    const QRegion &region = event->region();
    if (!isWholeRatio(devicePixelRatio())) {
        // The toolkit clips to pixels that a part has only a share of.
        GridPainter(*this, painter).paint(region.boundingRect().adjusted(-1, -1, 1, 1) & rect());
        return;
    }
    for (const QRect &part : region) {
        // A cell that reaches into two parts must not be drawn twice over itself.
        if (region.rectCount() > 1)
            painter.setClipRect(part);
        GridPainter(*this, painter).paint(part);
    }
}

/// Asks for a paint of all pixels that the part has a share of.
void CGrid::updatePart(const QRect &part)
{
    update(isWholeRatio(devicePixelRatio()) ? part : part.adjusted(-1, -1, 1, 1));
}

/// Paints the cross-hair, or the keyboard's cursor, where it is now.
void CGrid::repaintCursor()
{
    if (d->mouseInside) {
        updatePart(d->rowBar());
        updatePart(d->columnBar());
    }
    updatePart(d->cellRect(d->cursor));
}

// SPDX-License-Identifier: MIT
#include "widgets/lists/GridAccessible.h"

#include "widgets/lists/GridCellAccessible.h"

namespace {

QAccessibleInterface *make(const QString &className, QObject *object)
{
    auto *grid = className == QLatin1String("CGrid") ? qobject_cast<CGrid *>(object) : nullptr;
    return grid ? new GridAccessible(*grid) : nullptr;
}

} // namespace

GridAccessible::GridAccessible(CGrid &grid)
    : BoundAccessible(&grid, grid, QAccessible::Table), m_grid(grid)
{
}

GridAccessible::~GridAccessible()
{
    for (const QAccessible::Id id : std::as_const(m_cells))
        QAccessible::deleteAccessibleInterface(id);
}

void GridAccessible::install()
{
    [[maybe_unused]] static const bool speaks = (QAccessible::installFactory(make), true);
}

void GridAccessible::announceCursor(CGrid &grid)
{
    if (!QAccessible::isActive() || !grid.hasFocus())
        return;
    QAccessibleEvent event(&grid, QAccessible::Focus);
    event.setChild(grid.cursorCell().y() * grid.cols() + grid.cursorCell().x());
    QAccessible::updateAccessibility(&event);
}

void GridAccessible::announceState(CGrid &grid, int row, int column)
{
    if (!QAccessible::isActive())
        return;
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(&grid, changed);
    event.setChild(row * grid.cols() + column);
    QAccessible::updateAccessibility(&event);
}

QString GridAccessible::pairInWords(const CGrid &grid, int row, int column)
{
    return CGrid::tr("%1 to %2")
        .arg(grid.channelTitle(grid.channelOf(row, column)),
             grid.fieldTitle(grid.fieldOf(row, column)));
}

QString GridAccessible::stateInWords(const CGrid &grid, int row, int column)
{
    if (grid.isCellDisabled(row, column))
        return CGrid::tr("not available");
    return grid.valueAt(row, column) ? CGrid::tr("connected") : CGrid::tr("not connected");
}

void *GridAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableInterface)
        return static_cast<QAccessibleTableInterface *>(this);
    return BoundAccessible::interface_cast(type);
}

QString GridAccessible::text(QAccessible::Text kind) const
{
    const QPoint cell = m_grid.cursorCell();
    if (kind != QAccessible::Value || !m_grid.hasCell(cell.y(), cell.x()))
        return BoundAccessible::text(kind);
    return CGrid::tr("%1: %2").arg(pairInWords(m_grid, cell.y(), cell.x()),
                                   stateInWords(m_grid, cell.y(), cell.x()));
}

int GridAccessible::childCount() const
{
    return m_grid.rows() * m_grid.cols();
}

QAccessibleInterface *GridAccessible::child(int index) const
{
    return index >= 0 && index < childCount() ? cellAt(index / m_grid.cols(), index % m_grid.cols())
                                              : nullptr;
}

int GridAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    const auto *cell = dynamic_cast<const GridCellAccessible *>(child);
    return cell ? cell->rowIndex() * m_grid.cols() + cell->columnIndex() : -1;
}

QAccessibleInterface *GridAccessible::childAt(int x, int y) const
{
    const QPoint point = m_grid.mapFromGlobal(QPoint(x, y));
    if (!m_grid.rect().contains(point))
        return nullptr;
    return cellAt(m_grid.pixelToIndexY(point.y()), m_grid.pixelToIndexX(point.x()));
}

QAccessibleInterface *GridAccessible::focusChild() const
{
    return m_grid.hasFocus() ? cellAt(m_grid.cursorCell().y(), m_grid.cursorCell().x()) : nullptr;
}

QAccessibleInterface *GridAccessible::cellAt(int row, int column) const
{
    if (!m_grid.hasCell(row, column))
        return nullptr;
    QAccessible::Id &id = m_cells[{row, column}];
    QAccessibleInterface *known = id ? QAccessible::accessibleInterface(id) : nullptr;
    if (known)
        return known;
    auto *cell = new GridCellAccessible(m_grid, row, column);
    id = QAccessible::registerAccessibleInterface(cell);
    return cell;
}

QString GridAccessible::columnDescription(int column) const
{
    return m_grid.orientation() == CGrid::ChannelsAcross ? m_grid.channelTitle(column)
                                                         : m_grid.fieldTitle(column);
}

QString GridAccessible::rowDescription(int row) const
{
    return m_grid.orientation() == CGrid::ChannelsAcross ? m_grid.fieldTitle(row)
                                                         : m_grid.channelTitle(row);
}

int GridAccessible::columnCount() const
{
    return m_grid.cols();
}

int GridAccessible::rowCount() const
{
    return m_grid.rows();
}

// SPDX-License-Identifier: MIT
#include "widgets/lists/GridCellAccessible.h"

#include "widgets/lists/GridAccessible.h"

GridCellAccessible::GridCellAccessible(CGrid &grid, int row, int column)
    : m_grid(&grid), m_row(row), m_column(column)
{
}

void *GridCellAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableCellInterface)
        return static_cast<QAccessibleTableCellInterface *>(this);
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface *>(this);
    return nullptr;
}

bool GridCellAccessible::isValid() const
{
    return m_grid && m_grid->hasCell(m_row, m_column);
}

QWindow *GridCellAccessible::window() const
{
    return m_grid ? m_grid->window()->windowHandle() : nullptr;
}

QAccessibleInterface *GridCellAccessible::parent() const
{
    return m_grid ? QAccessible::queryAccessibleInterface(m_grid) : nullptr;
}

QString GridCellAccessible::text(QAccessible::Text kind) const
{
    if (!isValid())
        return {};
    if (kind == QAccessible::Name)
        return GridAccessible::pairInWords(*m_grid, m_row, m_column);
    if (kind == QAccessible::Value)
        return GridAccessible::stateInWords(*m_grid, m_row, m_column);
    return {};
}

QRect GridCellAccessible::rect() const
{
    QRect cell;
    if (m_grid)
        m_grid->index2PixelRect({m_column, m_row}, cell);
    return m_grid ? cell.translated(m_grid->mapToGlobal(QPoint(0, 0))) : cell;
}

QAccessible::State GridCellAccessible::state() const
{
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const bool disabled = !m_grid->isEnabled() || m_grid->isCellDisabled(m_row, m_column);
    state.disabled = disabled;
    state.checkable = !disabled;
    state.checked = !disabled && m_grid->valueAt(m_row, m_column);
    state.focusable = true;
    state.focused = m_grid->hasFocus() && m_grid->cursorCell() == QPoint(m_column, m_row);
    state.offscreen =
        !m_grid->visibleRegion().intersects(rect().translated(-m_grid->mapToGlobal(QPoint(0, 0))));
    return state;
}

QStringList GridCellAccessible::actionNames() const
{
    return {pressAction()};
}

void GridCellAccessible::doAction(const QString &name)
{
    if (isValid() && m_grid->isEnabled() && !m_grid->disabledUI() && name == pressAction())
        m_grid->connectionChange(m_row, m_column, true);
}

// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/binding/BoundAccessible.h"
#include "widgets/lists/CGrid.h"

#include <QHash>

/// A grid is a table. Its cells are named by both ends, "Source 3 to CH 7"; their value says whether
/// they are connected; pressing one does what a click does. The grid's own value is that of the cursor
/// cell.
class GridAccessible : public BoundAccessible, public QAccessibleTableInterface
{
public:
    explicit GridAccessible(CGrid &grid);
    ~GridAccessible() override;

    static void install();
    /// The keyboard has moved the cursor; a cell was connected or disconnected.
    static void announceCursor(CGrid &grid);
    static void announceState(CGrid &grid, int row, int column);

    /// "Source 3 to CH 7".
    static QString pairInWords(const CGrid &grid, int row, int column);
    static QString stateInWords(const CGrid &grid, int row, int column);

    void *interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;

    QAccessibleInterface *caption() const override { return nullptr; }
    QAccessibleInterface *summary() const override { return nullptr; }
    QAccessibleInterface *cellAt(int row, int column) const override;
    int selectedCellCount() const override { return 0; }
    QList<QAccessibleInterface *> selectedCells() const override { return {}; }
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return 0; }
    int columnCount() const override;
    int rowCount() const override;
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override { return {}; }
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int) const override { return false; }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent *) override {}

private:
    CGrid &m_grid;
    mutable QHash<QPair<int, int>, QAccessible::Id> m_cells; ///< those asked for, by row and column
};

// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/CSimpleNotifier.h"
#include "widgets/lists/CGrid.h"
#include "widgets/lists/GridAxis.h"
#include "widgets/lists/GridDisabledCells.h"
#include "widgets/lists/GridStorage.h"
#include "widgets/lists/GridTitles.h"

#include <QPointer>

#include <optional>
#include <vector>

struct CGrid::Private
{
    static constexpr QPoint NoCell{-1, -1};

    explicit Private(CGrid &owner) : grid(owner), addressing(owner.addresses()) {}

    const GridStorage &storage() const
    {
        if (!addressing.fieldAddresses.isEmpty())
            return fieldStorage;
        return valueAsBitMask ? static_cast<const GridStorage &>(maskStorage) : exclusiveStorage;
    }
    GridMemory memory() const { return {grid.memAPI(), multiMode ? grid.fields() : 0}; }
    int fieldValueOf(int row, int column) const
    {
        return addressing.numbering.fieldToValue(grid.fieldOf(row, column));
    }
    /// Whether a parameter serves a column of cells, rather than a row.
    bool lanesAreColumns() const
    {
        const bool channels = storage().lane() == GridStorage::Lane::Channel;
        return channels == (orientation == ChannelsAcross);
    }
    /// The parameter of a cell, if there is one.
    std::optional<GridMemory::Address> addressOf(int row, int column) const
    {
        return storage().address(grid.channelOf(row, column), fieldValueOf(row, column));
    }
    /// The bits of a lane's value on which its cells from `first` to `last` depend.
    quint32 laneBits(int lane, int first, int last) const;
    bool connects(int value, int row, int column) const
    {
        return storage().connects(value, grid.channelOf(row, column), fieldValueOf(row, column));
    }

    // Cells are points and rectangles of column and row.
    QRect cellRect(const QPoint &cell) const;
    QRect rowBar() const;
    QRect columnBar() const;
    /// The cells that have pixels, or pixels of their lines, in `pixels`.
    QRect cellsIn(const QRect &pixels) const;
    /// The pixels of the grid that no ancestor cuts off.
    QRect visiblePixels() const;

    void forgetSeen() { seen.clear(); }
    std::optional<quint32> &seenValue(int lane);
    void refreshLane(int lane, const QRect &cells, std::vector<QRect> &changed);

    // Undo.
    QString name() const;
    std::unique_ptr<IUndoRecord> openRecord(const QString &what) const;
    void note(IUndoRecord *record, int key, int row, int column) const;
    void commit(std::unique_ptr<IUndoRecord> record) const;

    CGrid &grid;
    GridAxis columns;
    GridAxis rows;
    GridDisabledCells disabled;
    GridAddressing addressing;
    const ExclusiveStorage exclusiveStorage{addressing};
    const MaskStorage maskStorage{addressing};
    const FieldStorage fieldStorage{addressing};
    QPixmap ball;
    QString cellWidths;
    QString cellHeights;
    QString gridWidths;
    QString gridHeights;
    QString bitOrder;
    QString disabledRects;
    GridTitles channelTitles;
    GridTitles fieldTitles;
    QColor cursorLineColor = Qt::red;
    QColor gridLineColor{58, 58, 71};
    int cursorThickness = 3;
    GridOrientation orientation = ChannelsAcross;
    QPoint pressCell = NoCell;
    QPoint cursor{0, 0};
    QList<QPointer<CSimpleNotifier>> notifiers;
    int autoUpdatesPending = 0;
    int recording = 0; ///< above 0: a recorded edit is being written
    /// What a refresh last saw in a lane. A paint that finds something else empties it, so that the
    /// next refresh draws the whole lane.
    std::vector<std::optional<quint32>> seen;
    bool styleCustomised : 1 = false;
    bool valueAsBitMask : 1 = true;
    bool multiMode : 1 = false;
    bool autoUpdates : 1 = false;
    bool changeCancelled : 1 = false;
    bool mouseInside : 1 = false;
    bool keyboardCursor : 1 = false; ///< the keyboard moved the cursor: it is shown with the focus
};

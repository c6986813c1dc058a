// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/lists/CListWidge.h"
#include "widgets/lists/ListKeys.h"
#include "widgets/lists/RowPayload.h"
#include "widgets/lists/SlotCommand.h"

#include <QPointer>

struct CListWidge::Private
{
    /// Where a drag would go.
    struct Spot
    {
        bool isValid = false;
        bool isStore = true;
        CListWidgeItem *row = nullptr; ///< stored onto, or inserted above; null: at the end
        QRect mark;                    ///< what is drawn there
    };

    explicit Private(CListWidge &owner) : list(owner), keys(owner) {}

    void resolveOther();
    void setWidths() const;

    SlotSelection selection() const;
    /// References to all library rows, or to those that are not hidden.
    QList<CListWidgeItem::Reference> rows(bool visibleOnly) const;
    using Test = bool (*)(const CListWidgeItem *);
    bool anySelected(Test fits) const;
    CListWidgeItem *firstSelected() const;
    /// Changes the rows that fit, and shows them anew.
    void overVisibleRows(Test fits, void (*change)(CListWidgeItem *));
    CListWidgeItem *below(CListWidgeItem *row) const;
    QList<CListWidgeItem::Reference> rowsOfSlots(int first, int last) const;
    int lastSlot() const;
    void select(const QList<CListWidgeItem::Reference> &rows) const;

    static bool mayRename(const CListWidgeItem *row);
    /// Asks about a row, with its title and number; false, too, when the list was destroyed.
    bool confirmFor(const char *format, const CListWidgeItem *row) const;

    /// The list that a drag began in, if it is one that rows may come from.
    CListWidge *source(const QMimeData *mime) const;
    Spot spotAt(const QPoint &position, const CListWidge *from) const;
    void showMark(const QRect &mark);

    CListWidge &list;
    ListKeys keys;
    QPointer<CListWidge> other;
    QString otherName;
    QRect dropMark; ///< null: no drag is over the list
    bool rowsMovable = false;
    bool busy = false; ///< a command runs
    bool hasWidths = false;
    const quint64 id = rowpayload::newListId();
};

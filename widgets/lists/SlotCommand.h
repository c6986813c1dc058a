// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/lists/CListWidgeItem.h"
#include "widgets/lists/SlotProgress.h"

#include <QList>
#include <QPointer>

class CListWidge;

/// Rows that a command is to go through.
struct SlotSelection
{
    QList<CListWidgeItem::Reference> rows; ///< the library rows, in list order
    int count = 0;                         ///< how many rows there are, headings included
};

/// The frame of a command over several rows: forgets what could be undone, shows progress if there are
/// several, hands out the rows one by one, and at the end gives the list the focus. It goes on only
/// while the list, the dialog and the row exist and nobody pressed "Stop".
class SlotCommand
{
public:
    /// `label`: what the dialog says, "%1" for the slot number.
    SlotCommand(CListWidge &list, const SlotSelection &selection, const QString &label);
    ~SlotCommand();
    Q_DISABLE_COPY_MOVE(SlotCommand)

    /// The next row; null when the command is over.
    CListWidgeItem *next();
    /// The row that next() gave is being worked on. False: the command is over.
    bool showProgress();
    /// Questions are asked: no labels any more.
    void hideLabels();
    /// The row was changed. False: the command is over.
    bool repaintRow();
    /// The same, unless there was an error, which is shown.
    bool finishRow(const QString &error);
    /// Whether list, dialog and row still exist.
    bool isIntact() const;
    bool hasList() const { return m_list; }

private:
    const QPointer<CListWidge> m_list;
    const SlotSelection m_selection;
    const QString m_label;
    const bool m_several;
    QPointer<SlotProgress> m_dialog;
    CListWidgeItem::Reference m_row;
    qsizetype m_next = 0;
    int m_done = 0;
};

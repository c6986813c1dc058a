// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

class CListWidge;

/// Draws the lock of protected rows, and edits titles in place. GUI thread.
class SlotDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit SlotDelegate(CListWidge *list);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
};

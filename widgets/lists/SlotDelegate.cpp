// SPDX-License-Identifier: MIT
#include "widgets/lists/SlotDelegate.h"

#include "widgets/lists/CListWidgePrivate.h"

#include <QApplication>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>

namespace {

/// Air above and below the text, in pixels: rows are to be hit by a finger's width of mouse travel.
constexpr int RowPadding = 3;

const CListWidge &listOf(const QObject *delegate)
{
    return *static_cast<const CListWidge *>(delegate->parent());
}

const CListWidgeItem *rowAt(const CListWidge &list, const QModelIndex &index)
{
    return CListWidge::libraryRow(list.itemFromIndex(index));
}

/// A padlock: closed and filled for a row that is protected, an outline for one that is read only.
void drawLock(QPainter &painter, const QRectF &cell, const QColor &colour, bool filled)
{
    const qreal unit = qMin(cell.height() - 2 * RowPadding, 14.0) / 14;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(cell.center() + QPointF(0.5, 0.5));
    painter.scale(unit, unit);
    painter.setPen(QPen(colour, 1.6));
    painter.setBrush(Qt::NoBrush);
    QPainterPath shackle(QPointF(-2.8, -0.5));
    shackle.lineTo(-2.8, -2.5);
    shackle.arcTo(QRectF(-2.8, -5.3, 5.6, 5.6), 180, -180);
    shackle.lineTo(2.8, -0.5);
    painter.drawPath(shackle);
    if (filled)
        painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(-4.2, -0.2, 8.4, 5.7), 1, 1);
    painter.restore();
}

} // namespace

SlotDelegate::SlotDelegate(CListWidge *list) : QStyledItemDelegate(list) {}

void SlotDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                         const QModelIndex &index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    if (index.column() != CListWidge::ProtectedColumn)
        return;
    const CListWidgeItem *row = rowAt(listOf(this), index);
    if (!row || (!row->isProtected() && !row->isReadOnly()))
        return;
    QStyleOptionViewItem shown = option;
    initStyleOption(&shown, index);
    const bool selected = shown.state & QStyle::State_Selected;
    const auto group = shown.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
    const QColor colour =
        shown.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
    drawLock(*painter, option.rect, colour, row->isProtected());
}

QSize SlotDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 2 * RowPadding);
}

QWidget *SlotDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const
{
    const CListWidgeItem *row = rowAt(listOf(this), index);
    if (!row)
        return nullptr;
    QWidget *editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (auto *line = qobject_cast<QLineEdit *>(editor)) {
        line->setMaxLength(row->titleLimit());
        line->setAccessibleName(CListWidge::tr("Title of %1").arg(row->spokenText()));
    }
    return editor;
}

/// The renaming waits until the view is done with the editor: it may show a box, and lose the list.
void SlotDelegate::setModelData(QWidget *editor, QAbstractItemModel *,
                                const QModelIndex &index) const
{
    auto &list = *static_cast<CListWidge *>(parent());
    CListWidgeItem *row = CListWidge::libraryRow(list.itemFromIndex(index));
    const auto *line = qobject_cast<const QLineEdit *>(editor);
    if (!row || !line || line->text() == row->titleText())
        return;
    QMetaObject::invokeMethod(
        &list,
        [&list, which = row->reference(), title = line->text()] { list.rename(which, title); },
        Qt::QueuedConnection);
}

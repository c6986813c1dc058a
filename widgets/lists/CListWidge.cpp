// SPDX-License-Identifier: MIT
#include "widgets/lists/CListWidge.h"

#include "widgets/buttons/COnOffButton.h"
#include "widgets/lists/CListWidgePrivate.h"
#include "widgets/lists/ListBoxes.h"
#include "widgets/lists/SiblingSearch.h"
#include "widgets/lists/SlotDelegate.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

namespace {

/// Room on both sides of a column's text.
constexpr int ColumnPadding = 18;

} // namespace

CListWidge::CListWidge(QWidget *parent, const char *name)
    : QTreeWidget(parent), d(std::make_unique<Private>(*this))
{
    if (name)
        setObjectName(QLatin1String(name));
    setHeaderLabels({tr("No."), tr("Title"), tr("Lock"), tr("Stored")});
    setItemDelegate(new SlotDelegate(this));
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(EditKeyPressed | DoubleClicked);
    setVerticalScrollMode(ScrollPerItem);
    setDragEnabled(true);
    setAcceptDrops(true);
    // The list draws where a drag would go by itself: by its own rules.
    setDropIndicatorShown(false);
    setSortingEnabled(true);
    sortByColumn(NumberColumn, Qt::AscendingOrder);

    const auto rowsChanged = [this] {
        d->keys.changed();
        if (d->other)
            d->other->d->keys.changed();
    };
    connect(model(), &QAbstractItemModel::dataChanged, this, rowsChanged);
    connect(model(), &QAbstractItemModel::rowsInserted, this, rowsChanged);
    connect(model(), &QAbstractItemModel::rowsRemoved, this, rowsChanged);
    connect(model(), &QAbstractItemModel::modelReset, this, rowsChanged);
}

CListWidge::~CListWidge()
{
    // The model goes after this class, and tells so.
    disconnect(model(), nullptr, this, nullptr);
}

// Properties ------------------------------------------------------------------------------------

QString CListWidge::storeButton() const
{
    return d->keys.name(ListKeys::Store);
}

void CListWidge::setStoreButton(const QString &name)
{
    d->keys.setName(ListKeys::Store, name);
}

QString CListWidge::recallButton() const
{
    return d->keys.name(ListKeys::Recall);
}

void CListWidge::setRecallButton(const QString &name)
{
    d->keys.setName(ListKeys::Recall, name);
}

QString CListWidge::clearButton() const
{
    return d->keys.name(ListKeys::Clear);
}

void CListWidge::setClearButton(const QString &name)
{
    d->keys.setName(ListKeys::Clear, name);
}

QString CListWidge::undoButton() const
{
    return d->keys.name(ListKeys::Undo);
}

void CListWidge::setUndoButton(const QString &name)
{
    d->keys.setName(ListKeys::Undo, name);
}

QString CListWidge::protectButton() const
{
    return d->keys.name(ListKeys::Protect);
}

void CListWidge::setProtectButton(const QString &name)
{
    d->keys.setName(ListKeys::Protect, name);
}

QString CListWidge::otherListName() const
{
    return d->otherName;
}

void CListWidge::setOtherListName(const QString &name)
{
    d->otherName = name;
    if (isVisible())
        d->resolveOther();
}

bool CListWidge::rowsMovable() const
{
    return d->rowsMovable;
}

void CListWidge::setRowsMovable(bool movable)
{
    d->rowsMovable = movable;
}

// Keys and pair ---------------------------------------------------------------------------------

void CListWidge::setStore(COnOffButton *key)
{
    d->keys.attach(ListKeys::Store, key);
}

void CListWidge::setRecall(COnOffButton *key)
{
    d->keys.attach(ListKeys::Recall, key);
}

void CListWidge::setClear(COnOffButton *key)
{
    d->keys.attach(ListKeys::Clear, key);
}

void CListWidge::setUndo(COnOffButton *key)
{
    d->keys.attach(ListKeys::Undo, key);
}

void CListWidge::setProtect(COnOffButton *key)
{
    d->keys.attach(ListKeys::Protect, key);
}

void CListWidge::setOtherList(CListWidge *list)
{
    if (d->other == list || list == this)
        return;
    d->other = list;
    // One of the two is the one that shared keys work on.
    d->keys.setActive(!list || list->d->other != this || !list->d->keys.isActive());
}

CListWidge *CListWidge::otherList() const
{
    return d->other;
}

void CListWidge::Private::resolveOther()
{
    if (otherName.isEmpty() || (other && other->objectName() == otherName))
        return;
    if (auto *found = nearestSibling<CListWidge>(list, otherName))
        list.setOtherList(found);
    else
        qWarning("CListWidge '%s': no list named '%s' in its window",
                 qUtf8Printable(list.objectName()), qUtf8Printable(otherName));
}

void CListWidge::showEvent(QShowEvent *event)
{
    QTreeWidget::showEvent(event);
    if (event->spontaneous())
        return;
    d->keys.resolve();
    d->resolveOther();
    if (!std::exchange(d->hasWidths, true))
        d->setWidths();
}

// View ------------------------------------------------------------------------------------------

/// From the font, not from the rows: there may be thousands.
void CListWidge::Private::setWidths() const
{
    QHeaderView *header = list.header();
    const QFontMetrics metrics = list.fontMetrics();
    const auto widthOf = [&](const QString &text) {
        return metrics.horizontalAdvance(text) + ColumnPadding;
    };
    const QDateTime longest(QDate(2028, 12, 28), QTime(22, 58));
    header->setStretchLastSection(false);
    header->setSectionResizeMode(TitleColumn, QHeaderView::Stretch);
    header->resizeSection(NumberColumn, widthOf("#00000"));
    header->resizeSection(ProtectedColumn, header->sectionSizeHint(ProtectedColumn));
    header->resizeSection(StoredColumn, widthOf(QLocale().toString(longest, QLocale::ShortFormat)));
}

CListWidgeItem *CListWidge::libraryRow(QTreeWidgetItem *item)
{
    return dynamic_cast<CListWidgeItem *>(item);
}

void CListWidge::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QTreeWidget::selectionChanged(selected, deselected);
    CListWidge *other = d->other;
    if (other && !selected.isEmpty()) {
        d->keys.setActive(true);
        other->d->keys.setActive(false);
        if (d->keys.sharesAnyWith(other->d->keys))
            other->clearSelection();
    }
    d->keys.changed();
    Q_EMIT selectionChanged();
}

void CListWidge::mousePressEvent(QMouseEvent *event)
{
    const QPoint position = event->position().toPoint();
    CListWidgeItem *row = libraryRow(itemAt(position));
    const QPointer<CListWidge> self(this);
    const bool done = row && event->button() == Qt::LeftButton
                      && row->clicked(columnAt(position.x()), event->globalPosition().toPoint());
    if (self && !done)
        QTreeWidget::mousePressEvent(event);
}

void CListWidge::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Delete && event->modifiers() == Qt::NoModifier && canClear())
        Clear();
    else
        QTreeWidget::keyPressEvent(event);
}

// Renaming --------------------------------------------------------------------------------------

bool CListWidge::Private::mayRename(const CListWidgeItem *row)
{
    return row && row->titleLimit() > 0 && row->hasData() && !row->isProtected()
           && !row->isReadOnly();
}

bool CListWidge::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    // A key says nothing about the column.
    const QModelIndex cell = trigger == EditKeyPressed ? index.siblingAtColumn(TitleColumn) : index;
    if (cell.column() != TitleColumn || !d->mayRename(libraryRow(itemFromIndex(cell))))
        return false;
    return QTreeWidget::edit(cell, trigger, event);
}

void CListWidge::rename(const CListWidgeItem::Reference &which, const QString &title)
{
    if (d->busy || !which.get() || !d->mayRename(which.get()))
        return;
    SlotCommand command(*this, {{which}, 1}, {});
    CListWidgeItem *row = command.next();
    if (!row)
        return;
    QString error;
    row->setTitle(title.left(row->titleLimit()), error);
    command.finishRow(error);
}

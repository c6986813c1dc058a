// SPDX-License-Identifier: MIT
// Dragging rows: the checks, and what a drop does.
#include "interfaces/IPreferences.h"
#include "widgets/lists/CListWidgePrivate.h"
#include "widgets/lists/ListBoxes.h"

#include <QDrag>
#include <QDropEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QPainter>
#include <QSet>
#include <QTreeWidgetItemIterator>

namespace {

constexpr int MarkWidth = 2;
constexpr int LabelPadding = 6;

/// Entries for rows; the first of a payload is its header.
qsizetype rowsIn(const CListWidge::Payload &payload)
{
    return payload.size() - 1;
}

QList<int> slotsIn(const CListWidge::Payload &payload)
{
    QList<int> found;
    for (qsizetype entry = 1; entry < payload.size(); ++entry) {
        if (const auto row = rowpayload::row(payload.at(entry)))
            found.append(row->slot);
    }
    return found;
}

/// What hangs at the pointer.
QPixmap dragLabel(const CListWidge &list, const QString &text)
{
    const QFontMetrics metrics = list.fontMetrics();
    const QSize size(metrics.horizontalAdvance(text) + 2 * LabelPadding,
                     metrics.height() + LabelPadding);
    QPixmap picture(size * list.devicePixelRatioF());
    picture.setDevicePixelRatio(list.devicePixelRatioF());
    picture.fill(list.palette().color(QPalette::Highlight));
    QPainter painter(&picture);
    painter.setFont(list.font());
    painter.setPen(list.palette().color(QPalette::HighlightedText));
    painter.drawText(QRect(QPoint(), size), Qt::AlignCenter, text);
    return picture;
}

} // namespace

// Rows ------------------------------------------------------------------------------------------

CListWidgeItem *CListWidge::Private::below(CListWidgeItem *row) const
{
    QTreeWidgetItem *item = row;
    do
        item = list.itemBelow(item);
    while (item && !libraryRow(item));
    return libraryRow(item);
}

QList<CListWidgeItem::Reference> CListWidge::Private::rowsOfSlots(int first, int last) const
{
    QList<CListWidgeItem::Reference> found;
    for (QTreeWidgetItemIterator it(&list); *it; ++it) {
        CListWidgeItem *row = libraryRow(*it);
        if (row && row->slotNumber() >= first && row->slotNumber() <= last)
            found.append(row->reference());
    }
    return found;
}

int CListWidge::Private::lastSlot() const
{
    int last = 0;
    for (QTreeWidgetItemIterator it(&list); *it; ++it) {
        if (const CListWidgeItem *row = libraryRow(*it))
            last = qMax(last, row->slotNumber());
    }
    return last;
}

void CListWidge::Private::select(const QList<CListWidgeItem::Reference> &rows) const
{
    QItemSelection selection;
    for (const CListWidgeItem::Reference &each : rows) {
        if (const CListWidgeItem *row = each.get(); row && row->treeWidget() == &list) {
            const QModelIndex index = list.indexFromItem(row);
            if (selection.isEmpty())
                list.selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
            selection.select(index, index);
        }
    }
    list.selectionModel()->select(selection,
                                  QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

// Checks ----------------------------------------------------------------------------------------

bool CListWidge::getDropConfirmatin(QWidget *source, CListWidgeItem *target, const Payload &payload,
                                    bool isStore)
{
    const QPointer<CListWidge> self(this);
    const auto held = target ? target->reference() : CListWidgeItem::Reference();
    const auto isIntact = [&] { return self && held.get() == target; };
    const bool passes = checkNoProtected(target, payload, isStore) && isIntact()
                        && checkInsertValid(target, payload, isStore) && isIntact()
                        && checkDropLocation(source, target, payload, isStore) && isIntact();
    if (!passes)
        return false;
    if (!getPreference(IPreferences::ConfirmStore, target) || !isStore)
        return true;
    qsizetype missing = rowsIn(payload);
    for (CListWidgeItem *row = target; row && missing > 0; row = d->below(row))
        --missing;
    if (missing > 0)
        return listboxes::confirm(this,
                                  QStringLiteral("Too many rows are selected. \nStore anyway?"));
    if (payload.size() > 2)
        return listboxes::confirm(this, QStringLiteral("Store to multiple locations"));
    return d->confirmFor("Store to %s #%03d?", target);
}

bool CListWidge::checkNoProtected(CListWidgeItem *target, const Payload &payload, bool isStore)
{
    if (!isStore)
        return true;
    if (payload.size() == 1)
        return false;
    bool readOnly = false;
    bool isProtected = false;
    CListWidgeItem *row = target;
    for (qsizetype left = rowsIn(payload); left > 0 && row && !isProtected; --left) {
        readOnly = readOnly || row->isReadOnly();
        isProtected = row->isProtected();
        // Deliberate: the walk stays on a row that cannot be written.
        if (!row->isReadOnly() && !isProtected)
            row = d->below(row);
    }
    if (!readOnly && !isProtected)
        return true;
    const char *word = readOnly && isProtected ? "Read only or Protected"
                       : readOnly              ? "Read only"
                                               : "Protected";
    listboxes::critical(this, QStringLiteral("Error"),
                        row ? QString::asprintf("(%d) Is %s", row->slotNumber(), word)
                            : QString::fromLatin1(word));
    return false;
}

bool CListWidge::checkInsertValid(CListWidgeItem *, const Payload &payload, bool isStore)
{
    if (isStore)
        return true;
    const QList<int> dragged = slotsIn(payload);
    const bool apart =
        std::ranges::adjacent_find(dragged, [](int slot, int next) { return next != slot + 1; })
        != dragged.end();
    if (apart) {
        listboxes::critical(
            this, QStringLiteral("Error"),
            QStringLiteral("Unsupported Operation: Separated rows cannot be inserted."));
    }
    return !dragged.isEmpty() && !apart;
}

bool CListWidge::checkDropLocation(QWidget *, CListWidgeItem *, const Payload &, bool)
{
    return true;
}

// Dragging --------------------------------------------------------------------------------------

QStringList CListWidge::mimeTypes() const
{
    return {QLatin1String(rowpayload::MimeType)};
}

QMimeData *CListWidge::mimeData(const QList<QTreeWidgetItem *> &items) const
{
    const QSet<const QTreeWidgetItem *> dragged(items.begin(), items.end());
    Payload payload{QByteArray()};
    bool hasContents = false;
    for (QTreeWidgetItemIterator it(&d->list); *it; ++it) {
        const CListWidgeItem *row = libraryRow(*it);
        if (!row || !dragged.contains(row))
            continue;
        const QByteArray contents = row->dragData();
        hasContents = hasContents || !contents.isEmpty();
        payload.append(rowpayload::entry({row->slotNumber(), contents}));
    }
    if (!hasContents)
        return nullptr;
    payload.first() = rowpayload::header(d->id, rowsIn(payload));
    auto *mime = new QMimeData;
    mime->setData(QLatin1String(rowpayload::MimeType), rowpayload::encode(payload));
    return mime;
}

/// The view's own would remove the rows that were moved.
void CListWidge::startDrag(Qt::DropActions)
{
    const QList<CListWidgeItem *> rows = selectedRows();
    QMimeData *mime = rows.isEmpty() ? nullptr : mimeData(selectedItems());
    if (!mime)
        return;
    auto *drag = new QDrag(this);
    drag->setMimeData(mime);
    drag->setPixmap(dragLabel(*this, rows.size() == 1 ? rows.first()->spokenText()
                                                      : tr("%n slots", nullptr, int(rows.size()))));
    drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::CopyAction);
}

CListWidge *CListWidge::Private::source(const QMimeData *mime) const
{
    const auto from = rowpayload::listIdOf(mime);
    if (!from || busy)
        return nullptr;
    if (*from == id)
        return &list;
    return other && *from == other->d->id ? other.data() : nullptr;
}

CListWidge::Private::Spot CListWidge::Private::spotAt(const QPoint &position,
                                                      const CListWidge *from) const
{
    const bool inserts = rowsMovable && from == &list && list.sortColumn() == NumberColumn
                         && list.header()->sortIndicatorOrder() == Qt::AscendingOrder;
    CListWidgeItem *row = libraryRow(list.itemAt(position));
    // Back on what is dragged: the operator thinks better of it.
    if (!row || (from == &list && row->isSelected()))
        return {};
    QRect mark = list.visualItemRect(row);
    mark.setLeft(0);
    mark.setRight(list.viewport()->width() - 1);
    const int edge = inserts ? mark.height() / 4 : 0;
    if (position.y() < mark.top() + edge)
        return {true, false, row, QRect(0, mark.top(), mark.width(), 0)};
    if (position.y() > mark.bottom() - edge)
        return {true, false, below(row), QRect(0, mark.bottom(), mark.width(), 0)};
    return {true, true, row, mark};
}

void CListWidge::Private::showMark(const QRect &mark)
{
    if (mark == dropMark)
        return;
    dropMark = mark;
    list.viewport()->update();
}

void CListWidge::dragEnterEvent(QDragEnterEvent *event)
{
    QTreeWidget::dragEnterEvent(event);
    event->setAccepted(d->source(event->mimeData()));
}

void CListWidge::dragMoveEvent(QDragMoveEvent *event)
{
    // Scrolls at the edges.
    QTreeWidget::dragMoveEvent(event);
    const CListWidge *from = d->source(event->mimeData());
    const auto spot = from ? d->spotAt(event->position().toPoint(), from) : Private::Spot();
    d->showMark(spot.mark);
    event->setDropAction(spot.isStore ? Qt::CopyAction : Qt::MoveAction);
    event->setAccepted(spot.isValid);
}

void CListWidge::dragLeaveEvent(QDragLeaveEvent *event)
{
    QTreeWidget::dragLeaveEvent(event);
    d->showMark({});
}

void CListWidge::dropEvent(QDropEvent *event)
{
    CListWidge *from = d->source(event->mimeData());
    const auto spot = from ? d->spotAt(event->position().toPoint(), from) : Private::Spot();
    const Payload payload = spot.isValid ? rowpayload::decode(event->mimeData()) : Payload();
    // Ends the view's part in the drag.
    QDragLeaveEvent leave;
    dragLeaveEvent(&leave);
    event->setDropAction(spot.isStore ? Qt::CopyAction : Qt::MoveAction);
    event->setAccepted(rowsIn(payload) > 0);
    if (!event->isAccepted())
        return;
    // Questions are asked when the drag is over: it has the pointer.
    const auto target = spot.row ? spot.row->reference() : CListWidgeItem::Reference();
    QMetaObject::invokeMethod(
        this,
        [this, guard = QPointer(from), spot, target, payload] {
            if (guard && target.get() == spot.row)
                finishDrop(guard, target, payload, spot.isStore);
        },
        Qt::QueuedConnection);
}

void CListWidge::paintEvent(QPaintEvent *event)
{
    QTreeWidget::paintEvent(event);
    if (d->dropMark.isNull())
        return;
    QPainter painter(viewport());
    painter.setPen(QPen(palette().color(QPalette::Highlight), MarkWidth));
    if (d->dropMark.height() == 0)
        painter.drawLine(d->dropMark.topLeft(), QPoint(d->dropMark.right(), d->dropMark.top()));
    else
        painter.drawRect(d->dropMark.adjusted(1, 1, -1, -1));
}

// Drops -----------------------------------------------------------------------------------------

void CListWidge::finishDrop(CListWidge *from, const CListWidgeItem::Reference &target,
                            const Payload &payload, bool isStore)
{
    if (d->busy)
        return;
    const QPointer<CListWidge> self(this);
    d->busy = true;
    const bool atEnd = !target.get();
    const bool wanted = getDropConfirmatin(from, target.get(), payload, isStore);
    if (!self)
        return;
    d->busy = false;
    if (!wanted || atEnd != !target.get())
        return;
    if (isStore)
        storeDropped(target.get(), payload);
    else
        moveDropped(target.get(), slotsIn(payload));
}

void CListWidge::storeDropped(CListWidgeItem *target, const Payload &payload)
{
    SlotSelection targets;
    for (CListWidgeItem *row = target; row && targets.count < rowsIn(payload);
         row = d->below(row)) {
        targets.rows.append(row->reference());
        ++targets.count;
    }
    SlotCommand command(*this, targets, QStringLiteral("Storing library slot #%1"));
    for (qsizetype entry = 1; CListWidgeItem *row = command.next(); ++entry) {
        const auto dragged = rowpayload::row(payload.at(entry));
        if (!command.showProgress())
            break;
        // An empty slot leaves nothing to store.
        if (!dragged || dragged->contents.isEmpty())
            continue;
        QString error;
        row->storeDragged(dragged->contents, error);
        if (!command.finishRow(error))
            break;
    }
    if (command.hasList())
        d->select(targets.rows);
}

/// The slots follow each other, and so do all others between them and their new place. One after the
/// other is taken to its place; behind it those in between close up.
void CListWidge::moveDropped(const CListWidgeItem *target, const QList<int> &moved)
{
    const int first = moved.first();
    const int last = moved.last();
    const int place = target ? target->slotNumber() : d->lastSlot() + 1;
    if (place >= first && place <= last + 1)
        return;
    const bool up = place < first;
    const int count = int(moved.size());
    SlotSelection steps;
    steps.count = count;
    for (int step = 0; step < count; ++step)
        steps.rows += d->rowsOfSlots(up ? first + step : first, up ? first + step : first);
    const auto changed = d->rowsOfSlots(qMin(first, place), qMax(last, place - 1));
    const QPointer<CListWidge> self(this);
    SlotCommand command(*this, steps, QStringLiteral("Moving library slot #%1"));
    for (int step = 0; CListWidgeItem *row = command.next(); ++step) {
        QString error;
        if (!command.showProgress())
            break;
        row->moveTo(up ? place + step : place - 1, error);
        if (!command.finishRow(error) || !error.isEmpty())
            break;
    }
    for (const CListWidgeItem::Reference &each : changed) {
        if (self && each.get())
            repaintItem_Polymorphic(each.get());
    }
    if (self)
        d->select(d->rowsOfSlots(up ? place : place - count, (up ? place + count : place) - 1));
}

// SPDX-License-Identifier: MIT
// The commands on the rows.
#include "interfaces/IMemAPI.h"
#include "widgets/lists/CListWidgePrivate.h"
#include "widgets/lists/ListBoxes.h"

#include <QTreeWidgetItemIterator>

#include <algorithm>
#include <utility>

namespace {

bool isToggledOff(const CListWidgeItem *row)
{
    return row->hasData() && row->isProtected();
}

bool isClearable(const CListWidgeItem *row)
{
    return row->hasData() && !row->isProtected();
}

bool isShown(const QTreeWidgetItem *item)
{
    for (; item; item = item->parent()) {
        if (item->isHidden())
            return false;
    }
    return true;
}

} // namespace

// Rows ------------------------------------------------------------------------------------------

SlotSelection CListWidge::Private::selection() const
{
    SlotSelection selection;
    for (QTreeWidgetItemIterator it(&list, QTreeWidgetItemIterator::Selected); *it; ++it) {
        ++selection.count;
        if (CListWidgeItem *row = libraryRow(*it))
            selection.rows.append(row->reference());
    }
    return selection;
}

QList<CListWidgeItem::Reference> CListWidge::Private::rows(bool visibleOnly) const
{
    QList<CListWidgeItem::Reference> found;
    for (QTreeWidgetItemIterator it(&list); *it; ++it) {
        CListWidgeItem *row = libraryRow(*it);
        if (row && (!visibleOnly || isShown(row)))
            found.append(row->reference());
    }
    return found;
}

/// Without references: the keys ask after every change of the selection.
bool CListWidge::Private::anySelected(Test fits) const
{
    for (QTreeWidgetItemIterator it(&list, QTreeWidgetItemIterator::Selected); *it; ++it) {
        const CListWidgeItem *row = libraryRow(*it);
        if (row && fits(row))
            return true;
    }
    return false;
}

CListWidgeItem *CListWidge::Private::firstSelected() const
{
    for (QTreeWidgetItemIterator it(&list, QTreeWidgetItemIterator::Selected); *it; ++it) {
        if (CListWidgeItem *row = libraryRow(*it))
            return row;
    }
    return nullptr;
}

void CListWidge::Private::overVisibleRows(Test fits, void (*change)(CListWidgeItem *))
{
    const QPointer<CListWidge> guard(&list);
    busy = true;
    Q_EMIT list.commandStarted();
    const QList<CListWidgeItem::Reference> all =
        guard ? rows(true) : QList<CListWidgeItem::Reference>();
    for (const CListWidgeItem::Reference &each : all) {
        CListWidgeItem *row = each.get();
        if (!guard || !row)
            break;
        if (!fits(row))
            continue;
        change(row);
        if (guard && each.get() == row)
            guard->repaintItem_Polymorphic(row);
    }
    if (!guard)
        return;
    busy = false;
    Q_EMIT list.commandFinished();
}

bool CListWidge::Private::confirmFor(const char *format, const CListWidgeItem *row) const
{
    return listboxes::confirm(
        &list, QString::asprintf(format, qUtf8Printable(row->titleText()), row->slotNumber()));
}

bool CListWidge::getPreference(int number, const CListWidgeItem *row) const
{
    IMemAPI *memory = row ? row->memAPI() : nullptr;
    const IPreferences *preferences = memory ? memory->preferences() : nullptr;
    return preferences && preferences->preference(number).toBool();
}

void CListWidge::repaintItem_Polymorphic(CListWidgeItem *row)
{
    row->contentsChanged();
}

void CListWidge::triggerUpdate()
{
    viewport()->update();
}

// Commands --------------------------------------------------------------------------------------

void CListWidge::Store()
{
    if (d->busy)
        return;
    SlotCommand command(*this, d->selection(), QStringLiteral("Storing library slot #%1"));
    if (!command.hasList())
        return;
    setUpdatesEnabled(false);
    bool asked = false;
    while (CListWidgeItem *row = command.next()) {
        if (getPreference(IPreferences::ConfirmStore, row)) {
            if (!std::exchange(asked, true)) {
                setUpdatesEnabled(true);
                command.hideLabels();
            }
            const bool yes = d->confirmFor("Store to %s #%03d?", row);
            if (!command.isIntact())
                break;
            if (!yes)
                continue;
        }
        QString error;
        if (!command.showProgress())
            break;
        row->store(error);
        if (!command.finishRow(error))
            break;
    }
    if (!command.hasList() || asked)
        return;
    setUpdatesEnabled(true);
    triggerUpdate();
}

void CListWidge::Recall()
{
    if (d->busy)
        return;
    const SlotSelection selection = d->selection();
    const QPointer<CListWidge> self(this);
    goClearAllUndo(true);
    const auto first = selection.rows.value(0);
    const auto isIntact = [&] { return self && first.get() && first.get()->treeWidget() == self; };
    if (!isIntact())
        return;
    d->busy = true;
    const bool wanted = !getPreference(IPreferences::ConfirmRecall, first.get())
                        || d->confirmFor("Recall from %s #%03d?", first.get());
    QString error;
    if (wanted && isIntact())
        first.get()->recall(error);
    if (self)
        d->busy = false;
    if (!wanted || !isIntact())
        return;
    if (!error.isEmpty()) {
        // Deliberate: the product's name, where other commands say "Error".
        listboxes::critical(this, QStringLiteral("TV9K"), error);
        return;
    }
    repaintItem_Polymorphic(first.get());
    if (self)
        Q_EMIT selectionChanged();
}

void CListWidge::Clear()
{
    if (d->busy)
        return;
    const QPointer<CListWidge> self(this);
    d->busy = true;
    const bool yes =
        listboxes::confirm(this, QStringLiteral("Are you sure you want to clear selection?"));
    if (!self)
        return;
    d->busy = false;
    if (!yes)
        return;
    SlotCommand command(*this, d->selection(), QStringLiteral("Clearing library slot #%1"));
    while (CListWidgeItem *row = command.next()) {
        if (!command.showProgress())
            break;
        if (!isClearable(row))
            continue;
        // Deliberate: what a clear says is not shown.
        QString error;
        row->clear(error);
        if (!command.repaintRow())
            break;
    }
}

void CListWidge::ClearAll()
{
    if (d->busy)
        return;
    d->overVisibleRows(isClearable, [](CListWidgeItem *row) {
        QString error;
        row->clear(error);
    });
}

void CListWidge::Protect()
{
    if (d->busy)
        return;
    const SlotSelection selection = d->selection();
    const bool unprotects = std::ranges::any_of(
        selection.rows, [](const auto &each) { return isToggledOff(each.get()); });
    SlotCommand command(*this, selection, QStringLiteral("Protecting library slot #%1"));
    while (CListWidgeItem *row = command.next()) {
        if (!row->hasData())
            continue;
        if (!command.showProgress())
            break;
        if (unprotects && !row->isProtected())
            continue;
        QString error;
        row->toggleProtection(error);
        if (!command.repaintRow())
            break;
    }
}

void CListWidge::Undo(bool both)
{
    if (d->busy)
        return;
    const QPointer<CListWidge> self(this);
    if (both && d->other)
        d->other->Undo(false);
    if (!self)
        return;
    d->overVisibleRows([](const CListWidgeItem *) { return true; },
                       [](CListWidgeItem *row) { row->undo(); });
    if (!self)
        return;
    triggerUpdate();
    if (both)
        Q_EMIT selectionChanged();
}

void CListWidge::goClearAllUndo(bool both)
{
    const QPointer<CListWidge> self(this);
    if (both && d->other)
        d->other->goClearAllUndo(false);
    if (!self)
        return;
    const QList<CListWidgeItem::Reference> rows = d->rows(false);
    for (const CListWidgeItem::Reference &row : rows) {
        if (row.get())
            row.get()->clearUndo();
    }
    if (self)
        d->keys.changed();
}

// What would do something -----------------------------------------------------------------------

QList<CListWidgeItem *> CListWidge::selectedRows() const
{
    QList<CListWidgeItem *> rows;
    for (const CListWidgeItem::Reference &row : d->selection().rows)
        rows.append(row.get());
    return rows;
}

bool CListWidge::canStore() const
{
    return d->anySelected(
        [](const CListWidgeItem *row) { return !row->isReadOnly() && !row->isProtected(); });
}

bool CListWidge::canRecall() const
{
    const CListWidgeItem *first = d->firstSelected();
    return first && first->hasData();
}

bool CListWidge::canClear() const
{
    return d->anySelected(
        [](const CListWidgeItem *row) { return isClearable(row) && !row->isReadOnly(); });
}

bool CListWidge::canProtect() const
{
    // With any protected row among them only those are toggled.
    if (d->anySelected(isToggledOff)) {
        return d->anySelected(
            [](const CListWidgeItem *row) { return isToggledOff(row) && !row->isReadOnly(); });
    }
    return d->anySelected(
        [](const CListWidgeItem *row) { return row->hasData() && !row->isReadOnly(); });
}

bool CListWidge::isUndoAvailable(bool both) const
{
    if (both && d->other && d->other->isUndoAvailable(false))
        return true;
    for (QTreeWidgetItemIterator it(const_cast<CListWidge *>(this)); *it; ++it) {
        const CListWidgeItem *row = libraryRow(*it);
        // In this order: few rows have it, and the view finds out slowly what is hidden.
        if (row && row->hasUndo() && isShown(row))
            return true;
    }
    return false;
}

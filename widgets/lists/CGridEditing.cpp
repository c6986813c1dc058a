// SPDX-License-Identifier: MIT
// How the grid changes the memory: single cells, whole channels, fields and rows, and their undo.
#include "interfaces/utilities/NS_Utilities.h"
#include "widgets/binding/Binding.h"
#include "widgets/lists/CGridPrivate.h"
#include "widgets/lists/GridAccessible.h"

#include <QScopedValueRollback>

namespace {

/// What undo information is noted under.
constexpr int undoKey(int high, int low)
{
    return static_cast<int>(static_cast<quint32>(high) * 65536 + static_cast<quint32>(low));
}

} // namespace

bool CGrid::autoUndoDisabled() const
{
    return d->recording > 0;
}

QString CGrid::Private::name() const
{
    if (!grid.accessibleName().isEmpty())
        return grid.accessibleName();
    const QString words = binding::addressInWords(grid.namedAddress());
    return words.isEmpty() ? CGrid::tr("Patch") : words;
}

std::unique_ptr<IUndoRecord> CGrid::Private::openRecord(const QString &what) const
{
    return grid.memAPI()->openUndoRecord(name() + QStringLiteral(": ") + what);
}

/// The values that a click on the cell may change.
void CGrid::Private::note(IUndoRecord *record, int key, int row, int column) const
{
    const auto at = grid.hasCell(row, column) ? addressOf(row, column) : std::nullopt;
    if (record && at)
        memory().note(*record, key, *at);
}

void CGrid::Private::commit(std::unique_ptr<IUndoRecord> record) const
{
    if (record)
        grid.memAPI()->commitUndoRecord(std::move(record));
}

void CGrid::writeUndo(IUndoRecord &record, int key)
{
    const auto bits = static_cast<quint32>(key);
    d->note(&record, key, static_cast<int>(bits >> 16), static_cast<int>(bits & 0xFFFF));
}

void CGrid::connectionChange(int row, int column, bool withUndo)
{
    if (!hasCell(row, column) || isCellDisabled(row, column))
        return;
    if (!memAPI() || !NS_Utilities::mainThreadRunning())
        return;
    const int channel = channelOf(row, column);
    const int field = d->fieldValueOf(row, column);
    const auto at = d->storage().address(channel, field);
    GridStorage::Click click;
    if (at)
        click = d->storage().click(d->memory().getBitParam(*at), channel, field);

    const QPointer<CGrid> self(this);
    Q_EMIT aboutToChangeValue(this, channel, field, click.value);
    if (!self || !memAPI())
        return;
    if (d->changeCancelled) {
        d->changeCancelled = false;
        return;
    }
    int result = IMemAPI::Failed;
    {
        const QScopedValueRollback recording(d->recording, d->recording + (withUndo ? 1 : 0));
        if (withUndo) {
            auto record = d->openRecord(
                tr("%1, %2").arg(channelTitle(channel), fieldTitle(fieldOf(row, column))));
            d->note(record.get(), undoKey(row, column), row, column);
            d->commit(std::move(record));
        }
        if (at)
            result = d->memory().setBitParam(*this, *at, click.value);
    }
    if (result < 0)
        return;
    refreshCells({column, row}, RefreshScope::Parameter);
    GridAccessible::announceState(*this, row, column);
    Q_EMIT patchUpdated(row, column, !click.wasConnected);
}

void CGrid::clearRow(int row)
{
    if (!memAPI() || !d->rows.has(row))
        return;
    auto record = d->openRecord(
        tr("%1 cleared")
            .arg(orientation() == ChannelsAcross ? fieldTitle(row) : channelTitle(row)));
    for (int column = 0; column < cols(); ++column)
        d->note(record.get(), undoKey(row, column), row, column);
    d->commit(std::move(record));
    const QPointer<CGrid> self(this);
    for (int column = 0; self && column < cols(); ++column) {
        if (!valueAt(row, column))
            continue;
        ++d->recording;
        connectionChange(row, column, false);
        if (self)
            --d->recording;
    }
}

void CGrid::setAllChannelsForField(const int field, const bool on)
{
    if (!memAPI() || !NS_Utilities::mainThreadRunning() || field < 0 || field >= fields())
        return;
    const bool across = orientation() == ChannelsAcross;
    const auto rowOf = [&](int channel) { return across ? field : channel; };
    const auto columnOf = [&](int channel) { return across ? channel : field; };
    auto record = d->openRecord(on ? tr("all to %1").arg(fieldTitle(field))
                                   : tr("none to %1").arg(fieldTitle(field)));
    for (int channel = 0; channel < channels(); ++channel) {
        const auto at = d->addressing.addressOfChannel(channel);
        // Deliberate: the key is made of channel and field, whichever of them is the row.
        if (record && at && !isCellDisabled(rowOf(channel), columnOf(channel)))
            d->memory().note(*record, undoKey(channel, field), *at);
    }
    const QPointer<CGrid> self(this);
    for (int channel = 0; channel < channels(); ++channel) {
        const auto at = d->addressing.addressOfChannel(channel);
        if (!at || isCellDisabled(rowOf(channel), columnOf(channel)))
            continue;
        // Deliberate: the field's place in the grid, not its number in the memory.
        const quint32 mask = d->addressing.numbering.getMemApiBitMask(channel, field);
        const auto value = static_cast<quint32>(d->memory().getBitParam(*at));
        {
            const QScopedValueRollback recording(d->recording, d->recording + 1);
            d->memory().setBitParam(*this, *at,
                                    static_cast<int>(on ? value | mask : value & ~mask));
        }
        Q_EMIT patchUpdated(rowOf(channel), columnOf(channel), on);
        if (!self || !memAPI())
            return;
    }
    d->commit(std::move(record));
    refreshCells(d->cursor);
}

void CGrid::setAllFieldsForChannel(const int channel, const int on)
{
    if (channel < 0 || channel >= channels())
        return;
    const auto at = d->addressing.addressOfChannel(channel);
    if (memAPI() && NS_Utilities::mainThreadRunning() && at)
        d->memory().setBitParam(*this, *at, on > 0 ? -1 : 0);
    const QPointer<CGrid> self(this);
    for (int field = 0; self && field < fields(); ++field) {
        const bool across = orientation() == ChannelsAcross;
        Q_EMIT patchUpdated(across ? field : channel, across ? channel : field, on != 0);
    }
    if (self)
        refreshCells(d->cursor);
}

void CGrid::clearAll()
{
    const QPointer<CGrid> self(this);
    for (int channel = 0; self && channel < channels(); ++channel)
        setAllFieldsForChannel(channel, 0);
}

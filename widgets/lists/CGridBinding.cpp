// SPDX-License-Identifier: MIT
// The grid's addresses and place in the memory.
#include "widgets/binding/Binding.h"
#include "widgets/lists/CGridPrivate.h"

#include <QTimer>

namespace {

constexpr int AutoUpdateMilliseconds = 10;

QDataStream *streamIn(const Q_UINT8 *bytes)
{
    return reinterpret_cast<QDataStream *>(const_cast<Q_UINT8 *>(bytes));
}

} // namespace

void CGrid::appendAddress(short itsGroup, short itsIndex, short itsElement, int offset,
                          int alternateOffset)
{
    if (!memAPI())
        return;
    d->addressing.fieldAddresses.append({{itsGroup, itsElement, itsIndex}, 0, 0});
    memAPI()->attachProxy(this, packedAddress(itsGroup, itsIndex, itsElement), 0);
    d->addressing.offsets[itsGroup] = offset;
    if (alternateOffset > 0)
        d->addressing.alternateOffsets[itsGroup] = alternateOffset;
    clearBG();
}

void CGrid::setAltChannelThreshold(unsigned short threshold)
{
    d->addressing.alternateThreshold = threshold;
    clearBG();
}

int CGrid::lookup_multiAddressModeOffset(short itsGroup, int value, bool ignoreAlternate) const
{
    return d->addressing.offset(itsGroup, value, ignoreAlternate);
}

void CGrid::swapChannels(unsigned a, unsigned b, unsigned c, unsigned swappedWithB)
{
    d->addressing.numbering.swapChannels(a, b, c, swappedWithB);
    clearBG();
}

void CGrid::removeFieldRange(int from, int to)
{
    d->addressing.numbering.removeFieldRange(from, to);
    clearBG();
}

bool CGrid::changeOperationCancelled() const
{
    return d->changeCancelled;
}

void CGrid::setChangeOperationCancelled(bool cancelled)
{
    d->changeCancelled = cancelled;
}

// Binding ---------------------------------------------------------------------------------------

void CGrid::connectMemAPI()
{
    if (!binding::ready(*this))
        return;
    const binding::SilentScope silent(*this);
    binding::attach(*this);
    for (const IMemAPI::TSingleAddress &field : std::as_const(d->addressing.fieldAddresses))
        memAPI()->attachProxy(this, packedAddress(field.group, field.index, field.element), 0);
    if (d->autoUpdates)
        setupAutoUpdate();
    initGridArea();
}

void CGrid::disconnectMemAPI()
{
    qDeleteAll(std::exchange(d->notifiers, {}));
    if (isAttached() && binding::ready(*this)) {
        for (const IMemAPI::TSingleAddress &field : std::as_const(d->addressing.fieldAddresses))
            memAPI()->detachProxy(this, packedAddress(field.group, field.index, field.element));
    }
    binding::detach(*this);
}

void CGrid::setAutoUpdates(bool on)
{
    d->autoUpdates = on;
}

void CGrid::setupAutoUpdate()
{
    qDeleteAll(std::exchange(d->notifiers, {}));
    for (int channel = 0; channel < channels(); ++channel) {
        const auto at = d->addressing.addressOfChannel(channel);
        // In multiMode a channel is more than one parameter.
        const int parameters = d->multiMode ? fields() : 1;
        for (int i = 0; at && i < parameters; ++i) {
            const auto switchIndex = static_cast<qint16>(at->index + i);
            const IMemAPI::TSingleAddress address{{at->group, at->element, switchIndex}, 0, 0};
            d->notifiers.append(CSimpleNotifier::Create(*memAPI(), this, &address, 0,
                                                        SLOT(onAutoUpdate()), nullptr, nullptr));
        }
    }
}

void CGrid::onAutoUpdate()
{
    if (d->autoUpdatesPending++ == 0)
        QTimer::singleShot(AutoUpdateMilliseconds, this, &CGrid::onUpdate);
}

void CGrid::onUpdate()
{
    d->autoUpdatesPending = 0;
    refreshCells(d->cursor);
}

void CGrid::process(const Q_UINT8 *bytes, int operation, Q_UINT32 key)
{
    if (!isAttached() || !binding::ready(*this) || binding::handOverToMainThread(*this))
        return;
    constexpr Q_UINT32 RowUnit = 65536;
    const QPoint cell(static_cast<int>(key % RowUnit), static_cast<int>(key / RowUnit));
    if (operation == Refresh) {
        refreshCells(cell, key ? RefreshScope::Parameter : RefreshScope::Everything);
    } else if (operation == Paste && bytes) {
        paste(bytes);
        refreshCells(cell);
    } else if (operation == Copy && bytes) {
        TParamInfo info;
        valueAt(cell.y(), cell.x(), &info);
        if (info.group >= 0)
            TParamInfoWriter(info, streamIn(bytes));
    }
}

void CGrid::paste(const Q_UINT8 *bytes)
{
    const TParamInfoReader reader(streamIn(bytes));
    if (!reader.isValid())
        return;
    const TParamInfo &info = reader.info();
    const TMemOriginHelper origin(memAPI(), this);
    memAPI()->writeValue(info.group, info.index, info.element, info.value,
                         memAPI()->undoToken(0, 1));
}

// SPDX-License-Identifier: MIT
// What the memory offers beside values: texts, undo, the console's clocks and meters,
// subscriptions.
#include "companions/memory/MethodText.h"
#include "companions/memory/ParameterMemoryPrivate.h"
#include "companions/memory/SimpleNotifier.h"

#include <QThread>

// Text ---------------------------------------------------------------------------------------

void ParameterMemory::valueText(int, int tableId, QString &text, QPixmap &, int value,
                                bool onOffFive, int group, int index) const
{
    text = isReady()
               ? d->loaded->text.text(d->entry(group, index).parameter, tableId, value, onOffFive)
               : QString::number(value);
}

void ParameterMemory::setNumberContext(const TMemProxy *proxy)
{
    d->numberContext =
        proxy ? static_cast<const TSingleBaseAddress &>(*proxy) : TSingleBaseAddress{-1, -1, -1};
}

int ParameterMemory::numberToValue(float number, int tableId) const
{
    const auto *parameter = d->entry(d->numberContext.group, d->numberContext.index).parameter;
    return isReady() ? d->loaded->text.value(parameter, tableId, number) : 0;
}

// Undo ---------------------------------------------------------------------------------------

QUndoStack *ParameterMemory::undoStack() const
{
    return d->history.stack();
}

int ParameterMemory::undoToken(int, int)
{
    if (QThread::currentThread() != thread())
        return 0;
    const TMemProxy *origin = writeOrigin();
    if (origin && (!origin->isUndoEnable() || origin->autoUndoDisabled()))
        return 0;
    return d->history.token(origin);
}

void ParameterMemory::beginGesture(TMemProxyBasic *proxy)
{
    d->history.beginGesture(proxy);
}

void ParameterMemory::endGesture(TMemProxyBasic *proxy)
{
    d->history.endGesture(proxy);
}

std::unique_ptr<IUndoRecord> ParameterMemory::openUndoRecord(const QString &text)
{
    return UndoHistory::openRecord(text);
}

void ParameterMemory::commitUndoRecord(std::unique_ptr<IUndoRecord> record)
{
    d->history.commit(std::move(record));
}

// Console ------------------------------------------------------------------------------------

QObject *ParameterMemory::blinkClock(bool *lit, int)
{
    if (lit)
        *lit = d->service.isLit();
    return d->service.blinkClock();
}

void ParameterMemory::stepBlinkClock(bool lit)
{
    d->service.stepBlinkClock(lit);
}

bool ParameterMemory::connectApiSignal(bool on, const char *signal, QObject *receiver,
                                       const char *slot)
{
    if (!signal || !receiver || !slot)
        return false;
    const QMetaMethod source = methodFromText(*this, signal);
    const QMetaMethod target = methodFromText(*receiver, slot);
    const bool isOurs =
        source == QMetaMethod::fromSignal(&ParameterMemory::onlineChanged)
        || source == QMetaMethod::fromSignal(&ParameterMemory::frequentServiceEvent);
    if (!isOurs || !target.isValid() || !QMetaObject::checkConnectArgs(source, target))
        return false;
    // One connection however often a control attaches without having detached.
    if (on)
        connect(this, source, receiver, target, Qt::UniqueConnection);
    else
        disconnect(this, source, receiver, target);
    return true;
}

void ParameterMemory::setMeterWatch(bool on, TMemProxyBasic *proxy, int group, int index,
                                    int element)
{
    const auto address = packedAddress(static_cast<qint16>(group), static_cast<qint16>(index),
                                       static_cast<qint16>(element));
    if (!on) {
        d->live.unwatch(proxy, address);
        return;
    }
    d->delivery.recordOf(*proxy).deliveredLive = true;
    d->live.watch(proxy, address);
}

void ParameterMemory::deliverMeter(int group, int index, int element, int level, int peak)
{
    d->live.deliverMeter(packedAddress(static_cast<qint16>(group), static_cast<qint16>(index),
                                       static_cast<qint16>(element)),
                         level, peak);
}

const quint16 *ParameterMemory::meterTableById(int tableId, int *count, int) const
{
    const std::vector<quint16> *table = model().meterTable(tableId);
    if (count)
        *count = table ? static_cast<int>(table->size()) : 0;
    return table ? table->data() : nullptr;
}

void ParameterMemory::requestTimecode(int, TMemProxyBasic *proxy)
{
    d->delivery.recordOf(*proxy).deliveredLive = true;
    d->live.requestTimecode(proxy);
}

void ParameterMemory::deliverTimecode(int hours, int minutes, int seconds, int frames)
{
    d->live.deliverTimecode(hours, minutes, seconds, frames);
}

bool ParameterMemory::timecodeWanted() const
{
    return d->live.timecodeWanted();
}

int ParameterMemory::connectionState() const
{
    return d->service.connectionState();
}

void ParameterMemory::setConnectionState(int bits)
{
    d->service.setConnectionState(bits);
}

void ParameterMemory::tickService()
{
    d->service.tick();
}

IPreferences *ParameterMemory::preferences()
{
    return &d->preferences;
}

void ParameterMemory::setPreference(int number, const QVariant &value)
{
    d->preferences.values.insert(number, value);
}

// Further addresses --------------------------------------------------------------------------

CSimpleNotifier *ParameterMemory::createNotifier(QObject *receiver, const QString &names,
                                                 int selector, const char *slot,
                                                 CSimpleNotifier *reuse, void *)
{
    if (!isReady())
        return nullptr;
    const NameIndex::Result found = d->loaded->names.resolve(names, selector);
    if (found.outcome == NameIndex::UnknownName)
        d->binder->warnUnknown(found.culprit);
    if (found.outcome != NameIndex::Found)
        return nullptr;
    auto *notifier =
        reuse ? qobject_cast<SimpleNotifier *>(reuse) : SimpleNotifier::create(receiver, slot);
    if (!notifier)
        return nullptr;
    notifier->pointAt(names);
    d->binder->bind(*notifier->valueHolder(), selector, 0);
    return notifier;
}

CSimpleNotifier *ParameterMemory::createNotifier(QObject *receiver, const TSingleAddress *address,
                                                 int selector, const char *slot,
                                                 CSimpleNotifier *reuse, void *)
{
    if (!address || !parameterExists(address->group, address->index, address->element + selector))
        return nullptr;
    auto *notifier =
        reuse ? qobject_cast<SimpleNotifier *>(reuse) : SimpleNotifier::create(receiver, slot);
    if (!notifier)
        return nullptr;
    TSingleBaseAddress selected = *address;
    selected.element = static_cast<qint16>(selected.element + selector);
    notifier->pointAt({});
    d->binder->bindTo(*notifier->valueHolder(), selected);
    return notifier;
}

int ParameterMemory::resolveXtraInfo(TXtraInfo &info) const
{
    return HeadAmpPatch::parse(info) ? Ok : Failed;
}

bool ParameterMemory::resolvePhantomAddress(const TMemProxy *proxy, int baseElement, int baseIndex,
                                            TSingleBaseAddress &address) const
{
    if (!isReady())
        return false;
    const auto found = d->loaded->headAmps.phantomAddress(proxy->element, baseElement, baseIndex);
    if (found)
        address = *found;
    return found.has_value();
}

// SPDX-License-Identifier: MIT
#include "testkit/WatchedMemory.h"

#include "interfaces/CSimpleNotifier.h"
#include "interfaces/MemHelpers.h"
#include "testkit/CallNote.h"

using callnote::line;

QStringList WatchedMemory::take()
{
    const QMutexLocker locker(&m_mutex);
    return std::exchange(m_calls, {});
}

QStringList WatchedMemory::take(const QStringList &words)
{
    return callnote::filter(take(), words);
}

void WatchedMemory::note(const QString &call) const
{
    const QMutexLocker locker(&m_mutex);
    m_calls.append(call);
}

bool WatchedMemory::isReady() const
{
    return m_memory.isReady();
}

void WatchedMemory::attachProxy(TMemProxyBasic *proxy, quint32 packedAddress, int reserved)
{
    note(line("attachProxy", packedAddress, reserved));
    m_memory.attachProxy(proxy, packedAddress, reserved);
}

void WatchedMemory::detachProxy(TMemProxyBasic *proxy, quint32 packedAddress)
{
    note(line("detachProxy", packedAddress));
    m_memory.detachProxy(proxy, packedAddress);
}

void WatchedMemory::releaseProxy(TMemProxyBasic *proxy)
{
    note(line("releaseProxy"));
    m_memory.releaseProxy(proxy);
}

void WatchedMemory::postObserverEvent(TMemProxyBasic *proxy)
{
    note(line("postObserverEvent"));
    m_memory.postObserverEvent(proxy);
}

void WatchedMemory::namedAddressChanged(TMemProxy *proxy)
{
    m_memory.namedAddressChanged(proxy);
}

void WatchedMemory::selectAltAddress(TMemProxy *proxy, int element)
{
    m_memory.selectAltAddress(proxy, element);
}

bool WatchedMemory::parameterExists(int group, int index, int element) const
{
    return m_memory.parameterExists(group, index, element);
}

int WatchedMemory::readMinimum(int group, int index, int element, int reserved) const
{
    return m_memory.readMinimum(group, index, element, reserved);
}

int WatchedMemory::readMaximum(int group, int index, int element, int reserved) const
{
    return m_memory.readMaximum(group, index, element, reserved);
}

int WatchedMemory::readValue(int group, int index, int element, int reserved, int reserved2) const
{
    note(line("readValue", group, index, element));
    return m_memory.readValue(group, index, element, reserved, reserved2);
}

int WatchedMemory::readDefault(int group, int index, int element, bool alternative,
                               int *unavailable) const
{
    return m_memory.readDefault(group, index, element, alternative, unavailable);
}

int WatchedMemory::writeValue(int group, int index, int element, int value, int undoToken)
{
    note(callnote::write(group, index, element, value, undoToken));
    const TMemOriginHelper origin(&m_memory, writeOrigin());
    return m_memory.writeValue(group, index, element, value, undoToken);
}

bool WatchedMemory::applyParamInfo(int group, int index, TParamInfo &info, int reserved)
{
    const TMemOriginHelper origin(&m_memory, writeOrigin());
    return m_memory.applyParamInfo(group, index, info, reserved);
}

int WatchedMemory::stepValue(const TMemProxy *proxy, int value, Step step) const
{
    return m_memory.stepValue(proxy, value, step);
}

void WatchedMemory::valueText(int element, int tableId, QString &text, QPixmap &pixmap, int value,
                              bool onOffFive, int group, int index) const
{
    m_memory.valueText(element, tableId, text, pixmap, value, onOffFive, group, index);
}

void WatchedMemory::setNumberContext(const TMemProxy *proxy)
{
    m_memory.setNumberContext(proxy);
}

int WatchedMemory::numberToValue(float number, int tableId) const
{
    return m_memory.numberToValue(number, tableId);
}

int WatchedMemory::undoToken(int kind, int automatic)
{
    const TMemOriginHelper origin(&m_memory, writeOrigin());
    return m_memory.undoToken(kind, automatic);
}

void WatchedMemory::beginGesture(TMemProxyBasic *proxy)
{
    m_memory.beginGesture(proxy);
}

void WatchedMemory::endGesture(TMemProxyBasic *proxy)
{
    m_memory.endGesture(proxy);
}

std::unique_ptr<IUndoRecord> WatchedMemory::openUndoRecord(const QString &text)
{
    return m_memory.openUndoRecord(text);
}

void WatchedMemory::commitUndoRecord(std::unique_ptr<IUndoRecord> record)
{
    m_memory.commitUndoRecord(std::move(record));
}

QObject *WatchedMemory::blinkClock(bool *lit, int reserved)
{
    return m_memory.blinkClock(lit, reserved);
}

bool WatchedMemory::connectApiSignal(bool on, const char *signal, QObject *receiver,
                                     const char *slot)
{
    return m_memory.connectApiSignal(on, signal, receiver, slot);
}

void WatchedMemory::setMeterWatch(bool on, TMemProxyBasic *proxy, int group, int index, int element)
{
    m_memory.setMeterWatch(on, proxy, group, index, element);
}

const quint16 *WatchedMemory::meterTableById(int tableId, int *count, int reserved) const
{
    return m_memory.meterTableById(tableId, count, reserved);
}

void WatchedMemory::requestTimecode(int count, TMemProxyBasic *proxy)
{
    m_memory.requestTimecode(count, proxy);
}

int WatchedMemory::connectionState() const
{
    return m_memory.connectionState();
}

IPreferences *WatchedMemory::preferences()
{
    return m_memory.preferences();
}

void WatchedMemory::alert(int group, int index, int element)
{
    m_memory.alert(group, index, element);
}

CSimpleNotifier *WatchedMemory::createNotifier(QObject *receiver, const QString &names,
                                               int selector, const char *slot,
                                               CSimpleNotifier *reuse, void *context)
{
    return m_memory.createNotifier(receiver, names, selector, slot, reuse, context);
}

CSimpleNotifier *WatchedMemory::createNotifier(QObject *receiver, const TSingleAddress *address,
                                               int selector, const char *slot,
                                               CSimpleNotifier *reuse, void *context)
{
    return m_memory.createNotifier(receiver, address, selector, slot, reuse, context);
}

int WatchedMemory::resolveXtraInfo(TXtraInfo &info) const
{
    return m_memory.resolveXtraInfo(info);
}

bool WatchedMemory::resolvePhantomAddress(const TMemProxy *proxy, int baseElement, int baseIndex,
                                          TSingleBaseAddress &address) const
{
    return m_memory.resolvePhantomAddress(proxy, baseElement, baseIndex, address);
}

// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/IMemAPI.h"

#include <QMutex>
#include <QStringList>

/// Stands between a control and any memory, passes everything on, and notes what the control does to
/// the memory, in order, as RecordingMemory does: "attachProxy 6297602 0", "writeValue 3 7 2 = 40
/// token 9". What the memory delivers reaches the control directly. Calls may come from any thread
/// that the memory allows them from.
class WatchedMemory : public IMemAPI
{
public:
    /// `memory` outlives this object.
    explicit WatchedMemory(IMemAPI &memory) : m_memory(memory) {}

    /// What was called since the last take: registrations, reads and writes of values, and requests
    /// for observer events.
    QStringList take();
    /// Only the calls that begin with one of the words.
    QStringList take(const QStringList &words);

    bool isReady() const override;
    void attachProxy(TMemProxyBasic *proxy, quint32 packedAddress, int reserved) override;
    void detachProxy(TMemProxyBasic *proxy, quint32 packedAddress) override;
    void releaseProxy(TMemProxyBasic *proxy) override;
    void postObserverEvent(TMemProxyBasic *proxy) override;
    void namedAddressChanged(TMemProxy *proxy) override;
    void selectAltAddress(TMemProxy *proxy, int element) override;
    bool parameterExists(int group, int index, int element) const override;
    int readMinimum(int group, int index, int element, int reserved) const override;
    int readMaximum(int group, int index, int element, int reserved) const override;
    int readValue(int group, int index, int element, int reserved, int reserved2) const override;
    int readDefault(int group, int index, int element, bool alternative,
                    int *unavailable) const override;
    int writeValue(int group, int index, int element, int value, int undoToken) override;
    bool applyParamInfo(int group, int index, TParamInfo &info, int reserved) override;
    int stepValue(const TMemProxy *proxy, int value, Step step) const override;
    void valueText(int element, int tableId, QString &text, QPixmap &pixmap, int value,
                   bool onOffFive, int group, int index) const override;
    void setNumberContext(const TMemProxy *proxy) override;
    int numberToValue(float number, int tableId) const override;
    int undoToken(int kind, int automatic) override;
    void beginGesture(TMemProxyBasic *proxy) override;
    void endGesture(TMemProxyBasic *proxy) override;
    std::unique_ptr<IUndoRecord> openUndoRecord(const QString &text) override;
    void commitUndoRecord(std::unique_ptr<IUndoRecord> record) override;
    QObject *blinkClock(bool *lit, int reserved) override;
    bool connectApiSignal(bool on, const char *signal, QObject *receiver,
                          const char *slot) override;
    void setMeterWatch(bool on, TMemProxyBasic *proxy, int group, int index, int element) override;
    const quint16 *meterTableById(int tableId, int *count, int reserved) const override;
    void requestTimecode(int count, TMemProxyBasic *proxy) override;
    int connectionState() const override;
    IPreferences *preferences() override;
    void alert(int group, int index, int element) override;
    CSimpleNotifier *createNotifier(QObject *receiver, const QString &names, int selector,
                                    const char *slot, CSimpleNotifier *reuse,
                                    void *context) override;
    CSimpleNotifier *createNotifier(QObject *receiver, const TSingleAddress *address, int selector,
                                    const char *slot, CSimpleNotifier *reuse,
                                    void *context) override;
    int resolveXtraInfo(TXtraInfo &info) const override;
    bool resolvePhantomAddress(const TMemProxy *proxy, int baseElement, int baseIndex,
                               TSingleBaseAddress &address) const override;

private:
    void note(const QString &call) const;

    IMemAPI &m_memory;
    mutable QMutex m_mutex;
    mutable QStringList m_calls;
};

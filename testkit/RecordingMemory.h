// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/TMemProxy.h"

#include <QHash>
#include <QObject>
#include <QStringList>

#include <atomic>
#include <map>
#include <optional>
#include <vector>

/// A memory of a few parameters that notes every call that controls make, in order, as text:
/// "writeValue 3 7 2 = 40 token 9". Delivers nothing by itself.
class RecordingMemory : public QObject, public IMemAPI
{
    Q_OBJECT

public:
    /// What the memory knows of a parameter; a test sets it before, and looks at it afterwards.
    struct Parameter
    {
        int minimum = 0;             ///< of the values that are written
        int maximum = 100;           ///< the same
        int value = 0;               ///< what is stored
        int plainDefault = 0;        ///< what a reset stores
        int alternativeDefault = 0;  ///< the same, where the control asks for it
        bool hasAlternative = false; ///< whether there is one
    };

    ~RecordingMemory() override;

    /// The parameter at an address, made on first use.
    Parameter &at(int group, int index, int element);
    /// Assigns this memory and an address to a proxy, as a binder does, and attaches it.
    void bind(TMemProxy &proxy, int group, int index, int element, int offset = 0);

    /// What was called since the last take, all of it or only the calls that begin with one of the
    /// words.
    QStringList take();
    QStringList take(const QStringList &words);

    bool readyNow = true;                ///< what isReady() says
    bool exists = true;                  ///< of every parameter
    bool acceptsPaste = true;            ///< of every copied parameter
    int token = 9;                       ///< of every write that can be undone
    int typedValue = 0;                  ///< what every typed number means
    int steppedValue = 0;                ///< where every step leads
    QPixmap pictureOfValue;              ///< of every value; null: it has a text
    std::atomic<int> observerEvents = 0; ///< how many were asked for, on any thread
    bool lit = false;                    ///< the phase of the blink clock
    /// The phantom-power parameter of every channel, while it is patched to one.
    std::optional<TSingleBaseAddress> phantom;
    int connection = 0;                              ///< IMemAPI::ConnectionBit flags
    QHash<int, QVariant> preferenceValues;           ///< by number
    std::map<int, std::vector<quint16>> meterTables; ///< by number

    bool isReady() const override { return readyNow; }
    void attachProxy(TMemProxyBasic *proxy, quint32 packedAddress, int reserved) override;
    void detachProxy(TMemProxyBasic *proxy, quint32 packedAddress) override;
    void releaseProxy(TMemProxyBasic *proxy) override;
    void postObserverEvent(TMemProxyBasic *proxy) override;
    void namedAddressChanged(TMemProxy *proxy) override;
    void selectAltAddress(TMemProxy *proxy, int element) override;
    bool parameterExists(int, int, int) const override { return exists; }
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
    int connectionState() const override { return connection; }
    IPreferences *preferences() override { return &m_preferences; }
    void alert(int group, int index, int element) override;
    CSimpleNotifier *createNotifier(QObject *, const QString &, int, const char *,
                                    CSimpleNotifier *, void *) override;
    CSimpleNotifier *createNotifier(QObject *, const TSingleAddress *, int, const char *,
                                    CSimpleNotifier *, void *) override;
    int resolveXtraInfo(TXtraInfo &) const override { return Failed; }
    bool resolvePhantomAddress(const TMemProxy *, int, int,
                               TSingleBaseAddress &address) const override
    {
        address = phantom.value_or(address);
        return phantom.has_value();
    }

Q_SIGNALS:
    /// One step of the blink clock, which this memory is itself.
    void timeout();

private:
    struct Preferences : IPreferences
    {
        explicit Preferences(const QHash<int, QVariant> &all) : values(all) {}
        QVariant preference(int number) const override { return values.value(number); }
        const QHash<int, QVariant> &values;
    };

    const Parameter &look(int group, int index, int element) const;
    void remember(TMemProxy *proxy);
    void note(const QString &call) const;

    std::map<quint32, Parameter> m_parameters;
    Preferences m_preferences{preferenceValues};
    QList<TMemProxy *> m_bound;
    mutable QStringList m_calls;
};

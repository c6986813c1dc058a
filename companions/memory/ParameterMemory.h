// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/Export.h"
#include "interfaces/IMemAPI.h"
#include "interfaces/IParameterNames.h"

#include <QObject>

#include <memory>

class ConsoleModel;
class QUndoStack;
class QWidget;
struct ParameterSnapshot;

/// The embedded parameter memory: an IMemAPI inside the editor's process. A console model (JSON) says
/// which parameters there are; any thread may read and write them; changes reach the bound controls
/// on the GUI thread, gathered into one delivery per turn of the event loop.
///
/// Construct and destroy it on the GUI thread. It may die before the controls that it has bound: they
/// then stay inert.
class CONSOLECOMPANIONS_EXPORT ParameterMemory : public QObject,
                                                 public IMemAPI,
                                                 public IParameterNames
{
    Q_OBJECT

public:
    /// Not ready until a model is loaded.
    explicit ParameterMemory(QObject *parent = nullptr);
    ~ParameterMemory() override;

    /// The model that ships with the library, a resource name.
    static QString builtInModel();

    /// Reads a console model; once only. On failure the memory stays not ready, the result is false
    /// and `error` holds one line: file, JSON path, reason.
    bool load(const QString &fileName, QString *error = nullptr);
    /// The model that was loaded; an empty one before.
    const ConsoleModel &model() const;

    /// Binds every proxy among `root` and its descendants, parents before children, siblings in the
    /// order of the form. Addresses without a unit take `element`, or that of the nearest
    /// ElementProperty around them; `elementOffset` becomes the proxies' offset. A name that does not
    /// resolve leaves its control inert, with one warning that tells the address and the nearest known
    /// name. Returns how many were bound.
    int bind(QWidget *root, int element = 0, int elementOffset = 0);
    /// The same for one proxy; false when its name does not resolve.
    bool bindProxy(TMemProxy *proxy, int element = 0, int elementOffset = 0);

    /// Resolves one named address; false when it does not exist.
    bool resolve(const QString &name, int element, TSingleBaseAddress &address) const;
    Outcome lookUp(const QString &name, int element, TSingleBaseAddress &address) const override;
    QString nearestName(const QString &name) const override;
    /// The name of an address ("block/parameter").
    QString nameOf(int group, int index) const;
    /// A parameter's name for people ("Input 12 Gain"), as the model gives it.
    QString labelOf(int group, int index, int element) const;

    /// The undo history. Its indexes and texts may be shown; nothing else pushes to it.
    QUndoStack *undoStack() const;
    /// All values. Other threads may write meanwhile: each value is whole, all are not of one moment.
    ParameterSnapshot snapshot() const;
    /// Brings the values of a snapshot back, held inside the bounds, as one undo step that shows as
    /// `text`. Only what differs is written. A snapshot of another model gives its values to the
    /// parameters of the same names; what this model lacks is skipped, what the snapshot lacks stays.
    /// Returns how many values were written.
    int apply(const ParameterSnapshot &snapshot, const QString &text);

    /// Sets a numbered preference.
    void setPreference(int number, const QVariant &value);

    // The console's side. Any thread.

    /// A meter reading: level and held peak as 14-bit codes. Delivered to the watching proxies on the
    /// calling thread.
    void deliverMeter(int group, int index, int element, int level, int peak);
    /// The time counter, delivered on the calling thread to the proxies that asked within the last
    /// 10 seconds.
    void deliverTimecode(int hours, int minutes, int seconds, int frames);
    /// True while a proxy wants the time counter.
    bool timecodeWanted() const;
    /// The ConnectionBit flags; a change of online is told by onlineChanged().
    void setConnectionState(int bits);
    /// One blink step; `lit` is the phase from now on.
    void stepBlinkClock(bool lit);
    /// The tick behind frequentServiceEvent().
    void tickService();

    // IMemAPI
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

Q_SIGNALS:
    /// The console came online or went offline. GUI thread.
    void onlineChanged(bool online);
    /// About 50 times a second while a console runs. GUI thread.
    void frequentServiceEvent();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

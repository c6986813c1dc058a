// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/Export.h"
#include "interfaces/IPreferences.h"
#include "interfaces/IUndoRecord.h"
#include "interfaces/TParamInfo.h"
#include "toolkit/QtTypes.h"

#include <QPixmap>
#include <QString>

#include <memory>

class CSimpleNotifier;
class QObject;
class TMemProxy;
class TMemProxyBasic;

/// The parameter memory that controls talk to: the boundary between the widgets and a console.
///
/// A parameter is addressed by `group` (0-1023), `index` (0-2047) and `element` (0-2047, the channel
/// or unit); calls take them in that order. Values are 32-bit integers in the parameter's own unit
/// (a level in tenths of a decibel, a switch as 0 and 1).
///
/// Threads: unless an operation says `Any thread.` it is called on the GUI thread. Nothing throws.
/// Failure: results are negative on failure; reading what does not exist gives 0.
class CONSOLEINTERFACES_EXPORT IMemAPI
{
public:
    /// Results of operations that can fail; anything negative is a failure.
    enum Result : qint32 {
        Ok = 0,
        Failed = static_cast<qint32>(0x80004005), ///< no such parameter, or the memory is not ready
    };

    /// Bits of connectionState(). The console counts as online when both are set.
    enum ConnectionBit { LinkUp = 1 << 0, InSync = 1 << 1, Online = LinkUp | InSync };

    /// A widget with this dynamic property (an int) gives that element to every proxy inside it that a
    /// binder meets, instead of the one that the binder was given.
    static constexpr char ElementProperty[] = "channelElement";

    /// Which way and how far stepValue() goes.
    enum Step { LineUp, LineDown, PageUp, PageDown };

    /// A parameter's address.
    struct TSingleBaseAddress
    {
        qint16 group = 0;   ///< the block of parameters, 0-1023
        qint16 element = 0; ///< the channel or unit, 0-2047
        qint16 index = 0;   ///< the parameter in its block, 0-2047
    };

    /// An address that serves a range of consecutive channels (a count of 0: no range given).
    struct TSingleAddress : TSingleBaseAddress
    {
        qint16 firstChannel = 0; ///< counted from 0
        qint16 channelCount = 0; ///< 0: no range
    };

    /// The extra addressing text of a control and what it means: a base element and a base index,
    /// -1 while unknown.
    struct TXtraInfo
    {
        QString text;            ///< as it stands in the form
        qint16 baseElement = -1; ///< -1: unknown
        qint16 baseIndex = -1;   ///< -1: unknown
    };

    virtual ~IMemAPI() = default;

    /// Whether values may be read and written. Any thread.
    virtual bool isReady() const = 0;

    // Registration ---------------------------------------------------------------------------

    /// From now on `proxy` hears of changes of the parameter at `packedAddress` (packedAddress()):
    /// its process() is called with operation 0 on the GUI thread, at most once per turn of the event
    /// loop however often the value changed, and always once after the last change. A proxy may be
    /// registered on several addresses; a second registration on the same one changes nothing.
    /// The proxy gets one such call soon after attaching, changed or not. `reserved` is 0.
    /// An address that does not exist is ignored.
    virtual void attachProxy(TMemProxyBasic *proxy, quint32 packedAddress, int reserved) = 0;

    /// Ends a registration. Ignored when there is none.
    virtual void detachProxy(TMemProxyBasic *proxy, quint32 packedAddress) = 0;

    /// Forgets everything that the memory knows of the proxy: registrations, meter watches, time code
    /// requests, queued observer events, a gesture in progress. Returns only when no other thread is
    /// inside the proxy's process(); afterwards the memory does not touch it again. Idempotent.
    virtual void releaseProxy(TMemProxyBasic *proxy) = 0;

    /// Asks for one process() with operation 0 on the GUI thread. Requests are coalesced per proxy.
    /// The proxy must be bound, and not yet released. Any thread.
    virtual void postObserverEvent(TMemProxyBasic *proxy) = 0;

    /// The proxy's named address was changed while it is bound: it is detached, the new name is
    /// resolved (with the element that the binder gave), and it is attached again.
    virtual void namedAddressChanged(TMemProxy *proxy) = 0;

    /// The alternative-address mode of `proxy` was switched, or a proxy that follows a selection is to
    /// follow `element`: its named address is resolved again for that element and it is attached
    /// again. For a control, `element` is its element plus its element offset.
    virtual void selectAltAddress(TMemProxy *proxy, int element) = 0;

    /// Whether the parameter exists in the console's present configuration. Any thread.
    virtual bool parameterExists(int group, int index, int element) const = 0;

    // Values ---------------------------------------------------------------------------------

    /// The bounds of the parameter, the same for all its elements; 0 when it does not exist.
    /// `reserved` is 0. Any thread.
    virtual int readMinimum(int group, int index, int element, int reserved) const = 0;
    virtual int readMaximum(int group, int index, int element, int reserved) const = 0;

    /// The stored value; 0 when the parameter does not exist. The reserved arguments are 0.
    /// Any thread, lock-free.
    virtual int readValue(int group, int index, int element, int reserved, int reserved2) const = 0;

    /// The default, or with `alternative` the alternative default. `unavailable`, when given, is set
    /// to 1 if there is no alternative default (the result is then the plain one), else to 0.
    /// Any thread.
    virtual int readDefault(int group, int index, int element, bool alternative,
                            int *unavailable) const = 0;

    /// Stores a value, held inside the parameter's bounds, and tells every proxy on the address.
    /// `undoToken` is 0 (not entered in the undo history) or a token of undoToken(), which counts on
    /// the GUI thread only. Returns Ok or a negative result. Any thread.
    virtual int writeValue(int group, int index, int element, int value, int undoToken) = 0;

    /// Applies a copied parameter to (`group`, `index`, the element in `info`), with undo. True when
    /// the record fits that parameter (it was copied from the same group and index); its value is
    /// then stored, and `info` holds the value as stored. False, and nothing changed, otherwise.
    /// `reserved` is 0.
    virtual bool applyParamInfo(int group, int index, TParamInfo &info, int reserved) = 0;

    /// The value that a step of a control with the parameter's own steps leads to from `value`: the
    /// next or previous detent of the parameter on (the proxy's group, index), several detents for a
    /// page, one unit where the parameter has no detents. Held inside the bounds.
    virtual int stepValue(const TMemProxy *proxy, int value, Step step) const = 0;

    // Text -----------------------------------------------------------------------------------

    /// The display text or picture of a value. Fills either `text` or `pixmap` (null: use the text).
    /// `tableId`: 0 the parameter's own table, above 0 a table by its number, -3 "ON"/"OFF", other
    /// negative numbers the parameter's own table with an unshifted value. For tables from 0 up
    /// `value` counts from the minimum if the minimum is negative. `onOffFive`: with table -3, the
    /// value 5 means on, instead of 1. Without a usable table the text is the number itself.
    virtual void valueText(int element, int tableId, QString &text, QPixmap &pixmap, int value,
                           bool onOffFive, int group, int index) const = 0;

    /// Says whose own table and bounds the next numberToValue() is to use where its table number
    /// names none.
    virtual void setNumberContext(const TMemProxy *proxy) = 0;

    /// Turns a typed number (in the unit that the display text shows: decibels, hertz ...) into the
    /// nearest value of table `tableId`, counted as valueText() counts it. Numbers beyond the table
    /// give its nearest end; a number that is not finite gives the lowest.
    virtual int numberToValue(float number, int tableId) const = 0;

    // Undo -----------------------------------------------------------------------------------

    /// A token for the next writeValue(): places it in the undo history, in the step of the running
    /// gesture, in the running burst of writes of the same control, or in a new step. 0 when the
    /// proxy that writes (TMemOriginHelper) keeps out of the history. `kind` is 0, `automatic` is 1:
    /// other values are kept for kinds of history to come.
    virtual int undoToken(int kind, int automatic) = 0;

    /// Between these calls all writes of `proxy` are one undo step (a drag from press to release).
    /// Beginning a gesture ends the one before; ending one that does not run is ignored.
    virtual void beginGesture(TMemProxyBasic *proxy) = 0;
    virtual void endGesture(TMemProxyBasic *proxy) = 0;

    /// Opens an undo step that proxies fill themselves; `text` is what the undo menu shows.
    virtual std::unique_ptr<IUndoRecord> openUndoRecord(const QString &text) = 0;
    /// Enters the step in the history. A record that is dropped instead leaves no trace; an empty one
    /// makes no step.
    virtual void commitUndoRecord(std::unique_ptr<IUndoRecord> record) = 0;

    // Console --------------------------------------------------------------------------------

    /// The blink clock that all blinking controls follow: an object that emits `timeout()` at every
    /// blink step. `lit`, when given, is filled with the present phase (true: lit). `reserved` is 0.
    virtual QObject *blinkClock(bool *lit, int reserved) = 0;

    /// Connects (`on`) or disconnects a signal of the memory and a slot of `receiver`, both as
    /// SIGNAL() and SLOT() texts, white space being ignored. Signals: `onlineChanged(bool)`, and
    /// `frequentServiceEvent()` about 50 times a second. False when one of them does not exist.
    virtual bool connectApiSignal(bool on, const char *signal, QObject *receiver,
                                  const char *slot) = 0;

    /// Starts or ends the delivery of meter readings at (group, index, element) to `proxy`: its
    /// process() is called with operation 0 and the reading's bytes, on the thread that delivers:
    /// level (two 7-bit bytes, high first), then held peak (likewise).
    virtual void setMeterWatch(bool on, TMemProxyBasic *proxy, int group, int index,
                               int element) = 0;

    /// The meter table with that number: ascending 14-bit level codes, `count` of them; null (and
    /// `count` 0) when there is none. Lives as long as the memory. `reserved` is 0.
    virtual const quint16 *meterTableById(int tableId, int *count, int reserved) const = 0;

    /// Asks the console for its time counter: process() of `proxy` is called with operation 0 and four
    /// bytes (hours, minutes, seconds, frames) while the counter runs, for at least 10 seconds, on
    /// the thread that delivers. `count` is 1.
    virtual void requestTimecode(int count, TMemProxyBasic *proxy) = 0;

    /// ConnectionBit flags. Any thread.
    virtual int connectionState() const = 0;

    /// The editor's preferences, or null.
    virtual IPreferences *preferences() = 0;

    /// Gives every proxy on a parameter (all of them when group is negative) one observer event, as
    /// if it had changed. Any thread.
    virtual void alert(int group, int index, int element) = 0;

    // Further addresses ----------------------------------------------------------------------

    /// Makes a subscription of `receiver`, owned by it: `slot`, a SLOT() text taking an int, is called
    /// with the value of the parameter on the GUI thread whenever it changes. `selector` is the
    /// element. `names` is one named address, or a ";"-separated list for the kinds of channel: the
    /// first entry takes the channels from 0 up to the size of its parameter, every further entry is
    /// led by two hexadecimal digits, the number of channels that it takes. `reuse`, when not null, is
    /// a subscription to point at the new address instead of making one. `context` is null.
    /// Null when nothing resolves.
    virtual CSimpleNotifier *createNotifier(QObject *receiver, const QString &names, int selector,
                                            const char *slot, CSimpleNotifier *reuse,
                                            void *context) = 0;
    /// The same for an address in fields; `selector` is added to its element.
    virtual CSimpleNotifier *createNotifier(QObject *receiver, const TSingleAddress *address,
                                            int selector, const char *slot, CSimpleNotifier *reuse,
                                            void *context) = 0;

    /// Works out base element and base index from the text. Returns 0, or a negative result and the
    /// fields as they were.
    virtual int resolveXtraInfo(TXtraInfo &info) const = 0;

    /// Fills `address` with the phantom-power parameter that belongs to the channel now, by its patch
    /// and the ports of the head-amp units. True when the channel is patched to one that can be
    /// attached by that address.
    virtual bool resolvePhantomAddress(const TMemProxy *proxy, int baseElement, int baseIndex,
                                       TSingleBaseAddress &address) const = 0;

    /// The proxy on whose behalf the present write is made, or null (TMemOriginHelper).
    TMemProxy *writeOrigin() const { return m_writeOrigin; }

private:
    friend class TMemOriginHelper;
    TMemProxy *m_writeOrigin = nullptr;
};

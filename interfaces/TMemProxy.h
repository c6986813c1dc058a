// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/ParameterAddress.h"
#include "interfaces/TMemProxyBasic.h"

#include <QDataStream>
#include <QList>

class QMouseEvent;
class QWidget;

/// The parameter side of a bound control: its address, its place in the memory, and the properties
/// that every bound control publishes. A control derives from its Qt base class first and from
/// TMemProxy second.
///
/// Life: constructed without a memory; the memory's binder sets memory, address and attached flag and
/// calls connectMemAPI(); disconnectMemAPI() detaches. The destructor of every bound class calls
/// leaveMemory() first, while the object is still whole. GUI thread, except process().
class CONSOLEINTERFACES_EXPORT TMemProxy : public TMemProxyBasic, public IMemAPI::TSingleAddress
{
public:
    /// Without a memory and an address.
    TMemProxy() = default;
    ~TMemProxy() override { releaseFromMemory(); }

    /// Registers the proxy with the memory, and unregisters it.
    virtual void connectMemAPI() = 0;
    virtual void disconnectMemAPI() = 0;

    /// The parameter's name, "[UU]block/parameter"; UU, two upper-case hexadecimal digits, is the
    /// unit (element), without it the element is the one that the binder gives. Changing the name of a
    /// bound proxy binds it anew.
    virtual QString namedAddress() const { return m_namedAddress; }
    virtual void setNamedAddress(const QString &name)
    {
        if (name == m_namedAddress)
            return;
        m_namedAddress = name;
        if (m_memAPI)
            m_memAPI->namedAddressChanged(this);
    }

    /// Whether edits made through this control are entered in the undo history; true unless a control
    /// says otherwise.
    virtual bool isUndoEnable() const { return m_undoEnable; }
    virtual void setUndoEnable(bool enable) { m_undoEnable = enable; }

    /// Which default the reset and numeric-entry commands use: 0 the default, 1 the alternative one.
    virtual int numDefaultKind() const { return m_numDefaultKind; }
    virtual void setNumDefaultKind(int kind) { m_numDefaultKind = kind; }

    /// True: the control stays visible when the console has no such parameter.
    virtual bool disableAutoHide() const { return m_disableAutoHide; }
    virtual void setDisableAutoHide(bool disable) { m_disableAutoHide = disable; }

    /// The value-to-text table for the display text; see IMemAPI::valueText().
    virtual int tableId() const { return m_tableId; }
    virtual void setTableId(int id) { m_tableId = id; }

    /// The control refuses operation but keeps its look.
    virtual bool disabledUI() const { return m_disabledUI; }
    virtual void setDisabledUI(bool disabled) { m_disabledUI = disabled; }

    /// The proxy that a mouse event over this control means; a container answers with the part under
    /// the pointer.
    virtual TMemProxy *realMemoryProxy(QMouseEvent *) { return this; }

    /// True when a typed number is to be read in the scale of this proxy's own parameter; the memory
    /// is then told the proxy before it converts the number.
    virtual bool numberFollowsParameter() const { return m_tableId <= 0; }

    /// True for a proxy that the binder serves although it has no named address of its own.
    virtual bool bindsWithoutAddress() const { return false; }

    /// True for a proxy that serves many channels: the binder gives it addresses().
    virtual bool servesChannels() const { return false; }

    /// Writes the parameter into a stream and reads it from there; see TParamInfoWriter. A stream
    /// that holds something else changes nothing.
    virtual void copyParameters(QDataStream &stream, unsigned key)
    {
        process(streamData(stream), Copy, key);
    }
    /// Stores, with undo, what copyParameters() wrote; a record of another parameter is passed
    /// over.
    virtual void pasteParameters(const QDataStream &stream, unsigned key)
    {
        process(streamData(stream), Paste, key);
    }
    /// Store the default (alternative default, where there is one) with undo, and show it.
    virtual void reset2defaults(unsigned key) { resetTo(ResetToDefault, key); }
    virtual void reset2AltDefaults(unsigned key) { resetTo(ResetToAlternativeDefault, key); }

    /// The parameter's address and stored value; false when not bound.
    virtual bool getInformation(TParamInfo &info) const;
    /// Stores the value of `info` in this proxy's parameter, with undo; false when not bound.
    virtual bool setInformation(const TParamInfo &info);

    /// Attaches (not 0) or detaches (0) a bound proxy.
    virtual void applyConnection(int connect)
    {
        if (!m_memAPI)
            return;
        m_attached = connect || m_attached;
        connect ? connectMemAPI() : disconnectMemAPI();
    }

    /// Notes the proxy's present values in an undo record under `key`.
    virtual void writeUndo(IUndoRecord &record, int key);

    /// The range of the parameter and the size of a step; false (and 0, 0, 1) when not bound.
    virtual bool parameterRange(double &minimum, double &maximum, double &step) const;

    /// Whether there is a memory that may be used. Any thread.
    bool memAPIReady() const { return m_memAPI && m_memAPI->isReady(); }

    /// Hides the control while its parameter does not exist, and shows it again; a control that was
    /// hidden by others stays hidden.
    void setWidgetShowState(QWidget *widget);

    /// The memory that has bound the proxy, or null.
    IMemAPI *memAPI() const { return m_memAPI; }
    /// For the memory's binder.
    void setMemAPI(IMemAPI *memory) { m_memAPI = memory; }

    /// Set by the binder, cleared by disconnectMemAPI().
    bool isAttached() const { return m_attached; }
    void setAttached(bool attached) { m_attached = attached; }

    /// Added to the element where display texts are asked for and channels are counted.
    qint16 elementOffset() const { return m_elementOffset; }
    void setElementOffset(qint16 offset) { m_elementOffset = offset; }

    /// Where the value is that the control shows and edits: at the proxy's own address, unless the
    /// control follows a patch from there.
    virtual IMemAPI::TSingleBaseAddress valueAddress() const { return *this; }

    /// The packed form of this proxy's address.
    quint32 packed() const { return packedAddress(group, index, element); }

    /// One address per range of consecutive channels, for controls that serve many.
    const QList<IMemAPI::TSingleAddress> &addresses() const { return m_addresses; }
    void setAddresses(const QList<IMemAPI::TSingleAddress> &list) { m_addresses = list; }

    /// Above 0 while the control changes on behalf of the memory: nothing is written back. Raised by
    /// TMemSilentHelper only.
    unsigned char &silentCounter() { return m_silent; }
    /// Whether the control changes on behalf of the memory.
    bool isSilent() const { return m_silent != 0; }

protected:
    /// Detaches, waits until no thread is inside process(), and forgets the memory. Idempotent.
    void leaveMemory()
    {
        if (!m_memAPI)
            return;
        disconnectMemAPI();
        releaseFromMemory();
    }

private:
    static const Q_UINT8 *streamData(const QDataStream &stream)
    {
        return reinterpret_cast<const Q_UINT8 *>(&stream);
    }
    void resetTo(Operation operation, unsigned key);
    void releaseFromMemory();

    IMemAPI *m_memAPI = nullptr;
    QString m_namedAddress;
    QList<IMemAPI::TSingleAddress> m_addresses;
    int m_tableId = 0;
    int m_numDefaultKind = 0;
    qint16 m_elementOffset = 0;
    unsigned char m_silent = 0;
    bool m_attached : 1 = false;
    bool m_undoEnable : 1 = true;
    bool m_disableAutoHide : 1 = false;
    bool m_disabledUI : 1 = false;
    bool m_autoHidden : 1 = false;
};

#include "interfaces/TMemProxyInline.h"

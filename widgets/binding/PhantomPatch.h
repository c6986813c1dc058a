// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/TMemProxy.h"
#include "widgets/Export.h"

#include <QPointer>

class CSimpleNotifier;

/// Finds the phantom-power parameter that belongs to a control's channel: where its input is patched,
/// and which sources the ports of the head-amp units have, decide. Hears of changes of either through
/// the control's slot handle_patchInChange(int). GUI thread.
class CONSOLEWIDGETS_EXPORT PhantomPatch
{
public:
    /// Extra addressing text: where the parameters of the ports begin, for the memory to read.
    const QString &xtraInfo() const { return m_info.text; }
    void setXtraInfo(const QString &text);

    /// What the memory made of that text; -1 until known.
    qint16 baseElement() const { return m_info.baseElement; }
    qint16 baseIndex() const { return m_info.baseIndex; }

    /// Subscribes `receiver`, unless that is done; finds the parameter, and attaches `proxy` to it if
    /// the channel is patched to one.
    void attach(TMemProxy &proxy, QObject &receiver);
    /// Detaches, and ends the subscriptions.
    void detach(TMemProxy &proxy);
    /// The patch has changed: attaches anew. The subscriptions, one of which calls, live on.
    void reattach(TMemProxy &proxy);

    /// Whether the channel is patched to a parameter that the control is attached to.
    bool isAttachedByAddress() const { return m_attached; }
    /// The parameter; -1 in all fields while there is none.
    const IMemAPI::TSingleBaseAddress &address() const { return m_address; }

private:
    void subscribe(TMemProxy &proxy, QObject &receiver);
    void keep(CSimpleNotifier *notifier);
    void workOutBases(const IMemAPI &memory);

    IMemAPI::TXtraInfo m_info;
    QPointer<CSimpleNotifier> m_patchNotifier; ///< also the mark that the subscriptions exist
    QList<QPointer<CSimpleNotifier>> m_otherNotifiers;
    IMemAPI::TSingleBaseAddress m_address{-1, -1, -1};
    bool m_attached = false;
};

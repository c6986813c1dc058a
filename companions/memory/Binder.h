// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/NameIndex.h"

class ChangeDelivery;
class QWidget;
class TMemProxy;

/// Gives proxies their addresses and attaches them. GUI thread.
class Binder
{
public:
    /// All of these must outlive the binder.
    Binder(IMemAPI &memory, const NameIndex &names, ChangeDelivery &delivery);

    /// See ParameterMemory::bind() and ParameterMemory::bindProxy().
    int bindTree(QWidget *root, int element, int elementOffset);
    bool bind(TMemProxy &proxy, int element, int elementOffset);
    /// Binds a proxy to an address that is known already.
    void bindTo(TMemProxy &proxy, const IMemAPI::TSingleBaseAddress &address);

    /// Resolves the proxy's name anew and attaches it there. Ignored when it is not bound.
    void rebind(TMemProxy &proxy);
    void rebind(TMemProxy &proxy, int element);

    /// Says that a name is not known, and which one may have been meant.
    void warnUnknown(const QString &name) const;

private:
    void enter(TMemProxy &proxy, int element);
    static void setAddress(TMemProxy &proxy, const IMemAPI::TSingleBaseAddress &address);

    IMemAPI &m_memory;
    const NameIndex &m_names;
    ChangeDelivery &m_delivery;
};

// SPDX-License-Identifier: MIT
#include "companions/memory/Binder.h"

#include "companions/memory/ChangeDelivery.h"
#include "interfaces/TMemProxy.h"

#include <QPointer>
#include <QWidget>

namespace {

/// An object of a tree that is being bound, and the element that holds there.
struct Place
{
    QPointer<QObject> object;
    int element;
};

/// Parents before children, siblings in the order in which they were made.
void collectPreOrder(QObject *object, int element, QList<Place> &all)
{
    const QVariant own = object->property(IMemAPI::ElementProperty);
    if (own.isValid())
        element = own.toInt();
    all.append({object, element});
    for (QObject *child : object->children())
        collectPreOrder(child, element, all);
}

} // namespace

Binder::Binder(IMemAPI &memory, const NameIndex &names, ChangeDelivery &delivery)
    : m_memory(memory), m_names(names), m_delivery(delivery)
{
}

int Binder::bindTree(QWidget *root, int element, int elementOffset)
{
    // Collected first: what a widget does when it is bound may make and destroy others.
    QList<Place> all;
    if (root)
        collectPreOrder(root, element, all);
    int bound = 0;
    for (const Place &place : all) {
        auto *proxy = dynamic_cast<TMemProxy *>(place.object.data());
        if (proxy && bind(*proxy, place.element, elementOffset))
            ++bound;
    }
    return bound;
}

bool Binder::bind(TMemProxy &proxy, int element, int elementOffset)
{
    const QString name = proxy.namedAddress();
    if (name.isEmpty() && !proxy.bindsWithoutAddress())
        return false;
    NameIndex::Result found{NameIndex::Found, proxy, {}};
    if (!name.isEmpty())
        found = m_names.resolve(name, element);
    if (found.outcome == NameIndex::UnknownName) {
        warnUnknown(found.culprit);
        return false;
    }
    enter(proxy, element);
    proxy.setElementOffset(static_cast<qint16>(elementOffset));
    setAddress(proxy, found.address);
    if (proxy.servesChannels())
        proxy.setAddresses(m_names.channelRanges(name));
    proxy.connectMemAPI();
    return true;
}

void Binder::bindTo(TMemProxy &proxy, const IMemAPI::TSingleBaseAddress &address)
{
    enter(proxy, address.element);
    setAddress(proxy, address);
    proxy.connectMemAPI();
}

void Binder::enter(TMemProxy &proxy, int element)
{
    if (IMemAPI *memory = proxy.memAPI()) {
        proxy.disconnectMemAPI();
        memory->releaseProxy(&proxy);
    }
    proxy.setMemAPI(&m_memory);
    ProxyRecord &record = m_delivery.recordOf(proxy);
    record.givenElement = element;
    // Asked for before the proxy runs code of its own, in which it may be destroyed.
    m_delivery.post(record);
}

void Binder::setAddress(TMemProxy &proxy, const IMemAPI::TSingleBaseAddress &address)
{
    static_cast<IMemAPI::TSingleBaseAddress &>(proxy) = address;
    proxy.setAttached(true);
}

void Binder::rebind(TMemProxy &proxy)
{
    if (const ProxyRecord *record = ChangeDelivery::findRecord(proxy))
        rebind(proxy, record->givenElement);
}

void Binder::rebind(TMemProxy &proxy, int element)
{
    ProxyRecord *record = ChangeDelivery::findRecord(proxy);
    if (!record)
        return;
    record->givenElement = element;
    proxy.disconnectMemAPI();
    proxy.setAttached(false);
    const QString name = proxy.namedAddress();
    if (name.isEmpty())
        return;
    const NameIndex::Result found = m_names.resolve(name, element);
    if (found.outcome == NameIndex::UnknownName) {
        warnUnknown(found.culprit);
        return;
    }
    setAddress(proxy, found.address);
    if (proxy.servesChannels())
        proxy.setAddresses(m_names.channelRanges(name));
    // A selection that no entry of a channel list serves.
    if (found.address.group < 0)
        proxy.setAttached(false);
    else
        proxy.connectMemAPI();
}

void Binder::warnUnknown(const QString &name) const
{
    const QString nearest = m_names.nearest(name);
    if (nearest.isEmpty())
        qWarning("No parameter \"%ls\" in the console model.", qUtf16Printable(name));
    else
        qWarning("No parameter \"%ls\" in the console model; the nearest name is \"%ls\".",
                 qUtf16Printable(name), qUtf16Printable(nearest));
}

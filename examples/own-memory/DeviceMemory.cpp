// SPDX-License-Identifier: MIT
#include "DeviceMemory.h"

DeviceMemory::DeviceMemory(ToyDevice *device) : m_device(device)
{
    if (!device)
        return;
    // On the device's thread: store() is for any thread, and gathers what comes in.
    connect(device, &ToyDevice::changed, this, &DeviceMemory::store, Qt::DirectConnection);
}

DeviceMemory::~DeviceMemory()
{
    // The controls may live on; from now on they are inert.
    for (TMemProxyBasic *known : std::as_const(m_known)) {
        if (auto *proxy = dynamic_cast<TMemProxy *>(known)) {
            proxy->setAttached(false);
            proxy->setMemAPI(nullptr);
        }
    }
}

void DeviceMemory::bind(TMemProxy &proxy, ToyDevice::Parameter parameter, int channel)
{
    proxy.group = 0;
    proxy.index = qint16(parameter);
    proxy.element = qint16(channel);
    proxy.setMemAPI(this);
    proxy.setAttached(true);
    proxy.connectMemAPI();
}

// Who hears of what. GUI thread -------------------------------------------------------------------

void DeviceMemory::attachProxy(TMemProxyBasic *proxy, quint32 address, int)
{
    const auto [group, index, element] = unpackedAddress(address);
    if (!parameterExists(group, index, element))
        return;
    detachProxy(proxy, address);
    m_registrations.append({proxy, address});
    if (!m_known.contains(proxy))
        m_known.append(proxy);
    postObserverEvent(proxy);
}

void DeviceMemory::detachProxy(TMemProxyBasic *proxy, quint32 address)
{
    m_registrations.removeIf(
        [=](const Registration &each) { return each.proxy == proxy && each.address == address; });
}

void DeviceMemory::releaseProxy(TMemProxyBasic *proxy)
{
    m_known.removeAll(proxy);
    m_registrations.removeIf([=](const Registration &each) { return each.proxy == proxy; });
    const QMutexLocker locker(&m_mutex);
    m_asked.remove(proxy);
}

// Values. Any thread ------------------------------------------------------------------------------

bool DeviceMemory::parameterExists(int group, int index, int element) const
{
    return group == 0 && index >= 0 && index < ToyDevice::ParameterCount && element >= 0
           && element < ToyDevice::Channels;
}

int DeviceMemory::readMinimum(int group, int index, int element, int) const
{
    return parameterExists(group, index, element) && index == ToyDevice::Level ? -60 : 0;
}

int DeviceMemory::readMaximum(int group, int index, int element, int) const
{
    if (!parameterExists(group, index, element))
        return 0;
    return index == ToyDevice::Level ? 10 : 1;
}

int DeviceMemory::readValue(int group, int index, int element, int, int) const
{
    return parameterExists(group, index, element) ? m_values[index][element].load() : 0;
}

int DeviceMemory::writeValue(int group, int index, int element, int value, int)
{
    if (!parameterExists(group, index, element))
        return Failed;
    value = std::clamp(value, readMinimum(group, index, element, 0),
                       readMaximum(group, index, element, 0));
    store(index, element, value);
    if (m_device) {
        // Its answer may be another value; the controls then follow.
        QMetaObject::invokeMethod(m_device,
                                  [=, device = m_device] { device->set(index, element, value); });
    }
    return Ok;
}

void DeviceMemory::store(int index, int element, int value)
{
    if (m_values[index][element].exchange(value) != value)
        alert(0, index, element);
}

// Delivery: however much comes in, each control is called once per turn of the event loop ----------

void DeviceMemory::alert(int group, int index, int element)
{
    const QMutexLocker locker(&m_mutex);
    // A negative group means everybody.
    for (int i = 0; group < 0 && i < ToyDevice::ParameterCount * ToyDevice::Channels; ++i)
        m_changed.insert(
            packedAddress(0, qint16(i / ToyDevice::Channels), qint16(i % ToyDevice::Channels)));
    if (group >= 0)
        m_changed.insert(packedAddress(qint16(group), qint16(index), qint16(element)));
    deliverLater();
}

void DeviceMemory::postObserverEvent(TMemProxyBasic *proxy)
{
    const QMutexLocker locker(&m_mutex);
    m_asked.insert(proxy);
    deliverLater();
}

/// With the mutex held.
void DeviceMemory::deliverLater()
{
    if (!std::exchange(m_deliveryPosted, true))
        QMetaObject::invokeMethod(this, &DeviceMemory::deliver, Qt::QueuedConnection);
}

void DeviceMemory::deliver()
{
    QSet<quint32> changed;
    QSet<TMemProxyBasic *> due;
    {
        const QMutexLocker locker(&m_mutex);
        changed = std::exchange(m_changed, {});
        due = std::exchange(m_asked, {});
        m_deliveryPosted = false;
    }
    for (const Registration &each : std::as_const(m_registrations)) {
        if (changed.contains(each.address))
            due.insert(each.proxy);
    }
    for (TMemProxyBasic *proxy : std::as_const(due)) {
        // One control's code may have destroyed the next.
        if (m_known.contains(proxy))
            proxy->process(nullptr, TMemProxyBasic::Refresh, 0);
    }
}

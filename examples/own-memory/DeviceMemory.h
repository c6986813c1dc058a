// SPDX-License-Identifier: MIT
#pragma once

#include "ToyDevice.h"

#include "interfaces/PlainMemAPI.h"

#include <QMutex>
#include <QObject>
#include <QSet>

#include <atomic>

/// A toy device's parameters as controls see them: group 0, the parameter as index, the channel as
/// element. Values are kept here, so that controls never wait for the device.
class DeviceMemory : public QObject, public PlainMemAPI
{
public:
    /// Without a device the values just stay here. It lives as long as this object.
    explicit DeviceMemory(ToyDevice *device = nullptr);
    ~DeviceMemory() override;

    void bind(TMemProxy &proxy, ToyDevice::Parameter parameter, int channel);

    bool isReady() const override { return true; }
    void attachProxy(TMemProxyBasic *proxy, quint32 packedAddress, int reserved) override;
    void detachProxy(TMemProxyBasic *proxy, quint32 packedAddress) override;
    void releaseProxy(TMemProxyBasic *proxy) override;
    void postObserverEvent(TMemProxyBasic *proxy) override;
    bool parameterExists(int group, int index, int element) const override;
    int readMinimum(int group, int index, int element, int reserved) const override;
    int readMaximum(int group, int index, int element, int reserved) const override;
    int readValue(int group, int index, int element, int reserved, int reserved2) const override;
    int writeValue(int group, int index, int element, int value, int undoToken) override;
    void alert(int group, int index, int element) override;

private:
    struct Registration
    {
        TMemProxyBasic *proxy;
        quint32 address;
    };

    void store(int index, int element, int value);
    void deliverLater();
    void deliver();

    ToyDevice *m_device;
    std::array<std::array<std::atomic<int>, ToyDevice::Channels>, ToyDevice::ParameterCount>
        m_values{};
    QList<TMemProxyBasic *> m_known;
    QList<Registration> m_registrations;

    QMutex m_mutex; ///< guards what is waiting
    QSet<quint32> m_changed;
    QSet<TMemProxyBasic *> m_asked;
    bool m_deliveryPosted = false;
};

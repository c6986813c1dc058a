// SPDX-License-Identifier: MIT
#include "bench/BareDelivery.h"

#include "bench/DeliveryRig.h"

#include <QCoreApplication>

#include <algorithm>

BareMemoryDelivery::BareMemoryDelivery()
{
    scale::load(m_memory);
    m_parameters = scale::parameters(m_memory, ReceiverCount);
    for (const ScaleParameter &each : m_parameters) {
        m_proxies.push_back(std::make_unique<Proxy>());
        m_proxies.back()->setNamedAddress(each.name);
        m_memory.bindProxy(m_proxies.back().get(), each.element);
    }
    QCoreApplication::sendPostedEvents();
}

int BareMemoryDelivery::stale() const
{
    return static_cast<int>(
        std::count_if(m_proxies.begin(), m_proxies.end(),
                      [](const auto &proxy) { return proxy->seen != proxy->stored(); }));
}

BareListDelivery::BareListDelivery()
{
    for (int receiver = 0; receiver < ReceiverCount; ++receiver)
        m_receivers.push_back(std::make_unique<Receiver>());
}

int BareListDelivery::stale() const
{
    return static_cast<int>(
        std::count_if(m_receivers.begin(), m_receivers.end(), [](const auto &receiver) {
            return receiver->seen != receiver->value.load();
        }));
}

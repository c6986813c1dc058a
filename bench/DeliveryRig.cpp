// SPDX-License-Identifier: MIT
#include "bench/DeliveryRig.h"

#include "bench/KnobStrip.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

/// So many pictures that every change asks for a paint.
void setUp(CDial &dial, const QString &address)
{
    static const QPixmap strip = knobstrip::opaque(scale::Steps + 1);
    dial.setCombinedImage(strip);
    dial.setnSubImages(scale::Steps + 1);
    dial.setNamedAddress(address);
}

} // namespace

MemoryDelivery::MemoryDelivery()
{
    scale::load(m_memory);
    m_parameters = scale::parameters(m_memory, ReceiverCount);
    for (const ScaleParameter &each : m_parameters)
        m_dials.push_back(makeDial(each));
    QCoreApplication::sendPostedEvents();
}

std::unique_ptr<CDial> MemoryDelivery::makeDial(const ScaleParameter &at)
{
    auto dial = std::make_unique<CDial>();
    setUp(*dial, at.name);
    if (!m_memory.bindProxy(dial.get(), at.element))
        qFatal("%s cannot be bound", qPrintable(at.name));
    return dial;
}

void MemoryDelivery::replace(int receiver)
{
    m_dials[receiver].reset();
    m_dials[receiver] = makeDial(m_parameters[receiver]);
}

int MemoryDelivery::stale() const
{
    return static_cast<int>(std::count_if(m_dials.begin(), m_dials.end(), [this](const auto &dial) {
        return dial->value() != m_memory.readValue(dial->group, dial->index, dial->element, 0, 0);
    }));
}

DirtyListDelivery::DirtyListDelivery()
{
    scale::load(m_memory);
    for (const ScaleParameter &each : scale::parameters(m_memory, ReceiverCount)) {
        auto receiver = std::make_unique<DialReceiver>();
        receiver->memory = &m_memory;
        receiver->minimum = each.minimum;
        receiver->value = each.minimum;
        m_memory.current = receiver.get(); // binding reads the value
        setUp(receiver->dial, each.name);
        m_memory.bindProxy(&receiver->dial, each.element);
        m_receivers.push_back(std::move(receiver));
    }
    QCoreApplication::sendPostedEvents();
}

int DirtyListDelivery::stale() const
{
    return static_cast<int>(
        std::count_if(m_receivers.begin(), m_receivers.end(), [](const auto &receiver) {
            return receiver->dial.value() != receiver->value.load();
        }));
}

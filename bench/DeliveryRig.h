// SPDX-License-Identifier: MIT
#pragma once

#include "bench/references/DirtyList.h"
#include "bench/Scale.h"
#include "companions/memory/ParameterMemory.h"
#include "widgets/controls/CDial.h"

#include <memory>
#include <vector>

/// How many receivers there are in the rows on changes from other threads.
constexpr int ReceiverCount = 1000;

/// Dials bound to parameters of the memory. They are not shown: delivery without drawing.
class MemoryDelivery final
{
public:
    MemoryDelivery();

    /// Gives a receiver's parameter its lowest value plus `step` (0 to scale::Steps). Any thread.
    void change(int receiver, int step)
    {
        const ScaleParameter &at = m_parameters[receiver];
        m_memory.writeValue(at.group, at.index, at.element, at.minimum + step, 0);
    }
    /// How many dials do not have the present value.
    int stale() const;

    /// Destroys a dial and binds a new one to its parameter. GUI thread.
    void replace(int receiver);

private:
    std::unique_ptr<CDial> makeDial(const ScaleParameter &at);

    ParameterMemory m_memory;
    std::vector<ScaleParameter> m_parameters;
    std::vector<std::unique_ptr<CDial>> m_dials;
};

/// The same dials behind the dirty list.
class DirtyListDelivery final
{
public:
    DirtyListDelivery();

    void change(int receiver, int step)
    {
        DialReceiver &at = *m_receivers[receiver];
        m_list.change(at, at.minimum + step);
    }
    int stale() const;

private:
    /// Gives a dial the value of the receiver whose turn it is, without looking for an address.
    class Memory : public ParameterMemory
    {
    public:
        int readValue(int, int, int, int, int) const override
        {
            return current->value.load(std::memory_order_acquire);
        }

        const DirtyList::Receiver *current = nullptr;
    };

    struct DialReceiver final : DirtyList::Receiver
    {
        void receive() override
        {
            memory->current = this;
            dial.process(nullptr, CDial::Refresh, 0);
        }

        Memory *memory = nullptr;
        int minimum = 0;
        CDial dial;
    };

    Memory m_memory;
    DirtyList m_list;
    std::vector<std::unique_ptr<DialReceiver>> m_receivers;
};

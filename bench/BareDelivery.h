// SPDX-License-Identifier: MIT
#pragma once

#include "bench/references/DirtyList.h"
#include "bench/Scale.h"
#include "companions/memory/ParameterMemory.h"
#include "interfaces/TMemProxy.h"

#include <memory>
#include <vector>

/// Proxies that only read their value when they are told of a change: what is left is the delivery.
class BareMemoryDelivery final
{
public:
    BareMemoryDelivery();

    /// Gives a receiver's parameter its lowest value plus `step` (0 to scale::Steps). Any thread.
    void change(int receiver, int step)
    {
        const ScaleParameter &at = m_parameters[receiver];
        m_memory.writeValue(at.group, at.index, at.element, at.minimum + step, 0);
    }
    /// How many receivers have not seen the present value.
    int stale() const;

private:
    class Proxy final : public TMemProxy
    {
    public:
        ~Proxy() override { leaveMemory(); }

        void connectMemAPI() override { memAPI()->attachProxy(this, packed(), 0); }
        void disconnectMemAPI() override { memAPI()->detachProxy(this, packed()); }
        void process(const Q_UINT8 *, int, Q_UINT32) override { seen = stored(); }

        int stored() const { return memAPI()->readValue(group, index, element, 0, 0); }

        int seen = 0;
    };

    ParameterMemory m_memory;
    std::vector<ScaleParameter> m_parameters;
    std::vector<std::unique_ptr<Proxy>> m_proxies;
};

/// The same behind the dirty list.
class BareListDelivery final
{
public:
    BareListDelivery();

    void change(int receiver, int step) { m_list.change(*m_receivers[receiver], step); }
    int stale() const;

private:
    struct Receiver final : DirtyList::Receiver
    {
        void receive() override { seen = value.load(std::memory_order_acquire); }

        int seen = 0;
    };

    DirtyList m_list;
    std::vector<std::unique_ptr<Receiver>> m_receivers;
};

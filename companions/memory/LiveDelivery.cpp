// SPDX-License-Identifier: MIT
#include "companions/memory/LiveDelivery.h"

#include <algorithm>

namespace {

constexpr int MostCode = (1 << 14) - 1;

constexpr quint8 low7(int code)
{
    return static_cast<quint8>(code & 0x7F);
}

} // namespace

LiveDelivery::~LiveDelivery()
{
    // A delivery on this thread that has led here looks at the tables once more.
    *m_tables = {};
}

/// The shared mutex may prefer readers, and meters never stop: the turnstile lets a change through.
template<typename Change>
void LiveDelivery::change(Change &&change)
{
    m_changeWaits.store(true, std::memory_order_relaxed);
    const std::lock_guard turnstile(m_turnstile);
    const std::lock_guard alone(m_hold);
    m_changeWaits.store(false, std::memory_order_relaxed);
    change();
    noteTimecodeEnd();
}

void LiveDelivery::watch(TMemProxyBasic *proxy, quint32 address)
{
    change([&] {
        Watchers &watchers = m_tables->watchers[address];
        if (std::find(watchers.begin(), watchers.end(), proxy) == watchers.end())
            watchers.push_back(proxy);
    });
}

void LiveDelivery::unwatch(TMemProxyBasic *proxy, quint32 address)
{
    change([&] { std::erase(m_tables->watchers[address], proxy); });
}

void LiveDelivery::requestTimecode(TMemProxyBasic *proxy)
{
    const Clock::time_point now = Clock::now();
    change([&] {
        std::erase_if(m_tables->requests, [&](const Request &request) {
            return request.proxy == proxy || request.until <= now;
        });
        m_tables->requests.push_back({proxy, now + TimecodeLasts});
    });
}

void LiveDelivery::forget(const TMemProxyBasic *proxy)
{
    change([&] {
        for (Watchers &watchers : m_tables->watchers)
            std::erase(watchers, proxy);
        std::erase_if(m_tables->requests,
                      [&](const Request &request) { return request.proxy == proxy; });
    });
}

void LiveDelivery::noteTimecodeEnd()
{
    Clock::time_point until;
    for (const Request &request : m_tables->requests)
        until = std::max(until, request.until);
    m_timecodeUntil.store(until.time_since_epoch().count(), std::memory_order_relaxed);
}

bool LiveDelivery::timecodeWanted() const
{
    return Clock::now().time_since_epoch().count()
           < m_timecodeUntil.load(std::memory_order_relaxed);
}

const LiveDelivery::Watchers &LiveDelivery::Tables::watchersOf(quint32 address) const
{
    static const Watchers none;
    const auto found = watchers.constFind(address);
    return found == watchers.constEnd() ? none : *found;
}

LiveDelivery::Watchers LiveDelivery::Tables::timecodeReceivers() const
{
    Watchers receivers;
    const Clock::time_point now = Clock::now();
    for (const Request &request : requests) {
        if (now < request.until)
            receivers.push_back(request.proxy);
    }
    return receivers;
}

template<typename Receivers>
void LiveDelivery::deliver(const Receivers &receivers, const Bytes &bytes)
{
    const auto call = [&](TMemProxyBasic *proxy) {
        proxy->process(bytes.data(), TMemProxyBasic::Refresh, 0);
    };
    if (std::this_thread::get_id() != m_guiThread) {
        if (m_changeWaits.load(std::memory_order_relaxed))
            const std::lock_guard behindTheChange(m_turnstile);
        const std::shared_lock held(m_hold);
        const auto &present = receivers(*m_tables);
        std::for_each(present.begin(), present.end(), call);
        return;
    }
    const std::shared_ptr<Tables> tables = m_tables; // outlives this
    const Watchers present = receivers(*tables);
    for (TMemProxyBasic *proxy : present) {
        const auto &still = receivers(*tables);
        if (std::find(still.begin(), still.end(), proxy) != still.end())
            call(proxy);
    }
}

void LiveDelivery::deliverMeter(quint32 address, int level, int peak)
{
    level = std::clamp(level, 0, MostCode);
    peak = std::clamp(peak, 0, MostCode);
    const auto receivers = [address](const Tables &tables) -> const Watchers & {
        return tables.watchersOf(address);
    };
    deliver(receivers, {low7(level >> 7), low7(level), low7(peak >> 7), low7(peak)});
}

void LiveDelivery::deliverTimecode(int hours, int minutes, int seconds, int frames)
{
    const auto byte = [](int number) { return static_cast<quint8>(number); };
    deliver([](const Tables &tables) { return tables.timecodeReceivers(); },
            {byte(hours), byte(minutes), byte(seconds), byte(frames)});
}

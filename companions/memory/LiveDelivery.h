// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/TMemProxyBasic.h"

#include <QHash>

#include <array>
#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <shared_mutex>
#include <thread>
#include <vector>

/// Brings meter readings and the time counter to the proxies that watch them, at once and on the
/// thread that delivers.
///
/// The tables of watchers are changed on the GUI thread only. Other threads deliver under a shared
/// hold, and a change waits for them: once a watch has ended no other thread is inside the proxy.
/// The GUI thread itself delivers without the hold, since nobody else can change the tables
/// meanwhile; what it calls may end watches, destroy watching proxies, or destroy this.
class LiveDelivery
{
public:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::seconds TimecodeLasts{10};

    /// On the GUI thread, like the destructor and the changes.
    LiveDelivery() = default;
    ~LiveDelivery();
    Q_DISABLE_COPY_MOVE(LiveDelivery)

    void watch(TMemProxyBasic *proxy, quint32 address);
    void unwatch(TMemProxyBasic *proxy, quint32 address);
    void requestTimecode(TMemProxyBasic *proxy);
    void forget(const TMemProxyBasic *proxy);

    // Any thread.
    void deliverMeter(quint32 address, int level, int peak);
    void deliverTimecode(int hours, int minutes, int seconds, int frames);
    bool timecodeWanted() const;

private:
    using Bytes = std::array<quint8, 4>;
    using Watchers = std::vector<TMemProxyBasic *>;
    struct Request
    {
        TMemProxyBasic *proxy;
        Clock::time_point until;
    };
    struct Tables
    {
        QHash<quint32, Watchers> watchers;
        std::vector<Request> requests;

        const Watchers &watchersOf(quint32 address) const;
        Watchers timecodeReceivers() const;
    };

    template<typename Change>
    void change(Change &&change);
    template<typename Receivers>
    void deliver(const Receivers &receivers, const Bytes &bytes);
    void noteTimecodeEnd();

    const std::thread::id m_guiThread = std::this_thread::get_id();
    const std::shared_ptr<Tables> m_tables = std::make_shared<Tables>();
    std::shared_mutex m_hold;
    std::mutex m_turnstile;                 ///< held by a change from before it waits
    std::atomic<bool> m_changeWaits{false}; ///< deliveries queue at the turnstile first
    std::atomic<Clock::rep> m_timecodeUntil{0};
};

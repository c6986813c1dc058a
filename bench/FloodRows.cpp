// SPDX-License-Identifier: MIT
// Four threads change parameters as fast as they can while the GUI thread runs its event loop.
#include "bench/DeliveryRig.h"
#include "bench/Rounds.h"
#include "bench/Rows.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <numeric>
#include <random>
#include <thread>

namespace {

constexpr int Threads = 4;
constexpr int ChangesPerThread = 250'000;
constexpr int Floods = 20;

/// All receivers in an order of its own for every thread, so that threads meet by chance only.
std::vector<int> orderOf(int thread)
{
    std::vector<int> order(ReceiverCount);
    std::iota(order.begin(), order.end(), 0);
    std::shuffle(order.begin(), order.end(), std::minstd_rand(thread + 1));
    return order;
}

/// From the first change until the last one has been delivered.
template<typename Delivery>
void flood(Delivery &delivery)
{
    QEventLoop loop;
    std::atomic<int> pouring = Threads;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < Threads; ++thread) {
        threads.emplace_back([&, thread, order = orderOf(thread)] {
            for (int change = 0; change < ChangesPerThread; ++change)
                delivery.change(order[change % ReceiverCount], (change + thread) % scale::Steps);
            if (--pouring == 0)
                QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
        });
    }
    loop.exec();
    for (std::thread &thread : threads)
        thread.join();
    QCoreApplication::sendPostedEvents();
}

template<typename Delivery>
rounds::Case floods(const char *name, Delivery &delivery)
{
    const auto body = [&delivery] {
        using Clock = std::chrono::steady_clock;
        const Clock::time_point start = Clock::now();
        flood(delivery);
        const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
        if (delivery.stale() > 0)
            qFatal("changes were lost");
        return seconds;
    };
    return {name, body};
}

} // namespace

Measurement floodTime()
{
    MemoryDelivery memory;
    DirtyListDelivery list;
    return rounds::compare({floods("flood, memory", memory), floods("flood, dirty list", list)},
                           rounds::firstToSecond);
}

Measurement floodLosses()
{
    MemoryDelivery memory;
    std::minstd_rand random(1);
    QTimer destroyer;
    QObject::connect(&destroyer, &QTimer::timeout,
                     [&] { memory.replace(static_cast<int>(random() % ReceiverCount)); });
    destroyer.start(0);
    int lost = 0;
    for (int number = 0; number < Floods; ++number) {
        flood(memory);
        lost += memory.stale();
    }
    return counted(lost);
}

// SPDX-License-Identifier: MIT
#include "bench/LiveLoad.h"

#include "bench/FreshProcess.h"
#include "bench/MeterPage.h"
#include "console/MeterModel.h"

#include <QEventLoop>

#include <chrono>
#include <functional>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;
using meterpage::OwnPage;

constexpr std::chrono::milliseconds Tick(20);
constexpr int TicksToSettle = 50;
constexpr int TicksMeasured = 250;

/// Has another thread deliver in every tick, and returns the share that this one takes meanwhile.
double shareDuring(int ticks, const std::function<void()> &deliver)
{
    QEventLoop loop;
    const double busyBefore = threadSeconds();
    const auto start = Clock::now();
    std::thread deliverer([&] {
        for (int tick = 1; tick <= ticks; ++tick) {
            deliver();
            std::this_thread::sleep_until(start + tick * Tick);
        }
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec();
    deliverer.join();
    const std::chrono::duration<double> wall = Clock::now() - start;
    return (threadSeconds() - busyBefore) / wall.count();
}

double shareOf(const std::function<void()> &deliver)
{
    shareDuring(TicksToSettle, deliver);
    return shareDuring(TicksMeasured, deliver);
}

} // namespace

liveload::Shares liveload::measure()
{
    OwnPage page(meterpage::Plan{});
    MeterModel programme(page.memory(), 1);
    Shares shares;
    shares.programme = shareOf([&] {
        programme.advance(Tick.count());
        for (const MeterModel::Reading &each : programme.readings())
            page.memory().deliverMeter(each.group, each.index, each.element, each.level, each.peak);
    });
    shares.jumps =
        shareOf([&page, frame = 0]() mutable { page.deliver(++frame, meterpage::Changing::All); });
    return shares;
}

liveload::Shares liveload::measuredOn(const QString &platform)
{
    const QList<QByteArray> numbers =
        freshprocess::outputOf({Option}, platform).trimmed().split(' ');
    return {numbers.value(0).toDouble(), numbers.value(1).toDouble()};
}

std::string liveload::toText(const Shares &shares)
{
    return std::to_string(shares.programme) + ' ' + std::to_string(shares.jumps);
}

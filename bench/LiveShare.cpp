// SPDX-License-Identifier: MIT
#include "bench/LiveShare.h"

#include "bench/Producer.h"

#include <thread>

namespace liveshare {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int TicksToSettle = 50;
constexpr int TicksMeasured = 250;

} // namespace

/// Seconds at some time, those of processors since the start of the process.
struct Ticks::Used
{
    double gui = 0;
    double all = 0;
    double console = 0;
    Clock::time_point when;
};

Ticks::Ticks(QEventLoop &loop, Used &before, Used &after)
    : m_loop(loop), m_before(before), m_after(after), m_start(Clock::now())
{
}

/// Has the GUI thread write down what is used.
void Ticks::note(Used &used)
{
    const auto write = [&used, console = threadSeconds()] {
        used = {threadSeconds(), processSeconds(), console, Clock::now()};
    };
    QMetaObject::invokeMethod(&m_loop, write, Qt::QueuedConnection);
}

bool Ticks::next()
{
    std::this_thread::sleep_until(m_start + m_tick * Tick);
    if (m_tick == TicksToSettle)
        note(m_before);
    if (m_tick == TicksToSettle + TicksMeasured) {
        note(m_after);
        QMetaObject::invokeMethod(&m_loop, &QEventLoop::quit, Qt::QueuedConnection);
        return false;
    }
    ++m_tick;
    return true;
}

Share during(const std::function<void(Ticks &)> &console)
{
    QEventLoop loop;
    Ticks::Used before, after;
    std::thread thread([&] {
        Ticks ticks(loop, before, after);
        console(ticks);
    });
    loop.exec();
    thread.join();
    const std::chrono::duration<double> wall = after.when - before.when;
    const double gui = after.gui - before.gui;
    const double all = after.all - before.all - (after.console - before.console);
    return {gui / wall.count(), all / wall.count()};
}

} // namespace liveshare

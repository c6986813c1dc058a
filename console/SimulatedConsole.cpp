// SPDX-License-Identifier: MIT
#include "console/SimulatedConsole.h"

#include "companions/memory/ConsoleModel.h"
#include "companions/memory/ParameterMemory.h"
#include "console/Housekeeping.h"
#include "console/MeterModel.h"
#include "console/OperatorModel.h"
#include "console/TransportClock.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace {

constexpr int Tick = 20; // milliseconds; 50 a second
constexpr int BlinkStep = 250;
constexpr int LinkUpAfter = 200;
constexpr int InSyncAfter = 500;

/// A thread that falls behind further than this (a suspended machine) lets the time go.
constexpr std::chrono::milliseconds MostToCatchUp(200);

} // namespace

struct SimulatedConsole::Private
{
    Private(ParameterMemory &console, std::uint32_t seed)
        : memory(console), housekeeping(console), operators(console, seed),
          meters(console, seed + 1)
    {
    }

    void run();
    void tick();
    void takeBlocks();
    void blink();
    void connect();
    void setConnection(int bits);
    void deliver();

    ParameterMemory &memory;

    // Of the thread that ticks.
    Housekeeping housekeeping;
    OperatorModel operators;
    MeterModel meters;
    TransportClock transport;
    qint64 elapsed = 0; // milliseconds, since the first tick
    int linkAge = 0;    // milliseconds, as far as it matters
    int connection = 0;
    bool lit = false;
    bool showStarted = false;
    int stepRest = 0; // milliseconds that step() owes

    // Settings, from any thread.
    std::atomic<double> rate{DefaultRate};
    std::atomic<qint64> changes{0};
    std::atomic<bool> online{true};
    std::mutex mutex;
    std::optional<QStringList> newBlocks; // guarded by the mutex

    std::thread thread;
    std::condition_variable wake;
    bool stopping = false; // guarded by the mutex
};

SimulatedConsole::SimulatedConsole(ParameterMemory &memory, std::uint32_t seed)
    : d(std::make_unique<Private>(memory, seed))
{
}

SimulatedConsole::~SimulatedConsole()
{
    stop();
}

void SimulatedConsole::start()
{
    if (!isRunning())
        d->thread = std::thread([this] { d->run(); });
}

void SimulatedConsole::stop()
{
    if (!isRunning())
        return;
    {
        const std::lock_guard lock(d->mutex);
        d->stopping = true;
    }
    d->wake.notify_one();
    d->thread.join();
    d->stopping = false;
    d->linkAge = 0;
    d->setConnection(0);
}

bool SimulatedConsole::isRunning() const
{
    return d->thread.joinable();
}

void SimulatedConsole::step(int milliseconds)
{
    if (isRunning())
        return;
    for (d->stepRest += milliseconds; d->stepRest >= Tick; d->stepRest -= Tick)
        d->tick();
}

void SimulatedConsole::setRate(double changesPerSecond)
{
    d->rate = std::clamp(changesPerSecond, 0.0, HighestRate);
}

double SimulatedConsole::rate() const
{
    return d->rate;
}

qint64 SimulatedConsole::changes() const
{
    return d->changes;
}

void SimulatedConsole::setBlocks(const QStringList &names)
{
    const std::lock_guard lock(d->mutex);
    d->newBlocks = names;
}

void SimulatedConsole::setOnline(bool online)
{
    d->online = online;
}

bool SimulatedConsole::isOnline() const
{
    return d->online;
}

void SimulatedConsole::Private::run()
{
    using Clock = std::chrono::steady_clock;
    auto next = Clock::now();
    std::unique_lock lock(mutex);
    while (!stopping) {
        lock.unlock();
        tick();
        lock.lock();
        next = std::max(next + std::chrono::milliseconds(Tick), Clock::now() - MostToCatchUp);
        wake.wait_until(lock, next, [this] { return stopping; });
    }
}

void SimulatedConsole::Private::tick()
{
    elapsed += Tick;
    takeBlocks();
    blink();
    memory.tickService();
    connect();
    if (connection == IMemAPI::Online)
        deliver();
}

void SimulatedConsole::Private::takeBlocks()
{
    std::optional<QStringList> names;
    {
        const std::lock_guard lock(mutex);
        names.swap(newBlocks);
    }
    if (names)
        operators.setBlocks(*names);
}

void SimulatedConsole::Private::blink()
{
    const bool now = elapsed / BlinkStep % 2 == 0;
    if (now == lit)
        return;
    lit = now;
    memory.stepBlinkClock(lit);
}

void SimulatedConsole::Private::connect()
{
    linkAge = online ? std::min(linkAge + Tick, InSyncAfter) : 0;
    if (linkAge == InSyncAfter)
        setConnection(IMemAPI::Online);
    else
        setConnection(linkAge >= LinkUpAfter ? IMemAPI::LinkUp : 0);
}

void SimulatedConsole::Private::setConnection(int bits)
{
    if (bits == connection)
        return;
    connection = bits;
    memory.setConnectionState(bits);
}

void SimulatedConsole::Private::deliver()
{
    if (transport.advance(Tick) && memory.timecodeWanted()) {
        const TransportClock::Time now = transport.time();
        memory.deliverTimecode(now.hours, now.minutes, now.seconds, now.frames);
    }
    meters.advance(Tick);
    for (const MeterModel::Reading &reading : meters.readings())
        memory.deliverMeter(reading.group, reading.index, reading.element, reading.level,
                            reading.peak);
    changes += operators.advance(Tick, rate);
    if (!std::exchange(showStarted, true))
        housekeeping.setUpShow();
    housekeeping.carryOut();
}

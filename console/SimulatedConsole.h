// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <cstdint>
#include <memory>

class ParameterMemory;

/// A console for an editor without one: it does to the parameter memory what a console would, on a
/// thread of its own and through the memory's any-thread operations only.
///
/// - The connection comes up within half a second, first the link, then the state in step.
/// - Another operator and the hardware change parameters (OperatorModel).
/// - It keeps in order what belongs together (Housekeeping), and starts with some channels linked and
///   some dynamics at work.
/// - All meters get readings 50 times a second, which follow the settings of the dynamics (MeterModel).
/// - The time counter runs, 30 frames a second, and is delivered while somebody wants it.
/// - The blink clock flashes twice a second: a step every 250 ms, lit first.
/// - The service tick comes 50 times a second.
///
/// While it is offline only the last two go on. Time advances in ticks of 20 ms; the same seed and the
/// same settings at the same ticks give the same run.
///
/// Construct, start, stop, step and destroy it on one thread. `Any thread.` stands where more is
/// allowed.
class SimulatedConsole
{
public:
    static constexpr double DefaultRate = 20;
    static constexpr double HighestRate = 100000;

    /// `memory` has loaded its model, and outlives the console.
    explicit SimulatedConsole(ParameterMemory &memory, std::uint32_t seed = 1);
    ~SimulatedConsole();
    Q_DISABLE_COPY_MOVE(SimulatedConsole)

    /// Switches the console on. Ignored while it runs.
    void start();
    /// Switches it off: it goes offline, and its thread is gone on return, which takes no longer than
    /// a tick's work. Ignored while it does not run.
    void stop();
    bool isRunning() const;

    /// Does what the running console would do in that time, on the calling thread, without waiting:
    /// for tests and pictures. Times add up: what is less than a tick is kept for the next call.
    /// Ignored while the console runs.
    void step(int milliseconds);

    /// Changes of values per second, 0 (none) to HighestRate, on average. Any thread.
    void setRate(double changesPerSecond);
    double rate() const;
    /// How many values the other operator and the hardware have changed so far. Any thread.
    qint64 changes() const;

    /// The blocks whose parameters may change, by their names in addresses ("kInputFader"); an empty
    /// list, the default, for all but the console's setup. Any thread, heeded at the next tick.
    void setBlocks(const QStringList &names);

    /// Whether the console is connected; it is unless told otherwise. Any thread, heeded at the next
    /// tick. What the connection has come to is IMemAPI::connectionState().
    void setOnline(bool online);
    bool isOnline() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

// SPDX-License-Identifier: MIT
#pragma once

#include "console/SimulatedConsole.h"

#include <condition_variable>
#include <mutex>
#include <thread>

/// A simulated console that ticks on a thread of its own and can be held still, in the middle of a show
/// and without going offline, to look at what it has come to. GUI thread.
class HeldConsole
{
public:
    /// Ticks from now on. `memory` has its model, and outlives this.
    HeldConsole(ParameterMemory &memory, std::uint32_t seed);
    ~HeldConsole();
    Q_DISABLE_COPY_MOVE(HeldConsole)

    SimulatedConsole &console() { return m_console; }
    const SimulatedConsole &console() const { return m_console; }

    /// While one lives, no tick is under way and none begins.
    class Hold
    {
    public:
        explicit Hold(HeldConsole &held) : m_lock(held.m_mutex) {}

    private:
        std::unique_lock<std::mutex> m_lock;
    };

private:
    void run();

    SimulatedConsole m_console;
    std::mutex m_mutex; ///< of the ticks
    std::condition_variable m_wake;
    bool m_stopping = false; ///< guarded by the mutex
    std::thread m_thread;
};

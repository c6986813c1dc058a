// SPDX-License-Identifier: MIT
#include "editor/soak/HeldConsole.h"

#include <algorithm>
#include <chrono>

namespace {

constexpr std::chrono::milliseconds Tick(20);

} // namespace

HeldConsole::HeldConsole(ParameterMemory &memory, std::uint32_t seed)
    : m_console(memory, seed), m_thread([this] { run(); })
{
}

HeldConsole::~HeldConsole()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_wake.notify_one();
    m_thread.join();
}

void HeldConsole::run()
{
    using Clock = std::chrono::steady_clock;
    auto next = Clock::now();
    std::unique_lock lock(m_mutex);
    while (!m_stopping) {
        m_console.step(static_cast<int>(Tick.count()));
        // Time that passed while the console was held is not caught up with.
        next = std::max(next + Tick, Clock::now());
        m_wake.wait_until(lock, next, [this] { return m_stopping; });
    }
}

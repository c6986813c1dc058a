// SPDX-License-Identifier: MIT
#pragma once

#include <QEventLoop>

#include <chrono>
#include <functional>

/// What a live console takes of a window's process: the console is a piece of work on a thread of its
/// own that comes round 50 times a second, while this thread's event loop shows what it does.
namespace liveshare {

constexpr std::chrono::milliseconds Tick(20);

/// Shares of one core.
struct Share
{
    double gui = 0; ///< the GUI thread
    double all = 0; ///< all threads but the console's: the toolkit draws scaled pictures on its own
};

/// The time by which the console's thread goes.
class Ticks
{
public:
    /// Waits for the next tick; false when enough was measured.
    bool next();

private:
    friend Share during(const std::function<void(Ticks &)> &console);

    struct Used;

    Ticks(QEventLoop &loop, Used &before, Used &after);
    void note(Used &used);

    QEventLoop &m_loop;
    Used &m_before;
    Used &m_after;
    const std::chrono::steady_clock::time_point m_start;
    int m_tick = 0;
};

/// Runs the console on another thread, which asks for ticks until there are no more: some seconds. The
/// first is not measured.
Share during(const std::function<void(Ticks &)> &console);

} // namespace liveshare

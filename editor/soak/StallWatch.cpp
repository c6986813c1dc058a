// SPDX-License-Identifier: MIT
#include "editor/soak/StallWatch.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <optional>
#include <string>

#include <dirent.h>
#include <pthread.h>
#include <time.h>
#include <unistd.h>

namespace {

constexpr std::chrono::milliseconds Between(2);
constexpr std::chrono::milliseconds Look(10);
/// On a machine that is as busy as can be.
constexpr double LongestLook = 250; // milliseconds

clockid_t clockOfThisThread()
{
    clockid_t clock = CLOCK_THREAD_CPUTIME_ID;
    pthread_getcpuclockid(pthread_self(), &clock);
    return clock;
}

double milliseconds(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// How long a thread of ours has waited for a processor so far, in milliseconds; nothing where the system
/// does not say.
std::optional<double> keptWaiting(const char *thread)
{
    char name[64];
    std::snprintf(name, sizeof name, "/proc/self/task/%.20s/schedstat", thread);
    std::FILE *file = std::fopen(name, "r");
    if (!file)
        return std::nullopt;
    unsigned long long ran = 0;
    unsigned long long waited = 0;
    const bool read = std::fscanf(file, "%llu %llu", &ran, &waited) == 2;
    std::fclose(file);
    return read && ran > 0 ? std::optional(static_cast<double>(waited) / 1e6) : std::nullopt;
}

/// Together, of all threads but one.
double othersKeptWaiting(const std::string &one)
{
    double sum = 0;
    DIR *threads = opendir("/proc/self/task");
    while (const dirent *each = threads ? readdir(threads) : nullptr) {
        if (each->d_name[0] != '.' && each->d_name != one)
            sum += keptWaiting(each->d_name).value_or(0);
    }
    if (threads)
        closedir(threads);
    return sum;
}

} // namespace

StallWatch::StallWatch()
    : m_guiThread(std::to_string(gettid())), m_guiClock(clockOfThisThread()),
      m_thread([this] { run(); })
{
}

StallWatch::~StallWatch()
{
    m_stopping = true;
    m_answer.release();
    m_thread.join();
}

void StallWatch::startAnew()
{
    m_longest.clear();
    m_last = {};
    m_spoilt = true;
}

StallWatch::Times StallWatch::now() const
{
    const double clock = milliseconds(CLOCK_MONOTONIC);
    const double running = milliseconds(m_guiClock);
    // Without a word from the system, all the time that it did not run.
    return {clock, running, keptWaiting(m_guiThread.c_str()).value_or(clock - running),
            othersKeptWaiting(m_guiThread)};
}

/// The GUI thread never waits for this one: it would be a stall of the watch's own.
void StallWatch::run()
{
    while (!m_stopping) {
        m_asked = now();
        m_asks = true;
        QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
        m_stopped = waitForAnswer();
        std::this_thread::sleep_for(Between);
    }
}

/// Tells for how long nobody ran meanwhile, in milliseconds: who looks every moment has not come to it.
double StallWatch::waitForAnswer()
{
    double stopped = 0;
    for (bool answered = false; !answered;) {
        const double before = milliseconds(CLOCK_MONOTONIC);
        answered = m_answer.try_acquire_for(Look);
        const double gap = milliseconds(CLOCK_MONOTONIC) - before;
        stopped += gap > LongestLook ? gap : 0;
    }
    return stopped;
}

bool StallWatch::event(QEvent *event)
{
    if (event->type() != QEvent::User || !m_asks.exchange(false))
        return QObject::event(event);
    const Times answered = now();
    // Threads that have ended no longer count.
    const Stall stall{m_doing,
                      answered.clock - m_asked.clock,
                      answered.running - m_asked.running,
                      answered.kept - m_asked.kept,
                      std::max(0.0, answered.othersKept - m_asked.othersKept),
                      0};
    m_last.stopped = m_stopped;
    if (!m_last.doing.empty())
        note(m_last);
    const bool counts = !std::exchange(m_spoilt, false) && m_pauses == 0;
    m_last = counts ? stall : Stall{};
    m_answer.release();
    return true;
}

void StallWatch::note(const Stall &stall)
{
    const auto same = std::find_if(m_longest.begin(), m_longest.end(),
                                   [&](const Stall &each) { return each.doing == stall.doing; });
    if (same == m_longest.end())
        m_longest.push_back(stall);
    else if (stall.own() > same->own())
        *same = stall;
    else
        return;
    std::sort(m_longest.begin(), m_longest.end(),
              [](const Stall &one, const Stall &other) { return one.own() > other.own(); });
}

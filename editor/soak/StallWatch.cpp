// SPDX-License-Identifier: MIT
#include "editor/soak/StallWatch.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <optional>

#include <pthread.h>
#include <time.h>
#include <unistd.h>

namespace {

constexpr std::chrono::milliseconds Between(2);

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

/// How long a thread has waited for a processor so far, in milliseconds; nothing where the system does
/// not say.
std::optional<double> keptWaiting(int thread)
{
    char name[64];
    std::snprintf(name, sizeof name, "/proc/self/task/%d/schedstat", thread);
    std::FILE *file = std::fopen(name, "r");
    if (!file)
        return std::nullopt;
    unsigned long long ran = 0;
    unsigned long long waited = 0;
    const bool read = std::fscanf(file, "%llu %llu", &ran, &waited) == 2;
    std::fclose(file);
    return read && ran > 0 ? std::optional(static_cast<double>(waited) / 1e6) : std::nullopt;
}

} // namespace

StallWatch::StallWatch()
    : m_guiThread(gettid()), m_guiClock(clockOfThisThread()), m_thread([this] { run(); })
{
}

StallWatch::~StallWatch()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_wake.notify_one();
    m_thread.join();
}

void StallWatch::startAnew()
{
    m_longest.clear();
    m_spoilt = true;
}

StallWatch::Times StallWatch::now() const
{
    const double clock = milliseconds(CLOCK_MONOTONIC);
    const double running = milliseconds(m_guiClock);
    // Without a word from the system, all the time that it did not run.
    return {clock, running, keptWaiting(m_guiThread).value_or(clock - running)};
}

void StallWatch::run()
{
    std::unique_lock lock(m_mutex);
    while (!m_stopping) {
        m_answered = false;
        m_asked = now();
        QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
        m_wake.wait(lock, [this] { return m_answered || m_stopping; });
        m_wake.wait_for(lock, Between, [this] { return m_stopping; });
    }
}

bool StallWatch::event(QEvent *event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    std::unique_lock lock(m_mutex);
    const Times answered = now();
    const Stall stall{m_doing, answered.clock - m_asked.clock, answered.running - m_asked.running,
                      answered.kept - m_asked.kept};
    m_answered = true;
    lock.unlock();
    m_wake.notify_one();
    if (!std::exchange(m_spoilt, false) && m_pauses == 0)
        note(stall);
    return true;
}

void StallWatch::note(const Stall &stall)
{
    const auto same = std::find_if(m_longest.begin(), m_longest.end(), [&](const Stall &each) {
        return each.doing == stall.doing;
    });
    if (same == m_longest.end())
        m_longest.push_back(stall);
    else if (stall.own() > same->own())
        *same = stall;
    else
        return;
    std::sort(m_longest.begin(), m_longest.end(),
              [](const Stall &one, const Stall &other) { return one.own() > other.own(); });
}

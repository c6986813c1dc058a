// SPDX-License-Identifier: MIT
#include "bench/Producer.h"

#include <time.h>

namespace {

double secondsOf(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return double(now.tv_sec) + 1e-9 * double(now.tv_nsec);
}

} // namespace

double threadSeconds()
{
    return secondsOf(CLOCK_THREAD_CPUTIME_ID);
}

double processSeconds()
{
    return secondsOf(CLOCK_PROCESS_CPUTIME_ID);
}

OneProcessor::OneProcessor()
{
    cpu_set_t present;
    CPU_ZERO(&present);
    CPU_SET(sched_getcpu(), &present);
    if (sched_getaffinity(0, sizeof m_before, &m_before) != 0
        || sched_setaffinity(0, sizeof present, &present) != 0)
        qFatal("the thread cannot be kept on a processor");
}

OneProcessor::~OneProcessor()
{
    sched_setaffinity(0, sizeof m_before, &m_before);
}

Producer::~Producer()
{
    m_work = nullptr;
    m_told.release();
    m_thread.join();
}

double Producer::run(const std::function<void()> &work)
{
    m_work = &work;
    m_told.release();
    m_done.acquire();
    return m_seconds;
}

void Producer::serve()
{
    for (m_told.acquire(); m_work; m_told.acquire()) {
        const double start = threadSeconds();
        (*m_work)();
        m_seconds = threadSeconds() - start;
        m_done.release();
    }
}

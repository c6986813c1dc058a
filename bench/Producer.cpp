// SPDX-License-Identifier: MIT
#include "bench/Producer.h"

#include <time.h>

double threadSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + 1e-9 * double(now.tv_nsec);
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

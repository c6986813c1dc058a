// SPDX-License-Identifier: MIT
#pragma once

#include <QSemaphore>

#include <functional>
#include <sched.h>
#include <thread>

/// Processor time of the calling thread, in seconds.
double threadSeconds();
/// Of all threads. The toolkit draws scaled pictures on threads of its own.
double processSeconds();

/// Keeps this thread, and those that it starts meanwhile, on one processor. Where the cost of a frame is
/// compared, it must not depend on where the system happens to put the thread that brings the readings.
class OneProcessor
{
public:
    OneProcessor();
    ~OneProcessor();
    Q_DISABLE_COPY_MOVE(OneProcessor)

private:
    cpu_set_t m_before;
};

/// A thread that does a piece of work when told.
class Producer
{
public:
    Producer() : m_thread([this] { serve(); }) {}
    ~Producer();
    Q_DISABLE_COPY_MOVE(Producer)

    /// Has `work` done on the thread, waits for it, and returns the processor time that it took, in
    /// seconds.
    double run(const std::function<void()> &work);

private:
    void serve();

    QSemaphore m_told;
    QSemaphore m_done;
    const std::function<void()> *m_work = nullptr; ///< null: the thread is to end
    double m_seconds = 0;
    std::thread m_thread;
};

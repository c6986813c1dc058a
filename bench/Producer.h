// SPDX-License-Identifier: MIT
#pragma once

#include <QSemaphore>

#include <functional>
#include <thread>

/// Processor time of the calling thread, in seconds.
double threadSeconds();

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

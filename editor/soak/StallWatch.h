// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <algorithm>
#include <atomic>
#include <semaphore>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

/// Watches from a thread of its own how long the GUI thread lets an event wait: asks, waits for the
/// answer, asks again a moment later.
///
/// On a machine that others use, too, most of a long wait may be the machine's. What is the program's own
/// is told apart: what the GUI thread ran in the meantime, and what it waited for something else than a
/// processor, a disk or another thread of ours, unless that one was waiting for a processor.
/// Construct and destroy it on the GUI thread.
class StallWatch : public QObject
{
public:
    /// One wait for an answer, in milliseconds by the clock, and what it consists of.
    struct Stall
    {
        std::string_view doing; ///< what was done last when it ended
        double length = 0;
        double running = 0;    ///< the GUI thread ran
        double kept = 0;       ///< it was ready, and others had the processors
        double othersKept = 0; ///< the same of all other threads of ours, together
        double stopped = 0;    ///< the program was stopped or the machine asleep: nobody ran

        /// It waited for something else than a processor.
        double waited() const { return std::max(0.0, length - running - kept - stopped); }
        /// What does not come from others that keep the machine busy.
        double own() const { return running + std::max(0.0, waited() - othersKept); }
    };

    StallWatch();
    ~StallWatch() override;

    /// For everything that was done the wait with the longest time of its own, the longest first.
    const std::vector<Stall> &longest() const { return m_longest; }
    /// What is done now, for the record; a text that stays.
    void setDoing(std::string_view what) { m_doing = what; }
    /// Forgets what was seen so far.
    void startAnew();

    /// While one lives, waits are not counted: the one who watches is at work itself.
    class Pause
    {
    public:
        explicit Pause(StallWatch &watch) : m_watch(watch) { ++watch.m_pauses; }
        ~Pause()
        {
            m_watch.m_spoilt = true;
            --m_watch.m_pauses;
        }
        Q_DISABLE_COPY_MOVE(Pause)

    private:
        StallWatch &m_watch;
    };

    bool event(QEvent *event) override;

private:
    /// What there has been so far, in milliseconds.
    struct Times
    {
        double clock = 0;
        double running = 0;
        double kept = 0;
        double othersKept = 0;
    };

    void run();
    Times now() const;
    void note(const Stall &stall);
    double waitForAnswer();

    const std::string m_guiThread; ///< its number
    const clockid_t m_guiClock;
    std::vector<Stall> m_longest;
    Stall m_last; ///< noted with the next answer, when it is known what stopped
    std::string_view m_doing;
    int m_pauses = 0;
    bool m_spoilt = false; ///< a pause fell into the present question

    std::atomic<bool> m_asks{false}; ///< a question is there, with what follows
    Times m_asked;
    double m_stopped = 0; ///< while the question before that waited
    std::counting_semaphore<> m_answer{0};
    std::atomic<bool> m_stopping{false};
    std::thread m_thread;
};

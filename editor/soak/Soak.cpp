// SPDX-License-Identifier: MIT
#include "editor/soak/Soak.h"

#include "companions/memory/ParameterMemory.h"
#include "companions/scenes/SceneLibrary.h"
#include "editor/DemonstrationScenes.h"
#include "editor/MainWindow.h"
#include "editor/soak/Checker.h"
#include "editor/soak/Growth.h"
#include "editor/soak/HeldConsole.h"
#include "editor/soak/MemoryUse.h"
#include "editor/soak/Operator.h"
#include "editor/soak/SoakWindows.h"
#include "editor/soak/Stagehand.h"
#include "editor/soak/StallWatch.h"
#include "editor/soak/WarningCount.h"

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QPixmapCache>
#include <QTemporaryDir>
#include <QTimer>
#include <QUndoStack>

#include <cstdio>
#include <utility>

namespace {

constexpr int SetUpMilliseconds = 800;
constexpr int StepMilliseconds = 2;
constexpr int StepsPerDeed = 25;
constexpr int MostBetweenChecks = 5000; // milliseconds
constexpr int LeastChecks = 4;
constexpr qint64 Minute = 60'000;
constexpr int BetweenMeasures = 10'000;
constexpr double Megabyte = 1024 * 1024;

void print(const QString &line)
{
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

QString megabytes(qint64 bytes)
{
    return QString::number(static_cast<double>(bytes) / Megabyte, 'f', 1);
}

/// Everything that takes part, and the order of what happens.
class SoakRun
{
public:
    SoakRun(ParameterMemory &memory, SceneLibrary &library, const SoakPlan &plan)
        : m_memory(memory), m_library(library),
          m_duration(static_cast<qint64>(plan.minutes * Minute)), m_plan(plan),
          m_held(memory, plan.seed), m_windows(memory, m_held.console(), library, plan.forms),
          m_stagehand(m_windows, memory, m_held.console(), m_watch, plan.seed + 1),
          m_operator(m_windows, plan.seed + 2), m_checker(memory, m_windows)
    {
        m_checker.keepPicturesIn(plan.pictures);
    }

    void run();
    /// True when all was well.
    bool report() const;

private:
    void post();
    void step();
    void check();
    void setUpAgain();
    void measure();
    /// In a soak of some minutes.
    bool isGrowthKnown() const { return m_duration >= 2 * Minute; }
    bool reportMemory() const;
    bool reportStalls() const;

    ParameterMemory &m_memory;
    SceneLibrary &m_library;
    const qint64 m_duration; // milliseconds
    const SoakPlan &m_plan;
    WarningCount m_warnings;
    HeldConsole m_held;
    StallWatch m_watch;
    SoakWindows m_windows;
    Stagehand m_stagehand;
    Operator m_operator;
    Checker m_checker;
    QEventLoop m_loop;
    QObject m_steps; ///< receives them
    QElapsedTimer m_clock;
    QElapsedTimer m_sinceCheck;
    qint64 m_stepCount = 0;
    qint64 m_minute = 0; ///< for which memory was last told
    QElapsedTimer m_sinceMeasure;
    qint64 m_peakAtStart = 0;
    MemoryUse m_first; ///< after the first minute
    MemoryUse m_last;
    Growth m_resident;
    Growth m_allocated;
    int m_depth = 0; ///< steps that have not returned: boxes run event loops of their own
    bool m_posted = false;
    bool m_checking = false;
};

void SoakRun::run()
{
    // The console sets up its show first.
    for (m_clock.start(); !m_clock.hasExpired(SetUpMilliseconds);)
        QCoreApplication::processEvents();
    m_clock.start();
    m_sinceCheck.start();
    QTimer pulse;
    pulse.setTimerType(Qt::PreciseTimer);
    QObject::connect(&pulse, &QTimer::timeout, &m_steps, [this] { post(); });
    m_peakAtStart = MemoryUse::peak();
    m_watch.startAnew();
    pulse.start(StepMilliseconds);
    m_loop.exec();
    pulse.stop();
    check();
}

/// A timer does not call while its last call has not returned, and a step may stay in an event loop of
/// its own; what is posted comes there, too.
void SoakRun::post()
{
    if (m_posted || m_checking)
        return;
    m_posted = true;
    QMetaObject::invokeMethod(
        &m_steps, [this] { step(); }, Qt::QueuedConnection);
}

void SoakRun::step()
{
    m_posted = false;
    if (m_checking)
        return;
    const bool outermost = m_depth == 0;
    if (outermost && m_clock.hasExpired(m_duration)) {
        m_loop.quit();
        return;
    }
    ++m_depth;
    // The operator finds the slower rates in the menus, too.
    m_held.console().setRate(m_plan.rate);
    const bool free = outermost && !QApplication::activeModalWidget();
    if (free
        && m_sinceCheck.hasExpired(std::min<qint64>(MostBetweenChecks, m_duration / LeastChecks)))
        check();
    else if (++m_stepCount % StepsPerDeed == 0 && free)
        m_stagehand.act();
    else
        m_operator.act();
    m_watch.setDoing(m_stepCount % StepsPerDeed == 0 ? m_stagehand.deed() : m_operator.gesture());
    --m_depth;
}

void SoakRun::check()
{
    const StallWatch::Pause pause(m_watch);
    const HeldConsole::Hold hold(m_held);
    m_checking = true;
    const bool measureDue = !m_loop.isRunning() || !m_sinceMeasure.isValid()
                            || m_sinceMeasure.hasExpired(BetweenMeasures);
    if (measureDue)
        setUpAgain();
    const qsizetype told = m_checker.lines().size();
    m_checker.check();
    for (const QString &line : m_checker.lines().mid(told))
        print(line);
    if (measureDue)
        measure();
    m_checking = false;
    m_sinceCheck.start();
}

/// Makes moments comparable: as many windows, and nothing kept for later that grows to a limit of its own.
void SoakRun::setUpAgain()
{
    m_stagehand.setUpAgain();
    m_memory.undoStack()->clear();
    m_library.open(m_library.fileName()); // without what it would undo
    QPixmapCache::clear();
}

void SoakRun::measure()
{
    m_sinceMeasure.start();
    m_last = MemoryUse::present();
    const qint64 minute = m_clock.elapsed() / Minute;
    if (minute < 1)
        return;
    if (m_resident.samples() == 0)
        m_first = m_last;
    const double minutes = static_cast<double>(m_clock.elapsed()) / Minute;
    m_resident.add(minutes, static_cast<double>(m_last.resident));
    m_allocated.add(minutes, static_cast<double>(m_last.allocated));
    if (std::exchange(m_minute, minute) != minute)
        print(QStringLiteral("Minute %1: %2 MB resident, %3 MB of it allocated; differences: %4")
                  .arg(minute)
                  .arg(megabytes(m_last.resident), megabytes(m_last.allocated))
                  .arg(m_checker.differences()));
}

bool SoakRun::report() const
{
    print(QStringLiteral("Operations: %1 of the operator, %2 around; changes of the console: %3")
              .arg(m_operator.operations())
              .arg(m_stagehand.operations())
              .arg(m_held.console().changes()));
    print(QStringLiteral(
              "Checks: %1, of %2 controls and %3 windows, %4 of them on the screen; warnings: %5; "
              "differences: %6")
              .arg(m_checker.checks())
              .arg(m_checker.controlsCompared())
              .arg(m_checker.windowsCompared())
              .arg(m_checker.windowsPhotographed())
              .arg(m_warnings.count())
              .arg(m_checker.differences()));
    const bool steady = reportMemory();
    const bool smooth = reportStalls();
    return m_checker.differences() == 0 && m_warnings.count() == 0 && steady && smooth;
}

bool SoakRun::reportMemory() const
{
    print(QStringLiteral(
              "Memory: %1 MB resident at the end, %2 MB of it allocated; peak %3 MB at the start, "
              "%4 MB at the end")
              .arg(megabytes(m_last.resident), megabytes(m_last.allocated),
                   megabytes(m_peakAtStart), megabytes(MemoryUse::peak())));
    if (!isGrowthKnown()) {
        print(QStringLiteral("Its growth is not judged in so short a soak"));
        return true;
    }
    const bool grown =
        m_resident.overall() > soak::MostResidentGrowth || m_allocated.overall() > soak::MostGrowth;
    print(QStringLiteral(
              "After the first minute: %1 MB resident, %2 MB of it allocated; growth since, by "
              "%3 samples: %4 MB and %5 MB%6")
              .arg(megabytes(m_first.resident), megabytes(m_first.allocated))
              .arg(m_resident.samples())
              .arg(megabytes(qRound64(m_resident.overall())),
                   megabytes(qRound64(m_allocated.overall())),
                   grown ? QStringLiteral("  too much") : QString()));
    return !grown;
}

/// What an event had to wait for, by the clock and by what the GUI thread did meanwhile.
bool SoakRun::reportStalls() const
{
    print(QStringLiteral(
        "Longest waits of an event, in ms: by the clock (the GUI thread ran, waited, was kept "
        "from running by others; our other threads were kept)"));
    bool smooth = true;
    for (const StallWatch::Stall &each : m_watch.longest()) {
        const bool tooLong = each.own() > soak::LongestStall;
        smooth &= !tooLong;
        print(QStringLiteral("  %1 %2 (%3, %4, %5; %6)%7")
                  .arg(QLatin1StringView(each.doing), -18)
                  .arg(each.length, 6, 'f', 1)
                  .arg(each.running, 0, 'f', 1)
                  .arg(each.waited(), 0, 'f', 1)
                  .arg(each.kept, 0, 'f', 1)
                  .arg(each.othersKept, 0, 'f', 1)
                  .arg(tooLong ? QStringLiteral("  too long") : QString()));
    }
    print(QStringLiteral("Longest opening of a window: %1 ms").arg(m_stagehand.longestOpening()));
    return smooth;
}

} // namespace

bool soak::run(ParameterMemory &memory, const SoakPlan &plan)
{
    const QTemporaryDir folder;
    SceneLibrary library;
    QString error;
    if (!library.open(folder.filePath(QStringLiteral("scenes.sqlite")), &error)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return false;
    }
    demonstrationscenes::fill(library, memory);
    QAccessible::setActive(true);
    print(QStringLiteral("Soak: %1 minutes, seed %2, %3 screens")
              .arg(plan.minutes)
              .arg(plan.seed)
              .arg(plan.forms.size()));
    SoakRun run(memory, library, plan);
    run.run();
    return run.report();
}

// SPDX-License-Identifier: MIT
#include "editor/recording/Replay.h"

#include "companions/memory/ParameterMemory.h"
#include "companions/scenes/SceneLibrary.h"
#include "console/SimulatedConsole.h"
#include "editor/recording/Recording.h"
#include "editor/soak/Checker.h"
#include "editor/soak/SoakWindows.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <cstdio>

namespace {

constexpr quint32 MillisecondsBetweenLooks = 200;

/// Where each value of a recording belongs.
std::vector<IMemAPI::TSingleBaseAddress> places(const ParameterLayout &layout)
{
    std::vector<IMemAPI::TSingleBaseAddress> all;
    for (const ParameterLayout::Parameter &each : layout.parameters()) {
        for (int element = 0; element < each.elements; ++element)
            all.push_back({static_cast<qint16>(each.group), static_cast<qint16>(element),
                           static_cast<qint16>(each.index)});
    }
    return all;
}

class ReplayRun
{
public:
    ReplayRun(ParameterMemory &memory, SceneLibrary &library, const Recording &recording,
              const QStringList &forms)
        : m_memory(memory), m_recording(recording), m_places(places(*recording.first.layout)),
          m_console(memory), m_windows(memory, m_console, library, forms),
          m_checker(memory, m_windows)
    {
    }

    void run();
    bool report() const;

private:
    void write(quint32 place, int value);
    void waitUntil(quint32 time);

    ParameterMemory &m_memory;
    const Recording &m_recording;
    const std::vector<IMemAPI::TSingleBaseAddress> m_places;
    SimulatedConsole m_console; ///< switched off
    SoakWindows m_windows;
    Checker m_checker;
    QElapsedTimer m_clock;
    qint64 m_changes = 0;
};

void ReplayRun::write(quint32 place, int value)
{
    const IMemAPI::TSingleBaseAddress &at = m_places[place];
    m_memory.writeValue(at.group, at.index, at.element, value, 0);
    ++m_changes;
}

void ReplayRun::waitUntil(quint32 time)
{
    while (m_clock.elapsed() < time) {
        QApplication::processEvents();
        QThread::msleep(1);
    }
}

void ReplayRun::run()
{
    for (quint32 place = 0; place < m_places.size(); ++place)
        write(place, m_recording.first.values[place]);
    m_windows.openAll();
    QApplication::processEvents();
    m_changes = 0;
    m_clock.start();
    quint32 looked = 0;
    for (const Recording::Frame &frame : m_recording.frames) {
        waitUntil(frame.time);
        for (const Recording::Change &change : frame.changes)
            write(change.place, change.value);
        QApplication::processEvents();
        if (frame.time < looked + MillisecondsBetweenLooks)
            continue;
        looked = frame.time;
        m_checker.compareValues();
    }
    m_checker.check();
}

bool ReplayRun::report() const
{
    for (const QString &line : m_checker.lines())
        std::printf("%s\n", qPrintable(line));
    std::printf("Replayed: %lld changes in %.1f s; compared: %lld controls; differences: %lld\n",
                static_cast<long long>(m_changes), static_cast<double>(m_clock.elapsed()) / 1e3,
                static_cast<long long>(m_checker.controlsCompared()),
                static_cast<long long>(m_checker.differences()));
    return m_checker.differences() == 0;
}

} // namespace

bool replay::run(ParameterMemory &memory, const Recording &recording, const QStringList &forms)
{
    if (recording.first.layout->fingerprint() != memory.snapshot().layout->fingerprint()) {
        std::fprintf(stderr,
                     "console-editor: the recording is of a console with other parameters\n");
        return false;
    }
    const QTemporaryDir folder;
    SceneLibrary library;
    library.open(folder.filePath(QStringLiteral("scenes.sqlite")));
    ReplayRun run(memory, library, recording, forms);
    run.run();
    return run.report();
}

// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QSize>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <deque>
#include <memory>
#include <vector>

class MainWindow;
class ParameterMemory;
class SceneLibrary;
class SimulatedConsole;

/// The windows of a soak: one for each form, and one with all of them behind tabs. GUI thread.
class SoakWindows
{
public:
    static constexpr QSize WindowSize{1280, 800};

    /// Opens none yet. Memory, console and library outlive the windows.
    SoakWindows(ParameterMemory &memory, SimulatedConsole &console, SceneLibrary &library,
                const QStringList &forms);
    ~SoakWindows();
    Q_DISABLE_COPY_MOVE(SoakWindows)

    int count() const { return static_cast<int>(m_windows.size()); }
    /// Null while that one is closed.
    MainWindow *window(int number) const { return m_windows[static_cast<size_t>(number)].get(); }
    /// The one with all forms.
    MainWindow *tabbed() const { return window(count() - 1); }

    void open(int number);
    /// The window goes, and then all its controls, a piece each time the event loop comes round: the
    /// operator goes on meanwhile.
    void close(int number);
    void openAll();

    /// The controls on all pages of all windows, shown or not: everything that is bound to the memory.
    std::vector<QWidget *> boundControls() const;
    /// What people call the window that a widget is in.
    static QString nameOf(const QWidget &inside);

private:
    void clearAPiece();

    ParameterMemory &m_memory;
    SimulatedConsole &m_console;
    SceneLibrary &m_library;
    QStringList m_forms;
    std::vector<std::unique_ptr<MainWindow>> m_windows;
    std::deque<QPointer<QWidget>> m_leaving; ///< pieces of closed windows
    QTimer m_clearing;
};

// SPDX-License-Identifier: MIT
#pragma once

#include "console/Dice.h"
#include "editor/soak/StallWatch.h"

#include <QPointer>
#include <QWidget>

#include <memory>

class MainWindow;
class ParameterMemory;
class SimulatedConsole;
class SoakWindows;

/// What happens around an operator: windows are resized, moved, covered, hidden, closed and opened
/// again, pages are turned and scrolled, channels chosen and patched, panels switched off, the console
/// goes offline. The same seed makes the same choices. It does nothing that no operator can do to a
/// window: when masked panels are scrolled and overlapping controls resized, Qt itself leaves pixels
/// behind. GUI thread.
class Stagehand
{
public:
    /// While a window is opened, laid out and painted for the first time, `watch` pauses.
    Stagehand(SoakWindows &windows, ParameterMemory &memory, SimulatedConsole &console,
              StallWatch &watch, std::uint32_t seed);
    ~Stagehand();
    Q_DISABLE_COPY_MOVE(Stagehand)

    void act();
    /// Opens and shows all windows, in their first size, and goes online.
    void setUpAgain();

    /// What it did last.
    const char *deed() const { return m_deed; }
    qint64 operations() const { return m_operations; }
    /// The longest that opening a window took, in milliseconds.
    qint64 longestOpening() const { return m_longestOpening; }

private:
    struct Deed
    {
        const char *name;
        int weight;
        void (Stagehand::*make)(MainWindow &);
    };
    static const Deed deeds[];

    void resize(MainWindow &window);
    void restack(MainWindow &window);
    void hideAndShow(MainWindow &window);
    void turnPage(MainWindow &window);
    void scroll(MainWindow &window);
    void chooseChannel(MainWindow &window);
    void patch(MainWindow &window);
    void rename(MainWindow &window);
    void cover(MainWindow &window);
    void uncover(MainWindow &window);
    void switchOff(MainWindow &window);
    void undo(MainWindow &window);
    void goOnlineOrOff(MainWindow &window);
    void reopen(MainWindow &window);

    QWidget *anyPanel(MainWindow &window);
    QWidget *anyControl(MainWindow &window);
    void openAll();

    SoakWindows &m_windows;
    ParameterMemory &m_memory;
    SimulatedConsole &m_console;
    StallWatch &m_watch;
    Dice m_dice;
    std::unique_ptr<StallWatch::Pause> m_opening; ///< until the next deed
    QPointer<QWidget> m_cover;
    const char *m_deed = "";
    qint64 m_operations = 0;
    qint64 m_longestOpening = 0;
};

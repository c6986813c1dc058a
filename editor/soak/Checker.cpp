// SPDX-License-Identifier: MIT
#include "editor/soak/Checker.h"

#include "companions/memory/ParameterMemory.h"
#include "editor/MainWindow.h"
#include "editor/soak/ShownValue.h"
#include "editor/soak/SoakWindows.h"
#include "editor/soak/WindowPicture.h"

#include <QApplication>
#include <QCursor>
#include <QElapsedTimer>
#include <QScreen>
#include <QThread>

#include <map>

namespace {

/// Longer than any control takes to act on what has been done to it: a key's click takes 100 ms.
constexpr int QuietMilliseconds = 150;
/// On a machine that is busy, too: turns of the event loop, for what is done in several.
constexpr int QuietTurns = 30;
constexpr int MostLines = 40;

/// Whatever is posted, and what that posts.
void deliverPosted()
{
    constexpr int rounds = 4;
    for (int i = 0; i < rounds; ++i)
        QCoreApplication::sendPostedEvents();
}

} // namespace

void Checker::check()
{
    ++m_checks;
    settle();
    compareValues();
    for (MainWindow *window : shownWindows())
        comparePictures(*window);
    compareAfterReading();
}

/// A key that has just begun to blink takes its look with the next step of the clock, which is held.
void Checker::repeatBlinkStep()
{
    bool lit = false;
    m_memory.blinkClock(&lit, 0);
    m_memory.stepBlinkClock(lit);
}

/// Nothing of what is compared is to change by itself meanwhile: a caret that blinks, a status line that
/// tells what the pointer is on when windows are raised below it.
void Checker::quieten()
{
    QApplication::setCursorFlashTime(0);
    if (QGuiApplication::platformName()
        == QLatin1String("xcb")) // Wayland leaves the pointer to its owner
        QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
}

void Checker::settle()
{
    quieten();
    QElapsedTimer clock;
    clock.start();
    for (int turn = 0; turn < QuietTurns || !clock.hasExpired(QuietMilliseconds); ++turn) {
        // Who saves paints for the service tick would not get one now.
        m_memory.tickService();
        QCoreApplication::processEvents();
        QThread::msleep(1);
    }
    repeatBlinkStep(); // whatever began to blink until now
    deliverPosted();
}

void Checker::compareValues()
{
    for (QWidget *control : m_windows.boundControls()) {
        ++m_controls;
        if (const auto found = shownvalue::compare(*control))
            report(QStringLiteral("%1 in '%2' shows %3, the memory holds %4")
                       .arg(shownvalue::describe(*control), SoakWindows::nameOf(*control))
                       .arg(found->shown)
                       .arg(found->stored));
    }
}

std::vector<MainWindow *> Checker::shownWindows() const
{
    std::vector<MainWindow *> found;
    for (int number = 0; number < m_windows.count(); ++number) {
        MainWindow *window = m_windows.window(number);
        if (window && window->isVisible() && !window->isMinimized())
            found.push_back(window);
    }
    return found;
}

void Checker::comparePictures(MainWindow &window)
{
    window.raise();
    auto where = windowpicture::best();
    QImage shown = windowpicture::present(window, where);
    // Where windows are not raised by those whom they belong to, one may stay below others.
    if (shown.isNull())
        shown = windowpicture::present(window, where = windowpicture::Where::Store);
    if (shown.isNull())
        return;
    ++m_compared;
    m_photographed += where == windowpicture::Where::Screen;
    compare(window, shown, windowpicture::repainted(window, where),
            QStringLiteral("shows pixels that a paint does not give"));
}

/// In the stores: windows that are raised may take the mouse from each other, and say so.
void Checker::compareAfterReading()
{
    std::map<MainWindow *, QImage> pictures;
    for (MainWindow *window : shownWindows())
        pictures[window] = windowpicture::repainted(*window);
    m_memory.alert(-1, 0, 0);
    deliverPosted();
    for (const auto &[window, before] : pictures)
        compare(*window, before, windowpicture::present(*window),
                QStringLiteral("shows something else after reading the memory again"));
}

void Checker::compare(QWidget &window, const QImage &shown, const QImage &due, const QString &fault)
{
    const QRegion differing = windowpicture::differing(window, shown, due);
    if (differing.isEmpty())
        return;
    for (const auto &[widget, part] : windowpicture::widgetsAt(window, differing))
        report(QStringLiteral("%1 in '%2' %3: %4x%5 pixels at %6,%7")
                   .arg(shownvalue::describe(*widget), SoakWindows::nameOf(window), fault)
                   .arg(part.width())
                   .arg(part.height())
                   .arg(part.x())
                   .arg(part.y()));
    keepPicture(shown, QStringLiteral("shown"));
    keepPicture(due, QStringLiteral("due"));
}

void Checker::report(const QString &line)
{
    ++m_count;
    if (m_lines.size() < MostLines)
        m_lines << QStringLiteral("check %1: %2").arg(m_checks).arg(line);
}

void Checker::keepPicture(const QImage &picture, const QString &kind)
{
    if (m_folder.isEmpty() || m_lines.size() >= MostLines)
        return;
    QDir().mkpath(m_folder);
    picture.save(QDir(m_folder).filePath(
        QStringLiteral("check-%1-%2-%3.png").arg(m_checks).arg(m_count).arg(kind)));
}

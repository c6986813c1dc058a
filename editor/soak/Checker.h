// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QImage>
#include <QString>
#include <QStringList>

#include <vector>

class HeldConsole;
class MainWindow;
class ParameterMemory;
class QWidget;
class SoakWindows;

/// Looks whether all controls show what the memory holds. GUI thread.
class Checker
{
public:
    Checker(ParameterMemory &memory, SoakWindows &windows) : m_memory(memory), m_windows(windows) {}

    /// Pictures of what differs are kept there.
    void keepPicturesIn(const QString &folder) { m_folder = folder; }

    /// The console must be held. Lets everything that waits come to its end, and then
    /// - compares the value of each control with the memory's,
    /// - compares what each window shows, on the screen where one can be photographed and is not covered,
    ///   with what it shows when all of it is painted anew,
    /// - asks every control to read its value again, and compares once more.
    void check();

    /// The first part alone, at once.
    void compareValues();

    int checks() const { return m_checks; }
    qint64 controlsCompared() const { return m_controls; }
    qint64 windowsCompared() const { return m_compared; }
    /// As many of them on the screen.
    qint64 windowsPhotographed() const { return m_photographed; }
    qint64 differences() const { return m_count; }
    /// A line each, of the first ones.
    const QStringList &lines() const { return m_lines; }

private:
    void quieten();
    void settle();
    void repeatBlinkStep();
    std::vector<MainWindow *> shownWindows() const;
    void comparePictures(MainWindow &window);
    void compareAfterReading();
    void compare(QWidget &window, const QImage &shown, const QImage &due, const QString &fault);
    void report(const QString &line);
    void keepPicture(const QImage &picture, const QString &kind);

    ParameterMemory &m_memory;
    SoakWindows &m_windows;
    QString m_folder;
    QStringList m_lines;
    int m_checks = 0;
    qint64 m_controls = 0;
    qint64 m_compared = 0;
    qint64 m_photographed = 0;
    qint64 m_count = 0;
};

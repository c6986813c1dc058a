// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QString>

class MainWindow;

/// Draws every screen of the editor into a PNG file named after its form.
class ScreenRenderer
{
public:
    explicit ScreenRenderer(MainWindow &window) : m_window(window) {}

    /// Makes the folder if need be. False, and one line in `error`, when a file cannot be written.
    bool render(const QDir &folder, QString *error);

private:
    MainWindow &m_window;
};

// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/IEditorExtensions.h"

#include <QMainWindow>

#include <memory>

class ParameterMemory;
class ProxyCommands;
class ScreenPages;
class SimulatedConsole;
class TouchedControl;

/// The editor's window: the screens, the menus, and the line about the control in hand.
class MainWindow : public QMainWindow, public IEditorExtensions
{
    Q_OBJECT

public:
    /// Opens the forms. The memory has its model; memory and console outlive the window.
    MainWindow(ParameterMemory &memory, SimulatedConsole &console, const QStringList &forms,
               QWidget *parent = nullptr);
    ~MainWindow() override;

    ScreenPages &pages() const;
    TouchedControl &touchedControl() const;

    void controlStepped(QWidget *control) override;

private:
    void watchPages();
    void addEditMenu();
    void addControlMenu();
    void addScreenMenu();
    void addConsoleMenu();
    void addHelpMenu();
    void addCorner();
    void addStatus();
    QAction *addCommand(QMenu *menu, const QString &text, void (*command)(QWidget *));
    void enableCommands();
    QWidget *makeTimeDisplay();
    void showScreenOptions();
    void simulateChanges(double rate);

    struct Private;
    std::unique_ptr<Private> d;
};

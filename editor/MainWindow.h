// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/IEditorExtensions.h"

#include <QMainWindow>

#include <memory>

class EditorPreferences;
class ParameterMemory;
class ProxyCommands;
class SceneLibrary;
class ScreenPages;
class SimulatedConsole;
class TouchedControl;

/// The editor's window: the screens, the menus, and the line about the control in hand.
class MainWindow : public QMainWindow, public IEditorExtensions
{
    Q_OBJECT

public:
    /// Opens the forms. The memory has its model. The scene library may be closed: its page says so.
    /// Memory, console and library outlive the window.
    MainWindow(ParameterMemory &memory, SimulatedConsole &console, SceneLibrary &library,
               const QStringList &forms, QWidget *parent = nullptr);
    ~MainWindow() override;

    ScreenPages &pages() const;
    TouchedControl &touchedControl() const;
    EditorPreferences &preferences() const;

    void controlStepped(QWidget *control) override;

private:
    void watchPages();
    void addEditMenu();
    void addControlMenu();
    void addScreenMenu();
    void addSceneMenu();
    void addConsoleMenu();
    void addHelpMenu();
    void addCorner();
    void addStatus();
    void watchScenes();
    QAction *addCommand(QMenu *menu, const QString &text, void (*command)(QWidget *));
    void enableCommands();
    QWidget *makeTimeDisplay();
    void showScreenOptions();
    void simulateChanges(double rate);

    struct Private;
    std::unique_ptr<Private> d;
};

// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/ParameterMemory.h"
#include "companions/scenes/SceneLibrary.h"
#include "console/SimulatedConsole.h"
#include "editor/BoundControls.h"
#include "editor/MainWindow.h"
#include "editor/ScreenPages.h"
#include "editor/TouchedControl.h"
#include "testkit/Gestures.h"

#include <QApplication>
#include <QScrollArea>
#include <QTemporaryDir>
#include <QTest>

/// An editor with the shipped screens, on a console that does nothing of its own.
struct EditorRig
{
    EditorRig() : loaded(memory.load(ParameterMemory::builtInModel())), console(memory)
    {
        console.setRate(0);
        console.step(1000);
        if (!library.open(folder.filePath("scenes.sqlite")))
            qFatal("no scene library");
        window = std::make_unique<MainWindow>(memory, console, library, QStringList());
        window->resize(1280, 800);
        window->show();
        QApplication::setActiveWindow(window.get());
        QApplication::processEvents();
    }

    QWidget *screen(const QString &name)
    {
        ScreenPages &pages = window->pages();
        for (int index = 0; index < pages.count(); ++index) {
            if (pages.pageName(index) != name)
                continue;
            pages.setCurrentIndex(index);
            QApplication::processEvents();
            return pages.page(index)->widget();
        }
        return nullptr;
    }

    /// The control with that accessible name on a screen.
    QWidget *control(const QString &screenName, const QString &name)
    {
        for (QWidget *each : boundcontrols::inside(screen(screenName))) {
            if (each->accessibleName() == name)
                return each;
        }
        qFatal("no control %s", qPrintable(name));
        return nullptr;
    }

    int value(const QString &address, int element) const
    {
        IMemAPI::TSingleBaseAddress at;
        if (!memory.resolve(address, element, at))
            qFatal("no parameter %s", qPrintable(address));
        return memory.readValue(at.group, at.index, at.element, 0, 0);
    }

    ParameterMemory memory;
    bool loaded;
    SimulatedConsole console;
    QTemporaryDir folder;
    SceneLibrary library;
    std::unique_ptr<MainWindow> window;
};

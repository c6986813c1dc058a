// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

/// What the command line asks for.
struct EditorOptions
{
    QStringList forms; ///< form files; none: the shipped screens
    QString model;     ///< console model; empty: the one the library ships with
    QString library;   ///< file of the scene library; empty: the operator's own
    QString screens;   ///< folder for pictures of all screens; empty: an editor with a window
    QSize size{1280, 800};
    double scale = 1;   ///< of the pictures
    int rate = 0;       ///< simulated changes per second
    double soak = 0;    ///< minutes of hard use; 0: none
    quint32 seed = 1;   ///< of the hard use
    QString record;     ///< file to record parameter traffic into; empty: none
    QString replay;     ///< recorded traffic to replay; empty: none
    QString classes;    ///< folder for the reference of the widgets; empty: none is asked for
    bool check = false; ///< look for faults in the forms instead of opening them
    bool json = false;  ///< tell them as JSON

    QString error;  ///< one line; empty when the command line is sound
    QString answer; ///< text to print instead of starting (help, version)

    /// `arguments` begin with the program's name.
    static EditorOptions parse(const QStringList &arguments);

    bool needsDisplay() const
    {
        return screens.isEmpty() && answer.isEmpty() && classes.isEmpty() && !check && soak == 0
               && replay.isEmpty();
    }
};

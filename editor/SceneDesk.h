// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>

#include <vector>

class CListWidge;
class ParameterMemory;
class SceneLibrary;

/// The editor's scenes: shows the library in the scene lists of pages, each with a row per slot, and says
/// on the page when it cannot be used, or only be read. GUI thread.
class SceneDesk : public QObject
{
    Q_OBJECT

public:
    /// Both outlive the desk.
    SceneDesk(ParameterMemory &memory, SceneLibrary &library, QObject *parent = nullptr);

    ParameterMemory &memory() const { return m_memory; }
    SceneLibrary &library() const { return m_library; }

    /// Fills the list `scenes` of a page, if there is one. Beside it there may be `sceneTrouble`, shown
    /// while there is something to tell, with a label `sceneTroubleText` and a button `sceneRetry`.
    void addPage(QWidget *page);
    /// Looks whether another program has changed the library.
    void refresh();
    /// Tells something that the operator may want to know.
    void say(const QString &line) { Q_EMIT told(line); }

public Q_SLOTS:
    /// Tries to open the library once more.
    void openAgain();

Q_SIGNALS:
    void told(const QString &line);

private:
    void showLibrary();
    void fill(CListWidge *list);
    void showTrouble(QWidget *page) const;

    ParameterMemory &m_memory;
    SceneLibrary &m_library;
    std::vector<QPointer<QWidget>> m_pages;
};

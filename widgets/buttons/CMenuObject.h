// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

#include <QHash>
#include <QMenu>
#include <QPointer>
#include <QTimer>

/// The drop-down list of a value menu: items with an identifier each, which is kept in the action's
/// data. It hangs under the widget that it is opened for, goes to the item whose first letters are
/// typed, and scrolls when it is very long. GUI thread.
class CONSOLEWIDGETS_EXPORT CMenuObject : public QMenu
{
    Q_OBJECT

public:
    /// Empty.
    explicit CMenuObject(QWidget *parent = nullptr);

    /// Deletes the menu: later, if it is telling of a choice at this moment.
    void discard();

    /// Closes the menu and removes all items.
    void clearItems();
    /// Adds an item at the end. The text shows as it is, ampersands included.
    void appendItem(const QString &text, int identifier);

    /// Gives a check mark to the first item with that identifier, and to no other. Very long menus show
    /// it when they are next opened.
    void checkItem(int identifier);
    /// Leaves no item with a check mark.
    void uncheck();

    /// Opens under the lower left corner of a widget, without an item preselected; not when empty.
    void openFor(QWidget *widget);
    /// The widget for which the menu is open; null while it is closed.
    QWidget *openedFor() const { return m_widget; }

Q_SIGNALS:
    /// The operator chose an item. The receiver may destroy the menu.
    void chosen(int identifier);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void applyCheck();
    bool typeAhead(const QKeyEvent &event);

    QPointer<QWidget> m_widget;
    QHash<int, QAction *> m_actions; ///< the first action of each identifier
    QAction *m_wanted = nullptr;     ///< to be checked
    QAction *m_checked = nullptr;    ///< has the mark
    QString m_typed;
    QTimer m_forget;
    bool m_telling = false;
};

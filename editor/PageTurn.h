// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>

class QTabWidget;
class QWidget;

/// Has each widget of a page painted once when the page comes to the front. Left to itself, Qt asks every
/// widget of the page for a paint, one by one and twice over: what is opaque is then painted with its
/// parent and once more by itself, which doubles the time that a page with thousands of widgets takes.
/// GUI thread.
class PageTurn : public QObject
{
public:
    /// Before the first page is added. `pages` owns it.
    explicit PageTurn(QTabWidget &pages);

    /// The tab widget is about to show another page, and has shown it.
    void begin();
    void end();

    bool event(QEvent *event) override;
    /// Lets no widget of the page ask for a paint of its own.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QTabWidget &m_pages;
    QPointer<QWidget> m_stack; ///< while the page is exchanged
    QPointer<QWidget> m_shown; ///< the page whose widgets have such requests under way
    int m_turns = 0;           ///< whose requests have not all come
};

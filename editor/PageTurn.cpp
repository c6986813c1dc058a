// SPDX-License-Identifier: MIT
#include "editor/PageTurn.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTabWidget>

PageTurn::PageTurn(QTabWidget &pages) : QObject(&pages), m_pages(pages) {}

void PageTurn::begin()
{
    QWidget *page = m_pages.currentWidget();
    if (!page || !page->isVisible() || !m_pages.updatesEnabled())
        return;
    m_stack = page->parentWidget();
    // The stack would switch updates off and on again in all widgets of all pages, and each of them would
    // ask for a paint. Nothing of a stack is seen: it needs no updates of its own.
    m_stack->setAttribute(Qt::WA_UpdatesDisabled);
}

void PageTurn::end()
{
    if (!m_stack)
        return;
    m_stack->setAttribute(Qt::WA_UpdatesDisabled, false);
    m_stack = nullptr;
    // The page that was hidden has left its place to be painted, all of it and all that is in it now.
    m_shown = m_pages.currentWidget();
    if (m_turns++ == 0)
        qApp->installEventFilter(this);
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

bool PageTurn::event(QEvent *event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    if (--m_turns == 0)
        qApp->removeEventFilter(this);
    return true;
}

bool PageTurn::eventFilter(QObject *watched, QEvent *event)
{
    return event->type() == QEvent::UpdateLater && m_shown && watched->isWidgetType()
           && m_shown->isAncestorOf(static_cast<QWidget *>(watched));
}

// SPDX-License-Identifier: MIT
#include "editor/WheelGuard.h"

#include <QCoreApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QWheelEvent>

namespace {

QScrollArea *pageAround(QWidget *widget)
{
    for (QWidget *each = widget; each; each = each->parentWidget()) {
        if (auto *page = qobject_cast<QScrollArea *>(each))
            return page;
    }
    return nullptr;
}

bool canScroll(const QScrollBar *bar)
{
    return bar->minimum() < bar->maximum();
}

/// The bar that the wheel means; null when the page fits its window that way.
QScrollBar *barFor(const QScrollArea *page, QPoint delta)
{
    QScrollBar *across = page->horizontalScrollBar();
    QScrollBar *down = page->verticalScrollBar();
    const bool sideways = qAbs(delta.x()) > qAbs(delta.y());
    if (!sideways && canScroll(down))
        return down;
    return canScroll(across) ? across : nullptr;
}

} // namespace

WheelGuard::WheelGuard(QObject *parent) : QObject(parent) {}

void WheelGuard::watchPage(QScrollArea *page)
{
    page->viewport()->installEventFilter(this);
}

void WheelGuard::watchControl(QWidget *control)
{
    control->installEventFilter(this);
}

bool WheelGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Wheel)
        return false;
    QScrollArea *page = pageAround(static_cast<QWidget *>(watched));
    if (!page)
        return false;
    const bool overControl = watched != page->viewport();
    const bool goingOn = m_scrolled == page && m_sinceScroll.isValid()
                         && !m_sinceScroll.hasExpired(HoldMilliseconds);
    if (overControl && !goingOn)
        return false;
    return scroll(page, static_cast<QWheelEvent *>(event));
}

/// True when the page took the event; at its end it does so without moving.
bool WheelGuard::scroll(QScrollArea *page, QWheelEvent *event)
{
    QScrollBar *bar = barFor(page, event->angleDelta());
    if (!bar)
        return false;
    QCoreApplication::sendEvent(bar, event);
    event->accept();
    m_scrolled = page;
    m_sinceScroll.start();
    return true;
}

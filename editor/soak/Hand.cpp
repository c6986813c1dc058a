// SPDX-License-Identifier: MIT
#include "editor/soak/Hand.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWindow>

bool Hand::take(QWidget *target, QPointF at)
{
    if (!target || !target->isVisible())
        return false;
    m_window = target->window();
    m_place = target->mapTo(m_window.data(), at);
    return true;
}

void Hand::send(QEvent::Type type, Qt::MouseButton button)
{
    if (!m_window || !m_window->windowHandle() || !m_window->isVisible())
        return;
    QMouseEvent event(type, m_place, m_place, m_window->mapToGlobal(m_place), button, m_held,
                      m_modifiers);
    QCoreApplication::sendEvent(m_window->windowHandle(), &event);
}

void Hand::press(QWidget *target, QPointF at, Qt::MouseButton button,
                 Qt::KeyboardModifiers modifiers)
{
    release();
    if (!take(target, at))
        return;
    m_modifiers = modifiers;
    send(QEvent::MouseMove, Qt::NoButton);
    m_held = button;
    send(QEvent::MouseButtonPress, button);
}

void Hand::doubleClick(QWidget *target, QPointF at)
{
    const QPointer<QWidget> alive(target);
    press(target, at);
    release();
    if (!alive || !take(alive, at))
        return;
    m_held = Qt::LeftButton;
    send(QEvent::MouseButtonDblClick, Qt::LeftButton);
    release();
}

void Hand::moveTo(QWidget *target, QPointF at)
{
    if (take(target, at))
        send(QEvent::MouseMove, Qt::NoButton);
}

void Hand::moveBy(QPointF way)
{
    m_place += way;
    send(QEvent::MouseMove, Qt::NoButton);
}

void Hand::release()
{
    const Qt::MouseButton button = std::exchange(m_held, Qt::NoButton);
    if (button != Qt::NoButton)
        send(QEvent::MouseButtonRelease, button);
    m_modifiers = {};
}

void Hand::wheel(QWidget *target, QPointF at, int delta, Qt::KeyboardModifiers modifiers)
{
    for (QPointer<QWidget> each(target); each; each = each->parentWidget()) {
        if (!target->isVisible())
            return;
        const QPointF place = target->mapTo(each.data(), at);
        QWheelEvent event(place, each->mapToGlobal(place), {}, {0, delta}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        const QPointer<QWidget> alive(target);
        QCoreApplication::sendEvent(each, &event);
        if (event.isAccepted() || !alive || !each || each->isWindow())
            return;
    }
}

void Hand::key(QWidget *window, int key, const QString &text, Qt::KeyboardModifiers modifiers)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        if (!window || !window->windowHandle())
            return;
        const QPointer<QWidget> alive(window);
        QKeyEvent event(type, key, modifiers, text);
        QCoreApplication::sendEvent(window->windowHandle(), &event);
        window = alive;
    }
}

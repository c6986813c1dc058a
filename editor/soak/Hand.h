// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QPointer>
#include <QPointF>
#include <QWidget>

/// An operator's hand: gives windows the events that a mouse and a keyboard would make. Who gets them
/// (the control, a popup, whoever holds the mouse) is the toolkit's business, as ever. GUI thread. Any
/// of it may run an event loop of its own, and destroy widgets.
class Hand
{
public:
    /// Points are the target's own. Null or hidden targets are passed over.
    void press(QWidget *target, QPointF at, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {});
    void doubleClick(QWidget *target, QPointF at);
    /// With the button that is held, if any.
    void moveTo(QWidget *target, QPointF at);
    void moveBy(QPointF way);
    /// Lets the button go where the hand is.
    void release();
    bool isHolding() const { return m_held != Qt::NoButton; }

    /// Where the control does not want the wheel, what it stands in gets it.
    void wheel(QWidget *target, QPointF at, int delta, Qt::KeyboardModifiers modifiers = {});
    /// To whoever has the keyboard in that window.
    void key(QWidget *window, int key, const QString &text = {},
             Qt::KeyboardModifiers modifiers = {});

private:
    bool take(QWidget *target, QPointF at);
    void send(QEvent::Type type, Qt::MouseButton button);

    QPointer<QWidget> m_window;
    QPointF m_place; ///< in the window
    Qt::MouseButton m_held = Qt::NoButton;
    Qt::KeyboardModifiers m_modifiers;
};

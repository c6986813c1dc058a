// SPDX-License-Identifier: MIT
// How the operator's mouse and keys work the key.
#include "widgets/binding/Binding.h"
#include "widgets/buttons/COnOffButtonPrivate.h"
#include "widgets/painting/Opacity.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>

#include <chrono>

namespace {

/// How long a key looks held down after it was let go.
constexpr std::chrono::milliseconds ClickDelay(100);

/// Whether it is the key by which buttons are pressed.
bool isPressKey(const QKeyEvent *event)
{
    return (event->key() == Qt::Key_Space || event->key() == Qt::Key_Select)
           && !event->isAutoRepeat();
}

QMouseEvent releaseAt(const QWidget &key, const QPointF &position, Qt::KeyboardModifiers modifiers)
{
    return QMouseEvent(QEvent::MouseButtonRelease, position, key.mapToGlobal(position),
                       Qt::LeftButton, Qt::NoButton, modifiers);
}

} // namespace

/// A key that is on because its value is chosen stays on.
bool COnOffButton::refusesClick() const
{
    const COnOffButton_PD &look = *d->look;
    if (look.boolClipValue == 0 || look.hasOffState || !memAPI())
        return false;
    const int value = d->selection ? d->selection->value() : binding::read(*this);
    return value == look.boolClipValue - 1;
}

bool COnOffButton::hitButton(const QPoint &position) const
{
    return !refusesClick() && QPushButton::hitButton(position);
}

/// Whichever way a click comes: mouse, keyboard, assistive tool.
void COnOffButton::nextCheckState()
{
    if (isToggleButton() && !disabledUI() && !refusesClick())
        setOn(!isOn());
}

/// Whether a press switches at once, in the present state.
bool COnOffButton::pressTriggers() const
{
    return (isOn() ? offStateTrigger() : onStateTrigger()) == buttonPush;
}

/// Down, with the push button's own handling.
void COnOffButton::press(const Pass &passPress, const Pass &passRelease)
{
    d->pressed = true;
    if (!pressTriggers()) {
        passPress();
        return;
    }
    clickDelayDone();
    const QPointer<COnOffButton> self(this);
    passPress();
    if (!self)
        return;
    markDirty();
    passRelease();
}

/// Up again: the held picture stays for a moment, unless the press has switched already.
void COnOffButton::release(const Pass &passRelease)
{
    if (disabledUI() || d->look->trackingImage.isNull())
        d->pressed = false;
    else if (pressTriggers())
        clickDelayDone();
    else
        QTimer::singleShot(ClickDelay, this, &COnOffButton::clickDelayDone);
    passRelease();
}

/// No release will come: the key must not stay down.
void COnOffButton::letGo()
{
    if (d->look->remembered.by == this)
        d->look->remembered = {};
    if (d->pressed)
        clickDelayDone();
}

void COnOffButton::mousePressEvent(QMouseEvent *event)
{
    markDirty();
    if (disabledUI() || d->pressed || event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    if (autoRepeat())
        d->look->remembered = {this, event->position(), event->modifiers()};
    press([this, event] { QPushButton::mousePressEvent(event); },
          [this, event] {
              QMouseEvent up = releaseAt(*this, event->position(), event->modifiers());
              QPushButton::mouseReleaseEvent(&up);
          });
}

void COnOffButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    markDirty();
    if (d->look->remembered.by == this)
        d->look->remembered = {};
    release([this, event] { QPushButton::mouseReleaseEvent(event); });
}

void COnOffButton::keyPressEvent(QKeyEvent *event)
{
    if (!isPressKey(event)) {
        QPushButton::keyPressEvent(event);
        return;
    }
    markDirty();
    if (disabledUI() || d->pressed) {
        event->ignore();
        return;
    }
    press([this, event] { QPushButton::keyPressEvent(event); },
          [this, event] {
              QKeyEvent up(QEvent::KeyRelease, event->key(), event->modifiers());
              QPushButton::keyReleaseEvent(&up);
          });
}

void COnOffButton::keyReleaseEvent(QKeyEvent *event)
{
    if (!isPressKey(event) || !isDown()) {
        QPushButton::keyReleaseEvent(event);
        return;
    }
    markDirty();
    release([this, event] { QPushButton::keyReleaseEvent(event); });
}

void COnOffButton::focusOutEvent(QFocusEvent *event)
{
    const bool held = isDown();
    const QPointer<COnOffButton> self(this);
    QPushButton::focusOutEvent(event);
    if (self && held && !isDown())
        letGo();
}

void COnOffButton::hideEvent(QHideEvent *event)
{
    QPushButton::hideEvent(event);
    if (isDown()) {
        setDown(false);
        letGo();
    }
}

void COnOffButton::enabledChange(bool)
{
    if (!isEnabled())
        letGo();
    updateErasePixmap(nullptr);
    markDirty();
    repaint();
}

void COnOffButton::windowActivationChange(bool)
{
    const COnOffButton_PD::RememberedPress held = d->look->remembered;
    if (!autoRepeat() || held.by != this)
        return;
    QMouseEvent up = releaseAt(*this, held.position, held.modifiers);
    mouseReleaseEvent(&up);
}

bool COnOffButton::event(QEvent *event)
{
    const QPointer<COnOffButton> self(this);
    const QEvent::Type type = event->type();
    const bool handled = QPushButton::event(event);
    if (!self)
        return handled;
    switch (type) {
    case QEvent::Polish: polish(); [[fallthrough]];
    case QEvent::StyleChange:
        // The default style sets this, though the picture does not depend on the pointer.
        setAttribute(Qt::WA_Hover, d->look->onImage.isNull());
        [[fallthrough]];
    case QEvent::ScreenChangeInternal: opacity::set(*this, d->look->isOpaque()); break;
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate: windowActivationChange(type == QEvent::WindowDeactivate); break;
    default: break;
    }
    return handled;
}

void COnOffButton::changeEvent(QEvent *event)
{
    const QPointer<COnOffButton> self(this);
    QPushButton::changeEvent(event);
    if (self && event->type() == QEvent::EnabledChange)
        enabledChange(!isEnabled());
}

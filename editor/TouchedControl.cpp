// SPDX-License-Identifier: MIT
#include "editor/TouchedControl.h"

#include "companions/memory/ParameterMemory.h"
#include "editor/BoundControls.h"

#include <QFocusEvent>

using boundcontrols::proxyOf;

namespace {

/// A menu, or another window, borrows the focus and gives it back.
bool isBorrowed(Qt::FocusReason reason)
{
    return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason
           || reason == Qt::ActiveWindowFocusReason;
}

} // namespace

TouchedControl::TouchedControl(const ParameterMemory &memory, QObject *parent)
    : QObject(parent), m_memory(memory)
{
}

void TouchedControl::watch(QWidget *control)
{
    control->installEventFilter(this);
}

QWidget *TouchedControl::control() const
{
    return m_control;
}

QString TouchedControl::name() const
{
    return m_control ? boundcontrols::nameOf(m_control, m_memory) : QString();
}

QString TouchedControl::address() const
{
    const TMemProxy *proxy = proxyOf(m_control);
    if (!proxy || !proxy->isAttached())
        return {};
    const IMemAPI::TSingleBaseAddress at = proxy->valueAddress();
    return QString("%1").arg(at.element, 2, 16, QLatin1Char('0')).toUpper()
           + m_memory.nameOf(at.group, at.index);
}

QString TouchedControl::value() const
{
    return m_control ? boundcontrols::valueTextOf(m_control) : QString();
}

void TouchedControl::touch(QWidget *control)
{
    if (control == m_control)
        return;
    if (m_control)
        m_control->disconnect(this);
    m_control = proxyOf(control) ? control : nullptr;
    if (m_control) {
        connect(m_control, SIGNAL(memoryAPIValueChange(int)), this, SIGNAL(changed()));
        connect(m_control, &QObject::destroyed, this, &TouchedControl::changed);
    }
    Q_EMIT changed();
}

bool TouchedControl::eventFilter(QObject *watched, QEvent *event)
{
    auto *control = static_cast<QWidget *>(watched);
    switch (event->type()) {
    case QEvent::FocusIn: m_focused = control; [[fallthrough]];
    case QEvent::Enter:
    case QEvent::MouseButtonPress:
    case QEvent::KeyPress: touch(control); break;
    case QEvent::FocusOut:
        if (isBorrowed(static_cast<QFocusEvent *>(event)->reason()))
            break;
        m_focused = nullptr;
        leave(control);
        break;
    case QEvent::Leave: leave(control); break;
    default: break;
    }
    return false;
}

void TouchedControl::leave(QWidget *control)
{
    if (m_control == control && !(control == m_focused || control->underMouse()))
        touch(m_focused);
}

// SPDX-License-Identifier: MIT
#include "testkit/Gestures.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>

#include <cmath>

namespace {

constexpr double DragStep = 5; // degrees

} // namespace

QPoint gesture::around(const QWidget &control, double degrees, double radius)
{
    const double angle = degrees * std::acos(-1.0) / 180;
    const QPointF centre(control.width() / 2.0, control.height() / 2.0);
    return (centre + radius * QPointF(std::sin(angle), -std::cos(angle))).toPoint();
}

void gesture::press(QWidget &control, const QPoint &at, Qt::MouseButton button,
                    Qt::KeyboardModifiers modifiers)
{
    QTest::mousePress(&control, button, modifiers, at);
}

void gesture::moveTo(QWidget &control, const QPointF &at, Qt::MouseButtons held)
{
    // QTest::mouseMove() leaves out the buttons.
    QMouseEvent event(QEvent::MouseMove, at, control.mapToGlobal(at), Qt::NoButton, held, {});
    QApplication::sendEvent(&control, &event);
}

void gesture::release(QWidget &control, const QPoint &at, Qt::MouseButton button)
{
    QTest::mouseRelease(&control, button, {}, at);
}

void gesture::dragAround(QWidget &control, double from, double to, Ending ending)
{
    press(control, around(control, from));
    const double direction = to > from ? 1 : -1;
    const int steps = static_cast<int>(std::abs(to - from) / DragStep);
    for (int i = 0; i <= steps; ++i)
        moveTo(control, around(control, from + direction * DragStep * i));
    moveTo(control, around(control, to));
    if (ending == Release)
        release(control, around(control, to));
}

void gesture::wheel(QWidget &control, int notches)
{
    const QPointF middle = QRectF(control.rect()).center();
    const int delta = QWheelEvent::DefaultDeltasPerStep;
    for (int i = 0; i < std::abs(notches); ++i)
        wheelBy(control, notches > 0 ? delta : -delta, middle);
}

void gesture::wheelBy(QWidget &control, int delta, const QPointF &at,
                      Qt::KeyboardModifiers modifiers)
{
    QWheelEvent event(at, control.mapToGlobal(at), {}, {0, delta}, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    // As if from the window system: an event of a program's own does not go on to the parents.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&control, &event);
}

bool gesture::typeNumber(QWidget &control, const QString &number)
{
    if (number.isEmpty())
        return false;
    QTest::keyClicks(&control, number.first(1));
    QWidget *popup = QApplication::activePopupWidget();
    if (!popup)
        return false;
    QWidget *field = popup->focusWidget() ? popup->focusWidget() : popup;
    QTest::keyClicks(field, number.sliced(1));
    QTest::keyClick(field, Qt::Key_Return);
    return true;
}

// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QString>
#include <Qt>

class QWidget;

/// What an operator's hands do to a control, as the events that Qt would deliver. Points are the
/// control's own. GUI thread; the control should be shown.
namespace gesture {

/// Whether the button is let go at the end of a drag.
enum Ending { Release, KeepHeld };

/// The point `degrees` clockwise from twelve o'clock, on a circle around the control's centre.
QPoint around(const QWidget &control, double degrees, double radius = 40);

/// One event: the button goes down.
void press(QWidget &control, const QPoint &at, Qt::MouseButton button = Qt::LeftButton,
           Qt::KeyboardModifiers modifiers = {});
/// One event: the pointer moves while the buttons are held.
void moveTo(QWidget &control, const QPointF &at, Qt::MouseButtons held = Qt::LeftButton);
/// One event: the button comes up.
void release(QWidget &control, const QPoint &at, Qt::MouseButton button = Qt::LeftButton);

/// A drag along the circle around the control's centre, in steps of 5 degrees.
void dragAround(QWidget &control, double fromDegrees, double toDegrees, Ending ending = Release);

/// Turns the wheel over the middle, one event for each notch; above 0 is away from the operator.
void wheel(QWidget &control, int notches);
/// One event of the wheel, over a point; `delta` is 120 for a notch. What the control leaves, its
/// parents get.
void wheelBy(QWidget &control, int delta, const QPointF &at, Qt::KeyboardModifiers modifiers = {});

/// Types a number into the control and Return; the first character opens the field for it. False when
/// no field has opened.
bool typeNumber(QWidget &control, const QString &number);

} // namespace gesture

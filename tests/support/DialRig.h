// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/RecordingMemory.h"
#include "tests/support/TestStrip.h"
#include "widgets/controls/CDial.h"

#include <QSignalSpy>
#include <QTest>

#include <cmath>

/// A dial in a window, bound to parameter (3, 7, 2) of a recording memory, with 10 pictures.
struct DialRig
{
    static constexpr int Group = 3;
    static constexpr int Index = 7;
    static constexpr int Element = 2;

    explicit DialRig(int minimum = 0, int maximum = 100, int value = 0)
    {
        RecordingMemory::Parameter &own = parameter();
        own.minimum = minimum;
        own.maximum = maximum;
        own.value = value;
        window.resize(200, 200);
        dial.setGeometry(50, 50, 100, 100);
        dial.setnSubImages(10);
        dial.setCombinedImage(teststrip::make(1, 10, {100, 100}));
    }

    void bind()
    {
        memory.bind(dial, Group, Index, Element);
        memory.take();
    }
    void show()
    {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QApplication::setActiveWindow(&window);
    }

    RecordingMemory::Parameter &parameter() { return memory.at(Group, Index, Element); }
    QStringList writes() { return memory.take({QStringLiteral("writeValue")}); }

    /// The point at `degrees` clockwise from twelve o'clock around the dial's centre.
    QPoint around(double degrees, double radius = 40) const
    {
        const double angle = degrees * std::acos(-1.0) / 180;
        return QPointF(50 + radius * std::sin(angle), 50 - radius * std::cos(angle)).toPoint();
    }
    void press(const QPoint &at, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mousePress(&dial, button, modifiers, at);
    }
    void moveTo(const QPointF &at, Qt::MouseButtons buttons = Qt::LeftButton)
    {
        QMouseEvent event(QEvent::MouseMove, at, dial.mapToGlobal(at), Qt::NoButton, buttons, {});
        QApplication::sendEvent(&dial, &event);
    }
    void release(const QPoint &at) { QTest::mouseRelease(&dial, Qt::LeftButton, {}, at); }
    /// A drag along the circle in steps of 5 degrees.
    void dragAround(double from, double to)
    {
        press(around(from));
        const double step = to > from ? 5 : -5;
        for (double angle = from; step > 0 ? angle < to : angle > to; angle += step)
            moveTo(around(angle));
        moveTo(around(to));
    }

    RecordingMemory memory;
    QWidget window;
    CDial dial{&window};
};

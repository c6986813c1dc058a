// SPDX-License-Identifier: MIT
#pragma once

#include "testkit/Gestures.h"
#include "testkit/RecordingMemory.h"
#include "testkit/TestStrip.h"
#include "widgets/controls/CDial.h"

#include <QSignalSpy>
#include <QTest>

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

    QPoint around(double degrees, double radius = 40) const
    {
        return gesture::around(dial, degrees, radius);
    }
    void press(const QPoint &at, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {})
    {
        gesture::press(dial, at, button, modifiers);
    }
    void moveTo(const QPointF &at, Qt::MouseButtons buttons = Qt::LeftButton)
    {
        gesture::moveTo(dial, at, buttons);
    }
    void release(const QPoint &at) { gesture::release(dial, at); }
    /// The button stays held.
    void dragAround(double from, double to)
    {
        gesture::dragAround(dial, from, to, gesture::KeepHeld);
    }

    RecordingMemory memory;
    QWidget window;
    CDial dial{&window};
};

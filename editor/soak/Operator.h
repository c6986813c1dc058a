// SPDX-License-Identifier: MIT
#pragma once

#include "console/Dice.h"
#include "editor/soak/Hand.h"

class SoakWindows;

/// An operator who does anything to anything: drags, clicks, types, turns the wheel, opens menus and
/// answers boxes, with the events of a real mouse and keyboard. The same seed makes the same choices.
/// GUI thread.
class Operator
{
public:
    Operator(SoakWindows &windows, std::uint32_t seed) : m_windows(windows), m_dice(seed) {}

    /// One event or a few; a drag takes several calls. May run an event loop of its own.
    void act();

    /// What it was last at.
    const char *gesture() const { return m_gesture; }
    /// Gestures so far.
    qint64 operations() const { return m_operations; }

private:
    void begin();
    void click(QWidget &control);
    void drag(QWidget &control);
    void typeKeys(QWidget &control);
    void wheel(QWidget &control);
    void useCommand(QWidget &);
    bool answerPopup();
    bool answerBox();
    QWidget *anyWindow();
    QWidget *anyControl();
    QPointF placeIn(const QWidget &widget);

    SoakWindows &m_windows;
    Dice m_dice;
    Hand m_hand;
    int m_movesLeft = 0;
    QPointF m_way; ///< of a drag, per move
    const char *m_gesture = "";
    qint64 m_operations = 0;
};

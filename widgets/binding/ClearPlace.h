// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QPointer>
#include <QRect>
#include <QWidget>

/// Where a control stands in its window, and whether nothing but the control can be seen there: it lies
/// wholly inside all its ancestors, no sibling of it or of them lies above it, it has no visible
/// children, and no native window begins on the way. GUI thread.
class ClearPlace
{
public:
    /// Whether the control stands clear. Worked out anew only after something in the application was
    /// moved, resized, shown, hidden or restacked.
    bool holds(const QWidget &control)
    {
        if (m_layout != s_layout)
            look(control);
        return m_clear;
    }

    /// The control in its window's coordinates, if holds().
    QRect inWindow(const QWidget &control) const { return {m_origin, control.size()}; }

    /// Something may stand elsewhere now: no place holds until it is looked at again.
    static void layoutChanged() { ++s_layout; }

private:
    void look(const QWidget &control);

    static inline quint32 s_layout = 1;

    QPoint m_origin;
    quint32 m_layout = 0;
    bool m_clear = false;
};

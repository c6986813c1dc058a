// SPDX-License-Identifier: MIT
#pragma once

#include <QRegion>
#include <QVarLengthArray>

/// The part of a window that has to reach the screen, gathered from many small rectangles. Neighbours
/// become one rectangle, also with some pixels between them that have not changed: each rectangle is a
/// request to the window system, a few pixels more are nothing. Rectangles come in row order.
class DrawnRegion
{
public:
    /// A part that is to be drawn.
    void add(const QRect &rect)
    {
        m_pixels += area(rect);
        if (!m_rects.isEmpty() && joins(rect))
            m_rects.last() |= rect;
        else
            m_rects.append(rect);
    }

    /// What was added; a few pixels more where that is cheaper.
    QRegion region() const
    {
        QRect bounds;
        for (const QRect &rect : m_rects)
            bounds |= rect;
        if (m_rects.size() > MostRects || area(bounds) <= Waste * m_pixels)
            return bounds;
        QRegion region;
        for (const QRect &rect : m_rects)
            region += rect;
        return region;
    }

private:
    static constexpr qsizetype MostRects = 32;
    static constexpr qint64 Waste = 2;

    static qint64 area(const QRect &rect) { return qint64(rect.width()) * rect.height(); }
    bool joins(const QRect &rect) const
    {
        return area(m_rects.last() | rect) <= Waste * (area(m_rects.last()) + area(rect));
    }

    QVarLengthArray<QRect, MostRects> m_rects;
    qint64 m_pixels = 0;
};

// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/painting/DevicePixels.h"

#include <QRegion>
#include <QVarLengthArray>

#include <cmath>

/// Rectangles as a region of exactly them, for beginPaint(): the window system may clear all that is
/// named there, or take it for newer than what it has scrolled. They come in row order, do not
/// overlap, and those that do not fit between the others are left for another region.
class ExactRects
{
public:
    /// Of a window with that device pixel ratio.
    explicit ExactRects(qreal ratio) : m_joins(isWholeRatio(ratio)) {}

    /// False if the rectangle has to wait for the next region: a region consists of bands, each with
    /// rectangles of one height. Between pixels one rectangle of two that touch is rounded otherwise
    /// than both, so they do not become one.
    bool add(const QRect &rect)
    {
        if (m_rects.isEmpty() || rect.top() > m_rects.last().bottom()) {
            m_rects.append(rect);
            return true;
        }
        QRect &last = m_rects.last();
        if (rect.top() != last.top() || rect.height() != last.height()
            || rect.left() <= last.right() + (m_joins ? 0 : 1))
            return false;
        if (rect.left() == last.right() + 1)
            last.setRight(rect.right());
        else
            m_rects.append(rect);
        return true;
    }

    QRegion region() const
    {
        QRegion region;
        region.setRects(m_rects.constData(), static_cast<int>(m_rects.size()));
        return region;
    }

private:
    QVarLengthArray<QRect, 64> m_rects;
    bool m_joins;
};

/// The part of a window that has to reach the screen, gathered from many small rectangles, for flush().
/// Neighbours become one rectangle, also with some pixels between them that have not changed: each
/// rectangle is a request to the window system, a few pixels more are nothing. Rectangles come in row
/// order.
class DrawnRegion
{
public:
    /// Of a window with that device pixel ratio.
    explicit DrawnRegion(qreal ratio) : m_step(stepOf(ratio)) {}

    /// A part that was drawn.
    void add(const QRect &rect)
    {
        const QRect part = m_step == 1 ? rect : aligned(rect);
        m_pixels += area(part);
        if (!m_rects.isEmpty() && joins(part))
            m_rects.last() |= part;
        else
            m_rects.append(part);
    }

    /// What was added; a few pixels more where that is cheaper.
    QRegion region() const
    {
        QRect bounds;
        for (const QRect &rect : m_rects)
            bounds |= rect;
        if (m_step == 0 || m_rects.size() > MostRects || area(bounds) <= Waste * m_pixels)
            return bounds;
        QRegion region;
        for (const QRect &rect : m_rects)
            region += rect;
        return region;
    }

private:
    static constexpr qsizetype MostRects = 32;
    static constexpr qint64 Waste = 2;
    static constexpr int MostStep = 16;

    /// So many device-independent pixels are whole pixels of the device; 0: it takes too many.
    static int stepOf(qreal ratio)
    {
        constexpr qreal nearly = 1e-3;
        for (int step = 1; step <= MostStep; ++step) {
            if (std::abs(step * ratio - std::round(step * ratio)) < nearly)
                return step;
        }
        return 0;
    }

    static qint64 area(const QRect &rect) { return qint64(rect.width()) * rect.height(); }
    bool joins(const QRect &rect) const
    {
        return area(m_rects.last() | rect) <= Waste * (area(m_rects.last()) + area(rect));
    }
    /// Out to whole pixels of the device, whatever way the edges would be rounded.
    QRect aligned(const QRect &rect) const
    {
        const QRect wider = rect.adjusted(-1, -1, 1, 1);
        if (m_step == 0)
            return wider;
        const auto down = [this](int at) {
            return (at >= 0 ? at : at - m_step + 1) / m_step * m_step;
        };
        return {QPoint(down(wider.left()), down(wider.top())),
                QPoint(down(wider.right()) + m_step - 1, down(wider.bottom()) + m_step - 1)};
    }

    QVarLengthArray<QRect, MostRects> m_rects;
    qint64 m_pixels = 0;
    int m_step;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QRectF>

#include <cmath>

/// Whether a scale factor puts every device-independent pixel on whole pixels of the device.
inline bool isWholeRatio(qreal ratio)
{
    return ratio == std::floor(ratio);
}

/// Which pixels of a device the parts of a control take.
///
/// At scale factors such as 1.25 an edge may fall between two pixels. The control as a whole then takes
/// the pixels that the toolkit clips it to: QRectF::toRect() of its exact place. Inside it each edge
/// goes to the nearest pixel, and an edge of the control is that of its pixels. Parts that share an edge
/// therefore meet there, without a gap and without an overlap, and together they fill the control.
class DevicePixels
{
public:
    /// A control of `size` (device-independent) whose upper left corner is at `origin`, in pixels of a
    /// device with `ratio` pixels to one device-independent pixel.
    DevicePixels(const QPointF &origin, qreal ratio, const QSize &size)
        : m_origin(origin), m_ratio(ratio), m_size(size),
          m_all(nearest(QRectF(origin, QSizeF(size) * ratio)))
    {
    }

    /// The control, device-independent.
    const QSize &size() const { return m_size; }
    /// The pixels of the whole control.
    const QRect &all() const { return m_all; }

    /// Those of a part, device-independent and from the control's corner. It may reach beyond the
    /// control; at least one pixel wide and high.
    QRect of(const QRectF &part) const
    {
        const int left = column(part.left());
        const int top = row(part.top());
        return {QPoint(left, top), QSize(std::max(1, column(part.right()) - left),
                                         std::max(1, row(part.bottom()) - top))};
    }

private:
    int column(qreal x) const
    {
        return x == m_size.width() ? m_all.x() + m_all.width()
                                   : nearest(m_origin.x() + x * m_ratio);
    }
    int row(qreal y) const
    {
        return y == m_size.height() ? m_all.y() + m_all.height()
                                    : nearest(m_origin.y() + y * m_ratio);
    }
    /// A half is rounded upwards below 0, too: what is scrolled out of a window by whole pixels stays the
    /// same.
    static int nearest(qreal at) { return static_cast<int>(std::floor(at + 0.5)); }
    /// As QRectF::toRect() in the window.
    static QRect nearest(const QRectF &exact)
    {
        const int left = nearest(exact.x());
        const int top = nearest(exact.y());
        return {left, top, nearest(exact.width() + (exact.x() - left) / 2),
                nearest(exact.height() + (exact.y() - top) / 2)};
    }

    QPointF m_origin;
    qreal m_ratio;
    QSize m_size;
    QRect m_all;
};

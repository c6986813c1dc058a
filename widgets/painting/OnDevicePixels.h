// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/painting/DevicePixels.h"

#include <QPainter>

/// While this lives, a painter on a control draws in pixels of the device, counted from the control's
/// upper left corner. Where there are none to keep to, since the painter is turned or stretched, it goes
/// on in device-independent pixels. Does not outlive the painter.
class OnDevicePixels
{
public:
    OnDevicePixels(QPainter &painter, const QSize &control)
        : m_painter(painter), m_world(painter.worldTransform()), m_ratio(ratioOf(painter)),
          m_pixels(originOf(painter), m_ratio, control)
    {
        const QTransform &toDevice = painter.deviceTransform();
        if (!isUpright(toDevice))
            return;
        const QPoint corner = m_pixels.all().topLeft();
        m_moved = m_ratio != 1 || toDevice.dx() != corner.x() || toDevice.dy() != corner.y();
        if (m_moved)
            painter.setWorldTransform(QTransform::fromTranslate(corner.x(), corner.y())
                                      * toDevice.inverted() * m_world);
    }
    ~OnDevicePixels()
    {
        if (m_moved)
            m_painter.setWorldTransform(m_world);
    }
    Q_DISABLE_COPY_MOVE(OnDevicePixels)

    /// Whether there are pixels to keep to.
    static bool isPossible(const QPainter &painter) { return isUpright(painter.deviceTransform()); }

    /// Pixels of the device to one device-independent pixel.
    qreal ratio() const { return m_ratio; }
    /// The pixels of the whole control.
    QRect all() const { return of(QRectF(QPointF(0, 0), m_pixels.size())); }
    /// The pixels of a part of the control.
    QRect of(const QRectF &part) const
    {
        return m_pixels.of(part).translated(-m_pixels.all().topLeft());
    }
    /// A width in whole pixels: the same wherever it is used, and at least one.
    int width(int deviceIndependent) const
    {
        return std::max(1, qRound(deviceIndependent * m_ratio));
    }

private:
    static bool isUpright(const QTransform &toDevice)
    {
        return toDevice.type() <= QTransform::TxScale && toDevice.m11() > 0
               && toDevice.m11() == toDevice.m22();
    }
    static qreal ratioOf(const QPainter &painter)
    {
        return isPossible(painter) ? painter.deviceTransform().m11() : 1;
    }
    static QPointF originOf(const QPainter &painter)
    {
        const QTransform &toDevice = painter.deviceTransform();
        return isUpright(toDevice) ? QPointF(toDevice.dx(), toDevice.dy()) : QPointF();
    }

    QPainter &m_painter;
    QTransform m_world;
    qreal m_ratio;
    DevicePixels m_pixels;
    bool m_moved = false;
};

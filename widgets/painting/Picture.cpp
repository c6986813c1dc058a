// SPDX-License-Identifier: MIT
#include "widgets/painting/Picture.h"

#include "widgets/painting/DevicePixels.h"
#include "widgets/painting/ScaledCells.h"

#include <QPainter>

namespace {

/// Whether device-independent pixels become squares that stand upright.
bool isUpright(const QTransform &toDevice)
{
    return toDevice.type() <= QTransform::TxScale && toDevice.m11() > 0
           && toDevice.m11() == toDevice.m22();
}

} // namespace

void Picture::add(const QPixmap &picture, const QRect &cell, const QPointF &corner,
                  const QRectF &shown)
{
    if (!cell.isEmpty())
        m_blits.append(
            {&picture, cell, {corner, QSizeF(cell.size()) / picture.devicePixelRatio()}, shown});
}

void Picture::draw(QPainter &painter) const
{
    if (m_background.style() != Qt::NoBrush)
        painter.fillRect(QRect(QPoint(0, 0), m_size), m_background);
    if (m_blits.isEmpty())
        return;
    const QTransform toDevice = painter.deviceTransform();
    if (!isUpright(toDevice)) {
        drawTransformed(painter);
        return;
    }
    const QPointF origin(toDevice.dx(), toDevice.dy());
    const DevicePixels pixels(origin, toDevice.m11(), m_size);
    if (toDevice.m11() == 1) {
        drawOnPixels(painter, pixels, -origin);
        return;
    }
    const QTransform world = painter.worldTransform();
    painter.setWorldTransform(toDevice.inverted() * world);
    drawOnPixels(painter, pixels, {});
    painter.setWorldTransform(world);
}

/// The painter's pixels are those of the device, `shift` away.
void Picture::drawOnPixels(QPainter &painter, const DevicePixels &pixels,
                           const QPointF &shift) const
{
    for (const Blit &blit : m_blits) {
        const QRect whole = pixels.of(blit.place);
        const QRect seen = whole & pixels.of(blit.shown);
        if (seen.isEmpty())
            continue;
        const QRectF target = QRectF(seen).translated(shift);
        const QRectF source(seen.translated(-whole.topLeft()));
        if (whole.size() == blit.cell.size())
            painter.drawPixmap(target, *blit.picture, source.translated(blit.cell.topLeft()));
        else
            painter.drawImage(target, scaledcells::find(*blit.picture, blit.cell, whole.size()),
                              source);
    }
}

/// Turned or stretched, as in a graphics scene: there are no pixels to keep to.
void Picture::drawTransformed(QPainter &painter) const
{
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (const Blit &blit : m_blits) {
        painter.setClipRect(blit.shown, Qt::IntersectClip);
        painter.drawPixmap(blit.place, *blit.picture, QRectF(blit.cell));
    }
    painter.restore();
}

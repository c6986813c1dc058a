// SPDX-License-Identifier: MIT
#include "widgets/painting/Ground.h"

#include <QBackingStore>
#include <QPaintEngine>
#include <QPainter>
#include <QPaintEvent>
#include <QWidget>

namespace {

/// The pixels that the toolkit clips a part of a window to.
QRect inPixels(const QRect &part, qreal ratio)
{
    return QRectF(QPointF(part.topLeft()) * ratio, QSizeF(part.size()) * ratio).toRect();
}

} // namespace

const QImage *Ground::storeBehind(const QWidget &control, const QPainter &painter)
{
    const QBackingStore *store = control.window()->backingStore();
    QPaintDevice *device = painter.paintEngine() ? painter.paintEngine()->paintDevice() : nullptr;
    const bool isStore = store && device && device->devType() == QInternal::Image
                         && device == const_cast<QBackingStore *>(store)->paintDevice();
    return isStore ? static_cast<const QImage *>(device) : nullptr;
}

void Ground::take(const QWidget &control, const QImage &store, const QPaintEvent &event)
{
    const QPoint corner = control.mapTo(control.window(), QPoint(0, 0));
    const qreal ratio = store.devicePixelRatio();
    const QRect pixels = inPixels(control.rect().translated(corner), ratio);
    if (!store.rect().contains(pixels)) {
        forget();
    } else if (event.region().rectCount() == 1 && event.rect().contains(control.rect())) {
        m_picture = std::make_unique<QImage>(store.copy(pixels));
        m_picture->setDevicePixelRatio(1);
    } else if (m_picture && m_picture->size() == pixels.size()) {
        // Outside the event's region the store has the control's own picture.
        QPainter part(m_picture.get());
        part.setCompositionMode(QPainter::CompositionMode_Source);
        for (const QRect &each : event.region()) {
            const QRect painted = inPixels(each.translated(corner), ratio) & pixels;
            part.drawImage(QRectF(painted.translated(-pixels.topLeft())), store, QRectF(painted));
        }
    } else {
        forget();
    }
}

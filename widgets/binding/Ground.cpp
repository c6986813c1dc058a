// SPDX-License-Identifier: MIT
#include "widgets/binding/Ground.h"

#include <QBackingStore>
#include <QPaintEngine>
#include <QPainter>
#include <QPaintEvent>
#include <QWidget>

#include <optional>

namespace {

/// The rectangle in pixels of the store; nothing where it ends between pixels.
std::optional<QRect> inPixels(const QRect &rect, qreal ratio)
{
    const QRectF exact(rect.x() * ratio, rect.y() * ratio, rect.width() * ratio,
                       rect.height() * ratio);
    const QRect pixels = exact.toRect();
    return QRectF(pixels) == exact ? std::optional(pixels) : std::nullopt;
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
    const QRect place(control.mapTo(control.window(), QPoint(0, 0)), control.size());
    const auto pixels = inPixels(place, store.devicePixelRatio());
    if (!pixels || !store.rect().contains(*pixels)) {
        forget();
    } else if (event.region().rectCount() == 1 && event.rect().contains(control.rect())) {
        m_picture = store.copy(*pixels);
    } else if (isKnown()) {
        // Outside the event's region the store has the control's own picture.
        QPainter part(&m_picture);
        part.setClipRegion(event.region());
        part.setCompositionMode(QPainter::CompositionMode_Source);
        part.drawImage(QPointF(0, 0), store, *pixels);
    }
}

void Ground::draw(QPainter &painter) const
{
    painter.drawImage(QPointF(0, 0), m_picture);
}

// SPDX-License-Identifier: MIT
#include "widgets/painting/ErasePixmap.h"

#include <QPainter>
#include <QPixmapCache>
#include <QWidget>

namespace {

QSize pixelSize(const QWidget &widget)
{
    return (QSizeF(widget.size()) * widget.devicePixelRatio()).toSize();
}

} // namespace

const QPixmap &ErasePixmap::pixmap(const QWidget &widget, const QString &key, const Paint &paint)
{
    const bool holds = m_pixmap && (m_adopted || m_pixmap->size() == pixelSize(widget));
    if (!holds)
        m_pixmap = key.isEmpty() ? render(widget, paint) : shared(widget, key, paint);
    return *m_pixmap;
}

QPixmap ErasePixmap::shared(const QWidget &widget, const QString &key, const Paint &paint)
{
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    pixmap = render(widget, paint);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

QPixmap ErasePixmap::render(const QWidget &widget, const Paint &paint)
{
    QPixmap pixmap(pixelSize(widget));
    pixmap.setDevicePixelRatio(widget.devicePixelRatio());
    if (pixmap.isNull())
        return pixmap;
    const bool opaque = widget.testAttribute(Qt::WA_OpaquePaintEvent);
    pixmap.fill(opaque ? widget.palette().color(widget.backgroundRole()) : Qt::transparent);
    QPainter painter(&pixmap);
    painter.setFont(widget.font());
    painter.setPen(widget.palette().color(widget.foregroundRole()));
    if (opaque)
        painter.fillRect(widget.rect(), widget.palette().brush(widget.backgroundRole()));
    paint(painter);
    return pixmap;
}

// SPDX-License-Identifier: MIT
#include "widgets/painting/Picture.h"

#include "widgets/painting/OnDevicePixels.h"
#include "widgets/painting/ScaledCells.h"

#include <QPainter>

void Picture::add(const QPixmap &picture, const QRect &cell, const QPointF &corner,
                  const QRectF &shown)
{
    if (!cell.isEmpty())
        m_blits.append(Blit::of(picture, cell, corner, shown));
}

void Picture::draw(QPainter &painter) const
{
    if (m_background.style() != Qt::NoBrush)
        painter.fillRect(QRect(QPoint(0, 0), m_size), m_background);
    if (m_blits.isEmpty())
        return;
    if (!OnDevicePixels::isPossible(painter)) {
        drawTransformed(painter);
        return;
    }
    const OnDevicePixels pixels(painter, m_size);
    for (const Blit &blit : m_blits)
        drawBlit(painter, pixels, blit);
}

void drawBlit(QPainter &painter, const OnDevicePixels &pixels, const Blit &blit)
{
    const QRect whole = pixels.of(blit.place);
    const QRect seen = whole & pixels.of(blit.shown);
    if (seen.isEmpty())
        return;
    const QPoint from = seen.topLeft() - whole.topLeft();
    if (whole.size() == blit.cell.size())
        painter.drawPixmap(QRectF(seen), *blit.picture,
                           QRectF(QRect(blit.cell.topLeft() + from, seen.size())));
    else
        painter.drawImage(QRectF(seen), scaledcells::find(*blit.picture, blit.cell, whole.size()),
                          QRectF(QRect(from, seen.size())));
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

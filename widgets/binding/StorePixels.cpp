// SPDX-License-Identifier: MIT
#include "widgets/binding/StorePixels.h"

#include "interfaces/utilities/NS_Utilities.h"

#include <QImage>
#include <QPixmap>
#include <QtMath>

#include <cstring>

namespace {

constexpr int BytesPerPixel = 4;

/// In both, an opaque pixel is the bytes that it is in RGB32.
bool takesOpaquePixels(QImage::Format format)
{
    return format == QImage::Format_RGB32 || format == QImage::Format_ARGB32_Premultiplied;
}

} // namespace

StorePixels::StorePixels(QPaintDevice &device)
{
    if (device.devType() != QInternal::Image)
        return;
    auto &image = static_cast<QImage &>(device);
    const qreal ratio = image.devicePixelRatio();
    if (!takesOpaquePixels(image.format()) || ratio != qFloor(ratio))
        return;
    m_bits = image.bits();
    m_bytesPerLine = image.bytesPerLine();
    m_width = image.width();
    m_height = image.height();
    m_ratio = qFloor(ratio);
}

bool StorePixels::copy(const QPoint &at, const QPixmap &picture, const QRect &part)
{
    if (!m_bits || picture.devicePixelRatio() != m_ratio)
        return false;
    const QImage image = picture.toImage(); // shares the pixels
    const QPoint place = (m_origin + at) * m_ratio;
    if (image.format() != QImage::Format_RGB32 || !image.rect().contains(part)
        || !QRect(0, 0, m_width, m_height).contains({place, part.size()}))
        return false;
    const qsizetype bytes = qsizetype(part.width()) * BytesPerPixel;
    const qsizetype step = image.bytesPerLine();
    const uchar *from = image.constBits() + part.y() * step + qsizetype(part.x()) * BytesPerPixel;
    uchar *to = m_bits + place.y() * m_bytesPerLine + qsizetype(place.x()) * BytesPerPixel;
    for (int line = 0; line < part.height(); ++line, from += step, to += m_bytesPerLine)
        std::memcpy(to, from, static_cast<size_t>(bytes));
    return true;
}

bool StorePixels::copyCell(const QPoint &cell, const QPixmap &picture, const QSize &grid)
{
    return copy({0, 0}, picture, NS_Utilities::partialPixmapRect(cell, picture, grid));
}

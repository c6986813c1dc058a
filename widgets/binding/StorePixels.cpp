// SPDX-License-Identifier: MIT
#include "widgets/binding/StorePixels.h"

#include "interfaces/utilities/NS_Utilities.h"

#include <QPixmap>
#include <QtMath>

#include <algorithm>
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

/// Controls of a page have few pictures. Counting their users for each cell would wait each time until
/// the cell before has reached the memory.
const StorePixels::Source &StorePixels::source(const QPixmap &picture)
{
    const qint64 key = picture.cacheKey();
    const auto found = std::find_if(m_sources.cbegin(), m_sources.cend(),
                                    [key](const Source &each) { return each.key == key; });
    if (found != m_sources.cend())
        return *found;
    if (m_sources.size() == MostSources)
        m_sources.clear();
    const QImage image = picture.toImage();
    return m_sources.emplace_back(Source{key, image, image.constBits()});
}

bool StorePixels::copy(const QPoint &at, const QPixmap &picture, const QRect &part)
{
    if (!m_bits || picture.devicePixelRatio() != m_ratio)
        return false;
    const Source &from = source(picture);
    const QPoint place = (m_origin + at) * m_ratio;
    if (from.image.format() != QImage::Format_RGB32 || !from.image.rect().contains(part)
        || !QRect(0, 0, m_width, m_height).contains({place, part.size()}))
        return false;
    const qsizetype bytes = qsizetype(part.width()) * BytesPerPixel;
    const qsizetype step = from.image.bytesPerLine();
    const uchar *line = from.bits + part.y() * step + qsizetype(part.x()) * BytesPerPixel;
    uchar *to = m_bits + place.y() * m_bytesPerLine + qsizetype(place.x()) * BytesPerPixel;
    for (int count = part.height(); count > 0; --count, line += step, to += m_bytesPerLine)
        std::memcpy(to, line, static_cast<size_t>(bytes));
    return true;
}

bool StorePixels::copyCell(const QPoint &cell, const QPixmap &picture, const QSize &grid)
{
    return copy({0, 0}, picture, NS_Utilities::partialPixmapRect(cell, picture, grid));
}

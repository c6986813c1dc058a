// SPDX-License-Identifier: MIT
#include "widgets/painting/StorePixels.h"

#include "widgets/painting/DevicePixels.h"
#include "widgets/painting/Picture.h"
#include "widgets/painting/ScaledCells.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int BytesPerPixel = 4;
constexpr int PixelBits = 8 * BytesPerPixel;

} // namespace

StorePixels::StorePixels(QPaintDevice &device)
{
    if (device.devType() != QInternal::Image)
        return;
    auto &image = static_cast<QImage &>(device);
    m_bits = image.bits();
    m_bytesPerLine = image.bytesPerLine();
    m_image = QImage(m_bits, image.width(), image.height(), m_bytesPerLine, image.format());
    m_ratio = image.devicePixelRatio();
    m_takesLines = image.format() == QImage::Format_RGB32
                   || image.format() == QImage::Format_ARGB32_Premultiplied;
}

void StorePixels::draw(const Picture &picture, const QPoint &corner, const QImage *ground)
{
    const DevicePixels pixels(QPointF(corner) * m_ratio, m_ratio, picture.size());
    const QRect all = pixels.all() & m_image.rect();
    if (ground)
        drawGround(all, *ground, all.topLeft() - pixels.all().topLeft());
    if (picture.background().style() != Qt::NoBrush)
        painter().fillRect(all, picture.background());
    for (const Blit &each : picture.blits()) {
        const QRect whole = pixels.of(each.place);
        const QRect seen = whole & pixels.of(each.shown) & all;
        if (seen.isEmpty())
            continue;
        const QPoint from = seen.topLeft() - whole.topLeft();
        if (whole.size() == each.cell.size())
            blit(seen, source(*each.picture), each.cell.topLeft() + from);
        else
            blit(seen, scaledcells::find(*each.picture, each.cell, whole.size()), from);
    }
}

/// Controls of a page have few pictures. Counting their users for each cell would wait each time until
/// the cell before has reached the memory.
const QImage &StorePixels::source(const QPixmap &picture)
{
    const qint64 key = picture.cacheKey();
    const auto found = std::find_if(m_sources.cbegin(), m_sources.cend(),
                                    [key](const Source &each) { return each.key == key; });
    if (found != m_sources.cend())
        return found->image;
    if (m_sources.size() == MostSources)
        m_sources.clear();
    return m_sources.emplace_back(Source{key, picture.toImage()}).image;
}

void StorePixels::blit(const QRect &target, const QImage &image, const QPoint &from)
{
    if (m_takesLines && image.format() == QImage::Format_RGB32)
        copyLines(target, image, from);
    else
        painter().drawImage(QRectF(target), image, QRectF(QRect(from, target.size())));
}

/// Replaces what is there, transparent pixels included.
void StorePixels::drawGround(const QRect &target, const QImage &ground, const QPoint &from)
{
    if (ground.depth() == PixelBits && ground.format() == m_image.format()) {
        copyLines(target, ground, from);
        return;
    }
    painter().setCompositionMode(QPainter::CompositionMode_Source);
    painter().drawImage(QRectF(target), ground, QRectF(QRect(from, target.size())));
    painter().setCompositionMode(QPainter::CompositionMode_SourceOver);
}

/// The target lies in the store.
void StorePixels::copyLines(QRect target, const QImage &image, QPoint from)
{
    const QRect source = QRect(from, target.size()) & image.rect();
    target = QRect(target.topLeft() + source.topLeft() - from, source.size());
    const auto bytes = static_cast<size_t>(std::max(0, target.width())) * BytesPerPixel;
    const qsizetype step = image.bytesPerLine();
    const uchar *line = image.constBits() + source.y() * step + source.x() * BytesPerPixel;
    uchar *to = m_bits + target.y() * m_bytesPerLine + target.x() * BytesPerPixel;
    for (int count = target.height(); count > 0; --count, line += step, to += m_bytesPerLine)
        std::memcpy(to, line, bytes);
}

QPainter &StorePixels::painter()
{
    if (!m_painter)
        m_painter.emplace(&m_image);
    return *m_painter;
}

// SPDX-License-Identifier: MIT
#include "widgets/painting/ScaledCells.h"

#include <QCache>
#include <QPixmap>

namespace {

struct Key
{
    qint64 picture; ///< cache key of the pixmap, which changes with its pixels
    QRect cell;
    QSize size;

    friend bool operator==(const Key &, const Key &) = default;
    friend size_t qHash(const Key &key, size_t seed)
    {
        return qHashMulti(seed, key.picture, key.cell.x(), key.cell.y(), key.cell.width(),
                          key.cell.height(), key.size.width(), key.size.height());
    }
};

QCache<Key, QImage> &cache()
{
    static QCache<Key, QImage> cells(scaledcells::MostBytes);
    return cells;
}

QImage scaled(const QPixmap &picture, const QRect &cell, const QSize &size)
{
    QImage image = picture.toImage().copy(cell);
    image.setDevicePixelRatio(1);
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                            : QImage::Format_RGB32);
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

const QImage &scaledcells::find(const QPixmap &picture, const QRect &cell, const QSize &size)
{
    const Key key{picture.cacheKey(), cell, size};
    if (const QImage *known = cache().object(key))
        return *known;
    auto *made = new QImage(scaled(picture, cell, size));
    const qsizetype cost = made->sizeInBytes();
    static QImage tooLarge;
    if (cost > MostBytes) {
        tooLarge = *made;
        delete made;
        return tooLarge;
    }
    cache().insert(key, made, cost);
    return *made;
}

qsizetype scaledcells::bytes()
{
    return cache().totalCost();
}

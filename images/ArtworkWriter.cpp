// SPDX-License-Identifier: MIT
#include "images/ArtworkWriter.h"

#include "images/Catalogue.h"

#include <QDir>
#include <QPainter>

namespace artwork {

QString fileName(const Artwork &artwork, int density)
{
    const QString suffix = density > 1 ? QStringLiteral("@%1x").arg(density) : QString();
    return artwork.name + suffix + QStringLiteral(".png");
}

QImage render(const Artwork &artwork, int density)
{
    QImage image(artwork.size * density, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(density);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    artwork.paint(painter);
    return image;
}

bool write(const Artwork &artwork, int density, const QString &folder)
{
    // The resource compiler compresses much better than PNG does: it sees across the cells of a
    // strip how alike they are. Icons are installed as files, too.
    constexpr int uncompressed = 100;
    constexpr int compressed = 0;
    const bool icon = artwork.name.startsWith(QLatin1String("icon-"));
    return render(artwork, density)
        .save(QDir(folder).filePath(fileName(artwork, density)), "PNG",
              icon ? compressed : uncompressed);
}

} // namespace artwork

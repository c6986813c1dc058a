// SPDX-License-Identifier: MIT
#include "interfaces/utilities/NS_Utilities.h"

#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QSet>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <cmath>

namespace {

// The application's thread. It is noted when the application is constructed (or when this library is
// loaded into a running one) and then kept, so that asking costs two loads and touches no object
// that may be in destruction.
std::atomic<const QThread *> s_mainThread{nullptr};

void noteMainThread()
{
    s_mainThread.store(QCoreApplication::instance()->thread(), std::memory_order_relaxed);
}
Q_COREAPP_STARTUP_FUNCTION(noteMainThread)

constexpr int MostPixels = 3; // the densest version of a picture that is looked for: "@3x"

/// "dir/name.png" becomes "dir/name@2x.png".
QString versionName(const QString &name, int factor)
{
    const qsizetype slash = name.lastIndexOf(u'/');
    const qsizetype dot = name.lastIndexOf(u'.');
    const qsizetype stemEnd = dot > slash ? dot : name.size();
    return QString(name).insert(stemEnd, QStringLiteral("@%1x").arg(factor));
}

/// How many picture pixels a file that pixmapFile() chose for `name` has per pixel of `name`.
int versionFactor(const QString &file, const QString &name)
{
    for (int factor = MostPixels; factor > 1; --factor) {
        if (file == versionName(name, factor))
            return factor;
    }
    return 1;
}

void warnOnce(const QString &name)
{
    static QSet<QString> warned;
    if (warned.contains(name))
        return;
    warned.insert(name);
    qWarning("No picture \"%s\"", qUtf8Printable(name));
}

/// Luminance by the Rec. 709 weights in 1/256, half way to middle grey. Premultiplied components stay
/// premultiplied: both terms scale with alpha.
QRgb greyed(QRgb pixel)
{
    const int alpha = qAlpha(pixel);
    const int luminance = (54 * qRed(pixel) + 183 * qGreen(pixel) + 19 * qBlue(pixel)) >> 8;
    const int grey = (luminance + ((alpha + 1) >> 1)) >> 1;
    return qRgba(grey, grey, grey, alpha);
}

/// The target of a picture part of `size` at the origin, moved to whole pixels of the device. Edges
/// are rounded, not widened: parts that share an edge meet there without gap and without overlap.
QRectF alignedTarget(const QTransform &toDevice, const QSizeF &size, QSize *deviceSize)
{
    const QRectF ideal = toDevice.mapRect(QRectF(QPointF(0, 0), size));
    const int left = qRound(ideal.left());
    const int top = qRound(ideal.top());
    const QRect device(QPoint(left, top), QSize(std::max(1, qRound(ideal.right()) - left),
                                                std::max(1, qRound(ideal.bottom()) - top)));
    *deviceSize = device.size();
    return toDevice.inverted().mapRect(QRectF(device));
}

void drawPart(QPainter &painter, const QPixmap &picture, const QRect &source)
{
    const qreal ratio = picture.devicePixelRatio();
    const QTransform &toDevice = painter.deviceTransform();
    if (ratio == 1 && toDevice.type() <= QTransform::TxTranslate) {
        painter.drawPixmap(QPoint(0, 0), picture, source);
        return;
    }
    const QSizeF size = QSizeF(source.size()) / ratio;
    QRectF target(QPointF(0, 0), size);
    QSize deviceSize;
    if (toDevice.type() <= QTransform::TxScale && toDevice.isInvertible())
        target = alignedTarget(toDevice, size, &deviceSize);
    const bool wasSmooth = painter.testRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, deviceSize != source.size());
    painter.drawPixmap(target, picture, QRectF(source));
    painter.setRenderHint(QPainter::SmoothPixmapTransform, wasSmooth);
}

} // namespace

namespace NS_Utilities {

bool mainThreadRunning()
{
    return s_mainThread.load(std::memory_order_relaxed) == QThread::currentThread();
}

QString pixmapFile(const QString &name, qreal scale)
{
    const int wanted = std::min(MostPixels, static_cast<int>(std::ceil(scale)));
    for (int factor = wanted; factor > 1; --factor) {
        const QString version = versionName(name, factor);
        if (QFile::exists(version))
            return version;
    }
    return name;
}

QPixmap loadPixmap(const QString &name)
{
    const QString file = pixmapFile(name, qGuiApp->devicePixelRatio());
    QPixmap picture(file);
    if (picture.isNull())
        warnOnce(name);
    else
        picture.setDevicePixelRatio(versionFactor(file, name));
    return picture;
}

Qt::KeyboardModifiers modifierState()
{
    // Those of the event that is being handled: what the operator held when acting, and no round
    // trip to the window system.
    return QGuiApplication::keyboardModifiers();
}

QImage applyGreyTransformation(const QPixmap &picture)
{
    QImage image = picture.toImage();
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                            : QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        std::transform(line, line + image.width(), line, greyed);
    }
    return image;
}

QRect partialPixmapRect(const QPoint &cell, const QPixmap &picture, const QSize &grid)
{
    if (picture.isNull() || grid.width() < 1 || grid.height() < 1)
        return {};
    const int column = std::max(0, cell.x());
    const QSize size(picture.width() / grid.width(), picture.height() / grid.height());
    if (size.isEmpty() || column >= grid.width() || cell.y() < 0 || cell.y() >= grid.height())
        return {};
    return {QPoint(column * size.width(), cell.y() * size.height()), size};
}

void drawPartialPixmap(QPainter &painter, const QPoint &cell, const QPixmap &picture,
                       const QSize &grid, bool grey)
{
    const QRect source = partialPixmapRect(cell, picture, grid);
    if (source.isEmpty())
        return;
    if (!grey) {
        drawPart(painter, picture, source);
        return;
    }
    const QPixmap part = QPixmap::fromImage(applyGreyTransformation(picture.copy(source)));
    drawPart(painter, part, part.rect());
}

} // namespace NS_Utilities

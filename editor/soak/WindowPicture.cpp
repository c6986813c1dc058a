// SPDX-License-Identifier: MIT
#include "editor/soak/WindowPicture.h"

#include "editor/soak/ScreenCamera.h"
#include "interfaces/TMemProxy.h"

#include <QApplication>
#include <QBackingStore>
#include <QEvent>
#include <QPainter>
#include <QWidget>

#include <cmath>
#include <cstring>

windowpicture::Where windowpicture::best()
{
    return screencamera::isThere() ? Where::Screen : Where::Store;
}

QImage windowpicture::present(QWidget &window, Where where)
{
    QEvent paintNow(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(&window, &paintNow);
    if (where == Where::Screen)
        return screencamera::picture(window);
    QBackingStore *store = window.backingStore();
    QPaintDevice *device = store ? store->paintDevice() : nullptr;
    if (!device || device->devType() != QInternal::Image)
        return {};
    return static_cast<QImage *>(device)->copy();
}

QImage windowpicture::repainted(QWidget &window, Where where)
{
    // A paint of the window alone leaves out the opaque widgets in it.
    const QList<QWidget *> all = window.findChildren<QWidget *>();
    for (QWidget *each : all)
        each->update();
    window.update();
    return present(window, where);
}

namespace {

/// The pixels of a line that differ, from the first to the last of them.
QRect differingInLine(const QImage &one, const QImage &other, int y)
{
    const auto size = static_cast<size_t>(one.depth() / 8);
    const uchar *left = one.constScanLine(y);
    const uchar *right = other.constScanLine(y);
    const auto same = [=](int x) {
        const size_t at = static_cast<size_t>(x) * size;
        return std::memcmp(left + at, right + at, size) == 0;
    };
    if (std::memcmp(left, right, static_cast<size_t>(one.width()) * size) == 0)
        return {};
    int from = 0;
    while (same(from))
        ++from;
    int to = one.width() - 1;
    while (same(to))
        --to;
    return {QPoint(from, y), QPoint(to, y)};
}

} // namespace

QRegion windowpicture::differing(const QImage &one, const QImage &other)
{
    if (one.size() != other.size() || one.format() != other.format())
        return one.rect() | other.rect();
    QRegion found;
    for (int y = 0; y < one.height(); ++y)
        found += differingInLine(one, other, y);
    return found;
}

namespace {

bool isBetweenWholeNumbers(qreal ratio)
{
    return ratio != std::floor(ratio);
}

/// The pixels of what shows of controls, but of those that begin outside.
QRegion pixelsOfControls(const QWidget &window)
{
    const qreal ratio = window.devicePixelRatio();
    QRegion found;
    for (const QWidget *each : window.findChildren<QWidget *>()) {
        const QPoint corner = each->mapTo(&window, QPoint(0, 0));
        if (!each->isVisible() || corner.x() < 0 || corner.y() < 0
            || !dynamic_cast<const TMemProxyBasic *>(each))
            continue;
        for (const QRect &part : each->visibleRegion().translated(corner))
            found += QRectF(QPointF(part.topLeft()) * ratio, QSizeF(part.size()) * ratio).toRect();
    }
    return found;
}

QImage cutOut(const QImage &picture, const QRegion &part)
{
    QImage found(picture.size(), picture.format());
    found.fill(Qt::black);
    QPainter painter(&found);
    painter.setClipRegion(part);
    painter.drawImage(found.rect(), picture);
    return found;
}

} // namespace

QRegion windowpicture::differing(QWidget &window, const QImage &one, const QImage &other)
{
    if (one.size() != other.size() || !isBetweenWholeNumbers(window.devicePixelRatio()))
        return differing(one, other);
    const QRegion part = pixelsOfControls(window);
    return differing(cutOut(one, part), cutOut(other, part));
}

std::map<QWidget *, QRect> windowpicture::widgetsAt(QWidget &window, const QRegion &pixels)
{
    std::map<QWidget *, QRect> found;
    for (const QRect &part : pixels) {
        const QPointF place = QRectF(part).center() / window.devicePixelRatio();
        QWidget *widget = window.childAt(place.toPoint());
        found[widget ? widget : &window] |= part;
    }
    return found;
}

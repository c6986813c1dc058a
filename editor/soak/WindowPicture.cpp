// SPDX-License-Identifier: MIT
#include "editor/soak/WindowPicture.h"

#include <QApplication>
#include <QBackingStore>
#include <QEvent>
#include <QWidget>

#include <cstring>

QImage windowpicture::present(QWidget &window)
{
    QEvent paintNow(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(&window, &paintNow);
    QBackingStore *store = window.backingStore();
    QPaintDevice *device = store ? store->paintDevice() : nullptr;
    if (!device || device->devType() != QInternal::Image)
        return {};
    return static_cast<QImage *>(device)->copy();
}

QImage windowpicture::repainted(QWidget &window)
{
    // A paint of the window alone leaves out the opaque widgets in it.
    const QList<QWidget *> all = window.findChildren<QWidget *>();
    for (QWidget *each : all)
        each->update();
    window.update();
    return present(window);
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

QWidget *windowpicture::widgetAt(QWidget &window, const QImage &picture, const QRect &pixels)
{
    const QPointF place = QRectF(pixels).center() / picture.devicePixelRatio();
    QWidget *found = window.childAt(place.toPoint());
    return found ? found : &window;
}

// SPDX-License-Identifier: MIT
// What the meter shows and when it is painted.
#include "interfaces/utilities/NS_Utilities.h"
#include "widgets/binding/StorePixels.h"
#include "widgets/meters/CMeterPrivate.h"
#include "widgets/meters/MeterWatch.h"

#include <QPainter>

#include <algorithm>

namespace {

/// Whether the picture's pixels become the device's, one for one.
bool isPixelForPixel(const QPixmap &picture, const QTransform &toDevice)
{
    const qreal ratio = picture.devicePixelRatio();
    return toDevice.type() <= QTransform::TxScale && toDevice.m11() == ratio
           && toDevice.m22() == ratio && ratio == qFloor(ratio);
}

/// A part of the widget in the pixels of a picture that covers it.
QRectF inPixels(const QRect &part, const QPixmap &picture)
{
    const qreal ratio = picture.devicePixelRatio();
    return {part.topLeft() * ratio, QSizeF(part.size()) * ratio};
}

void blit(QPainter &painter, const QPixmap &picture, const QRect &part)
{
    if (picture.devicePixelRatio() == 1)
        painter.drawPixmap(part.topLeft(), picture, part);
    else
        painter.drawPixmap(QRectF(part), picture, inPixels(part, picture));
}

void drawWhole(QPainter &painter, const QPixmap &picture)
{
    NS_Utilities::drawPartialPixmap(painter, {0, 0}, picture, {1, 1}, false);
}

} // namespace

void CMeter::repaintScreenPrimitive(QPainter &painter)
{
    if (d->lit.isNull() || value() < 0)
        return;
    const MeterBands bands = d->bands(*this);
    const QTransform &toDevice = painter.deviceTransform();
    const bool pixelForPixel = d->hidesAll && isPixelForPixel(d->lit, toDevice)
                               && (d->unlit.isNull() || isPixelForPixel(d->unlit, toDevice));
    if (!pixelForPixel) {
        drawLayers(painter, bands);
        return;
    }
    for (const MeterPicture::Blit &each : d->picture.blits(size(), bands)) {
        if (each.lit || !d->unlit.isNull())
            blit(painter, each.lit ? d->lit : d->unlit, each.part);
        else
            painter.fillRect(each.part, palette().brush(backgroundRole()));
    }
}

/// Pictures that let something through, or that are scaled: the unlit one whole, then what is lit.
void CMeter::drawLayers(QPainter &painter, const MeterBands &bands)
{
    if (d->unlit.isNull())
        painter.fillRect(rect(), palette().brush(backgroundRole()));
    else
        drawWhole(painter, d->unlit);
    for (const MeterBands::Stretch &lit : {bands.bar, bands.mark}) {
        if (lit.isEmpty())
            continue;
        painter.save();
        painter.setClipRect(d->picture.part(size(), lit), Qt::IntersectClip);
        drawWhole(painter, d->lit);
        painter.restore();
    }
}

void CMeter::updateErasePixmap(QPixmap *pixmap)
{
    d->erase.replace(pixmap);
}

QPixmap CMeter::erasePixmap()
{
    return d->erase.pixmap(*this);
}

/// The one place where a reading's picture asks for a paint.
void CMeter::pictureChanged()
{
    const MeterBands bands = d->bands(*this);
    if (!d->pictureStale && bands == d->shownBands)
        return;
    d->pictureStale = false;
    d->shownBands = bands;
    updateErasePixmap(nullptr);
    d->batched.changed();
}

void CMeter::refreshPicture()
{
    d->pictureStale = true;
    d->inStore.reset();
    setOpacity();
    pictureChanged();
}

void CMeter::setOpacity()
{
    const auto hides = [this](const QPixmap &picture) {
        return metering::hides(picture, picture.deviceIndependentSize(), *this);
    };
    const bool hidesUnlit = d->unlit.isNull() || hides(d->unlit);
    d->hidesAll = hidesUnlit && hides(d->lit);
    setAttribute(Qt::WA_OpaquePaintEvent, hidesUnlit && !d->lit.isNull());
}

void CMeter::polish()
{
    setOpacity();
    updateErasePixmap(nullptr);
}

bool CMeter::event(QEvent *event)
{
    const bool handled = QWidget::event(event);
    metering::followLook(*this, *event, &CMeter::polish, &CMeter::refreshPicture);
    return handled;
}

void CMeter::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    switch (d->batched.paintBegins(painter, *event)) {
    case BatchedPicture::Painted::All: d->inStore = d->bands(*this); break;
    case BatchedPicture::Painted::Part: d->inStore.reset(); break;
    case BatchedPicture::Painted::Elsewhere: break;
    }
    repaintScreenPrimitive(painter);
}

/// With nothing to clip.
bool CMeter::isDrawnPlainly(const QWidget &widget)
{
    const Private &d = *static_cast<const CMeter &>(widget).d;
    return metering::fits(d.lit.deviceIndependentSize(), widget)
        && metering::fits(d.unlit.deviceIndependentSize(), widget);
}

bool CMeter::copyPicture(QWidget &widget, StorePixels &pixels)
{
    auto &meter = static_cast<CMeter &>(widget);
    Private &d = *meter.d;
    if (!d.hidesAll || d.unlit.isNull() || meter.value() < 0)
        return false;
    const MeterBands bands = d.bands(meter);
    const QRect changed = d.inStore
        ? d.picture.part(meter.size(), MeterPicture::difference(*d.inStore, bands))
        : meter.rect();
    d.inStore = bands;
    const MeterPicture::Blits blits = d.picture.blits(meter.size(), bands);
    return std::all_of(blits.cbegin(), blits.cend(), [&](const MeterPicture::Blit &each) {
        const QRect part = each.part & changed;
        const QPixmap &picture = each.lit ? d.lit : d.unlit;
        return part.isEmpty()
               || pixels.copy(part.topLeft(), picture, inPixels(part, picture).toRect());
    });
}

void CMeter::drawPicture(QWidget &meter, QPainter &painter)
{
    auto &drawn = static_cast<CMeter &>(meter);
    drawn.d->inStore.reset(); // something has to be computed: whole each time
    drawn.repaintScreenPrimitive(painter);
}

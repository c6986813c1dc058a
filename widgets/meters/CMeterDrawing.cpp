// SPDX-License-Identifier: MIT
// What the meter shows and when it is painted.
#include "widgets/meters/CMeterPrivate.h"
#include "widgets/meters/MeterWatch.h"
#include "widgets/painting/Picture.h"

#include <QPainter>

void CMeter::repaintScreenPrimitive(QPainter &painter)
{
    d->draw(painter);
}

void CMeter::Private::describe(Picture &picture) const
{
    if (lit.isNull() || meter.value() < 0)
        return;
    const MeterBands now = bands();
    if (unlit.isNull())
        picture.fill(meter.palette().brush(meter.backgroundRole()));
    if (hidesAll) {
        // Each pixel once.
        for (const MeterPicture::Blit &each : scaling.blits(meter.size(), now)) {
            const QPixmap &source = each.lit ? lit : unlit;
            picture.add(source, source.rect(), {0, 0}, each.part);
        }
        return;
    }
    picture.add(unlit, unlit.rect());
    for (const MeterBands::Stretch &each : {now.bar, now.mark}) {
        if (!each.isEmpty())
            picture.add(lit, lit.rect(), {0, 0}, scaling.part(meter.size(), each));
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
    const MeterBands bands = d->bands();
    if (!d->pictureStale && bands == d->shownBands)
        return;
    d->pictureStale = false;
    d->shownBands = bands;
    updateErasePixmap(nullptr);
    d->changed();
}

void CMeter::refreshPicture()
{
    d->pictureStale = true;
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
    d->setOpaque(hidesUnlit && !d->lit.isNull());
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
    d->paint(painter, *event);
}

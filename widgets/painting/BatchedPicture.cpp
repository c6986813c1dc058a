// SPDX-License-Identifier: MIT
#include "widgets/painting/BatchedPicture.h"

#include "widgets/painting/Opacity.h"
#include "widgets/painting/PaintBatch.h"
#include "widgets/painting/Picture.h"
#include "widgets/painting/PictureBatches.h"
#include "widgets/painting/StorePixels.h"

#include <QPainter>
#include <QPaintEvent>
#include <QWidget>

namespace {
bool batchesEnabled = true;
} // namespace

BatchedPicture::~BatchedPicture()
{
    if (m_turn >= 0)
        PaintBatch::instance().remove(*this);
}

void BatchedPicture::changed()
{
    if (!joinBatch())
        m_widget.update();
}

void BatchedPicture::changed(const QRegion &part)
{
    if (joinBatch())
        return;
    if (isWholeRatio(m_widget.devicePixelRatio()))
        m_widget.update(part);
    else
        m_widget.update(); // the toolkit clips to pixels that a part has only a share of
}

/// False if the control has to be painted instead.
bool BatchedPicture::joinBatch()
{
    if (m_turn >= 0)
        return true;
    if (!isPossible())
        return false;
    PaintBatch::instance().add(*this);
    return true;
}

/// So far as the control itself is concerned.
bool BatchedPicture::isPossible() const
{
    return batchesEnabled && m_widget.isVisible() && (m_opaque || m_ground.picture())
           && typeid(m_widget) == *m_drawn && isAll();
}

void BatchedPicture::setOpaque(bool opaque)
{
    if (opaque != m_opaque)
        m_ground.forget();
    m_opaque = opaque;
    opacity::set(m_widget, opaque);
}

void BatchedPicture::paint(QPainter &painter, const QPaintEvent &event)
{
    const QImage *store = Ground::storeBehind(m_widget, painter);
    if (store && batchesEnabled && !m_opaque)
        m_ground.take(m_widget, *store, event);
    else
        m_ground.forget(); // what changes behind it meanwhile would not be seen
    followScreen(store);
    draw(painter);
    drawn();
}

/// The window may be on a screen with another ratio than when the picture was made.
void BatchedPicture::followScreen(const QImage *store)
{
    const bool told = m_widget.testAttribute(Qt::WA_OpaquePaintEvent);
    if (!store || told == (m_opaque && isWholeRatio(store->devicePixelRatio())))
        return;
    opacity::set(m_widget, m_opaque, store->devicePixelRatio());
    m_widget.update();
}

void BatchedPicture::draw(QPainter &painter) const
{
    Picture picture(m_widget.size());
    describe(picture);
    picture.draw(painter);
}

void BatchedPicture::drawInto(StorePixels &pixels, const QPoint &corner)
{
    Picture picture(m_widget.size());
    describe(picture);
    pixels.draw(picture, corner, m_opaque ? nullptr : m_ground.picture());
    drawn();
}

void picturebatches::setEnabled(bool on)
{
    batchesEnabled = on;
}

bool picturebatches::areEnabled()
{
    return batchesEnabled;
}

// SPDX-License-Identifier: MIT
#include "widgets/painting/BatchedPicture.h"

#include "widgets/painting/DevicePixels.h"
#include "widgets/painting/PaintBatch.h"
#include "widgets/painting/Picture.h"
#include "widgets/painting/StorePixels.h"

#include <QPainter>
#include <QPaintEvent>
#include <QWidget>

namespace {
bool enabled = true;
} // namespace

BatchedPicture::~BatchedPicture()
{
    if (m_turn >= 0)
        PaintBatch::instance().remove(*this);
}

void BatchedPicture::changed()
{
    if (m_turn >= 0)
        return;
    if (isPossible())
        PaintBatch::instance().add(*this);
    else
        m_widget.update();
}

/// So far as the control itself is concerned.
bool BatchedPicture::isPossible() const
{
    return enabled && m_widget.isVisible() && (m_opaque || m_ground.picture())
           && typeid(m_widget) == *m_drawn && isAll();
}

void BatchedPicture::setOpaque(bool opaque)
{
    m_opaque = opaque;
    m_ground.forget();
    followRatio(m_widget.devicePixelRatio());
}

/// The toolkit leaves out what an opaque control hides. Between pixels it gets that wrong: neither the
/// control nor what is below it is painted on a pixel that both have a part of.
void BatchedPicture::followRatio(qreal ratio)
{
    m_widget.setAttribute(Qt::WA_OpaquePaintEvent, m_opaque && isWholeRatio(ratio));
}

void BatchedPicture::paint(QPainter &painter, const QPaintEvent &event)
{
    const QImage *store = Ground::storeBehind(m_widget, painter);
    if (store && enabled && !m_opaque)
        m_ground.take(m_widget, *store, event);
    else
        m_ground.forget(); // what changes behind it meanwhile would not be seen
    if (store
        && m_widget.testAttribute(Qt::WA_OpaquePaintEvent)
               != (m_opaque && isWholeRatio(store->devicePixelRatio()))) {
        followRatio(store->devicePixelRatio());
        m_widget.update();
    }
    draw(painter);
    drawn();
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

void BatchedPicture::setEnabled(bool on)
{
    enabled = on;
}

bool BatchedPicture::isEnabled()
{
    return enabled;
}

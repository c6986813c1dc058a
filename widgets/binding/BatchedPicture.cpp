// SPDX-License-Identifier: MIT
#include "widgets/binding/BatchedPicture.h"

#include "widgets/binding/PaintBatch.h"

#include <QPaintEvent>

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

BatchedPicture::Painted BatchedPicture::paintBegins(const QPainter &painter,
                                                    const QPaintEvent &event)
{
    const QImage *store = Ground::storeBehind(m_widget, painter);
    if (!store)
        return Painted::Elsewhere;
    if (enabled && !m_widget.testAttribute(Qt::WA_OpaquePaintEvent))
        m_ground.take(m_widget, *store, event);
    const QRegion &region = event.region();
    const bool all = region.rectCount() == 1 && region.boundingRect().contains(m_widget.rect());
    return all ? Painted::All : Painted::Part;
}

bool BatchedPicture::isPossible()
{
    return enabled && m_widget.isVisible()
           && (m_widget.testAttribute(Qt::WA_OpaquePaintEvent) || m_ground.isKnown())
           && typeid(m_widget) == *m_drawn && m_place.holds(m_widget)
           && m_manner.isPossible(m_widget);
}

/// Over what is behind a translucent control something has to be drawn.
bool BatchedPicture::copy(StorePixels &pixels) const
{
    return m_widget.testAttribute(Qt::WA_OpaquePaintEvent) && m_manner.copy(m_widget, pixels);
}

void BatchedPicture::draw(QPainter &painter) const
{
    if (!m_widget.testAttribute(Qt::WA_OpaquePaintEvent))
        m_ground.draw(painter);
    m_manner.draw(m_widget, painter);
}

void BatchedPicture::setEnabled(bool on)
{
    enabled = on;
}

bool BatchedPicture::isEnabled()
{
    return enabled;
}

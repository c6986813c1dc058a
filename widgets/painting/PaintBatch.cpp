// SPDX-License-Identifier: MIT
#include "widgets/painting/PaintBatch.h"

#include "widgets/painting/BatchedPicture.h"
#include "widgets/painting/DrawnRegion.h"
#include "widgets/painting/Picture.h"
#include "widgets/painting/StorePixels.h"

#include <QApplication>
#include <QBackingStore>
#include <QEvent>
#include <QPointer>
#include <QWidget>

#include <algorithm>
#include <tuple>

PaintBatch &PaintBatch::instance()
{
    static QPointer<PaintBatch> batch;
    if (!batch)
        batch = new PaintBatch;
    return *batch;
}

PaintBatch::PaintBatch() : QObject(qApp) {}

PaintBatch::~PaintBatch()
{
    for (BatchedPicture *picture : m_waiting) {
        if (picture)
            picture->m_turn = -1;
    }
}

void PaintBatch::add(BatchedPicture &picture)
{
    if (m_waiting.empty())
        QCoreApplication::postEvent(this, new QEvent(QEvent::UpdateRequest), Qt::LowEventPriority);
    picture.m_turn = static_cast<int>(m_waiting.size());
    m_waiting.push_back(&picture);
}

void PaintBatch::remove(BatchedPicture &picture)
{
    m_waiting[static_cast<size_t>(picture.m_turn)] = nullptr;
    picture.m_turn = -1;
}

bool PaintBatch::event(QEvent *event)
{
    if (event->type() != QEvent::UpdateRequest)
        return QObject::event(event);
    draw();
    return true;
}

/// Moves those that can be drawn from m_waiting to m_due; the others get their paint events.
void PaintBatch::collect()
{
    m_places.beginTurn();
    m_due.clear();
    for (BatchedPicture *picture : m_waiting) {
        if (!picture)
            continue;
        picture->m_turn = -1;
        QWidget &control = picture->m_widget;
        if (!control.isVisible() || control.testAttribute(Qt::WA_UpdatesDisabled))
            continue; // painted when it is shown
        const auto corner = picture->isPossible() ? m_places.find(control) : std::nullopt;
        if (corner)
            m_due.push_back({picture, m_places.window(), QRect(*corner, control.size())});
        else
            control.update();
    }
    m_waiting.clear();
}

void PaintBatch::draw()
{
    collect();
    const auto inRowOrder = [](const Due &one, const Due &other) {
        return std::tuple(one.window, one.place.y(), one.place.x())
               < std::tuple(other.window, other.place.y(), other.place.x());
    };
    if (!std::is_sorted(m_due.cbegin(), m_due.cend(), inRowOrder))
        std::sort(m_due.begin(), m_due.end(), inRowOrder);
    for (auto from = m_due.begin(); from != m_due.end();) {
        QWidget *const window = from->window;
        const auto to = std::find_if(from, m_due.end(),
                                     [window](const Due &each) { return each.window != window; });
        drawWindow(*window, from, to);
        from = to;
    }
}

void PaintBatch::drawWindow(QWidget &window, Dues::iterator from, Dues::iterator to)
{
    const qreal ratio = window.devicePixelRatio();
    DrawnRegion drawn(ratio);
    for (auto each = from; each != to; ++each)
        drawn.add(each->place);
    QBackingStore &store = *window.backingStore();
    while (from != to)
        from = drawPass(store, ratio, from, to);
    store.flush(drawn.region());
}

/// Draws those whose places make a region, and returns where the others begin.
PaintBatch::Dues::iterator PaintBatch::drawPass(QBackingStore &store, qreal ratio,
                                                Dues::iterator from, Dues::iterator to)
{
    ExactRects rects(ratio);
    m_later.clear();
    auto end = from;
    for (auto each = from; each != to; ++each) {
        if (rects.add(each->place))
            *end++ = *each;
        else
            m_later.push_back(*each);
    }
    store.beginPaint(rects.region());
    {
        StorePixels pixels(*store.paintDevice());
        for (auto each = from; each != end; ++each)
            each->picture->drawInto(pixels, each->place.topLeft());
    }
    store.endPaint();
    std::copy(m_later.cbegin(), m_later.cend(), end);
    return end;
}

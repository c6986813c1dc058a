// SPDX-License-Identifier: MIT
#include "widgets/binding/PaintBatch.h"

#include "widgets/binding/BatchedPicture.h"
#include "widgets/binding/DrawnRegion.h"
#include "widgets/binding/StorePixels.h"

#include <QApplication>
#include <QBackingStore>
#include <QEvent>
#include <QPainter>
#include <QPointer>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <optional>
#include <tuple>

namespace {

bool isPlain(const QWidget &widget)
{
    return !widget.graphicsEffect() && widget.mask().isEmpty();
}

/// Whether the window shows what is drawn into its backing store, all of it and as it is.
bool isReady(const QWidget &window)
{
    const QWindow *handle = window.windowHandle();
    const QBackingStore *store = window.backingStore();
    return handle && handle->isExposed() && handle->surfaceType() == QSurface::RasterSurface
           && store && store->size() == window.size()
           && !window.testAttribute(Qt::WA_TranslucentBackground) && isPlain(window);
}

/// Says of widgets whether they and all around them can be drawn without a paint event. Siblings
/// come after each other, so the last answer is kept.
class Surroundings
{
public:
    bool allow(const QWidget &control)
    {
        if (control.parentWidget() != m_parent) {
            m_parent = control.parentWidget();
            m_window = m_parent->window();
            m_allowed = isReady(*m_window);
            for (const QWidget *each = m_parent; m_allowed && each != m_window;
                 each = each->parentWidget())
                m_allowed = isPlain(*each);
        }
        return m_allowed && isPlain(control);
    }
    QWidget *window() const { return m_window; }

private:
    const QWidget *m_parent = nullptr;
    QWidget *m_window = nullptr;
    bool m_allowed = false;
};

} // namespace

PaintBatch &PaintBatch::instance()
{
    static QPointer<PaintBatch> batch;
    if (!batch)
        batch = new PaintBatch;
    return *batch;
}

PaintBatch::PaintBatch() : QObject(qApp)
{
    ClearPlace::layoutChanged();
    qApp->installEventFilter(this);
}

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

bool PaintBatch::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
    case QEvent::ParentChange:
    case QEvent::ZOrderChange:
    case QEvent::WinIdChange: ClearPlace::layoutChanged(); break;
    default: break;
    }
    return false;
}

/// Moves those that can be drawn from m_waiting to m_due; the others get their paint events.
void PaintBatch::collect()
{
    Surroundings around;
    m_due.clear();
    for (BatchedPicture *picture : m_waiting) {
        if (!picture)
            continue;
        picture->m_turn = -1;
        QWidget &control = picture->m_widget;
        if (!control.isVisible() || control.testAttribute(Qt::WA_UpdatesDisabled))
            continue; // painted when it is shown
        if (picture->isPossible() && around.allow(control))
            m_due.push_back({picture, around.window(), picture->m_place.inWindow(control)});
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
    for (auto from = m_due.cbegin(); from != m_due.cend();) {
        QWidget *const window = from->window;
        const auto to = std::find_if(from, m_due.cend(),
                                     [window](const Due &each) { return each.window != window; });
        drawWindow(*window, from, to);
        from = to;
    }
}

void PaintBatch::drawPictures(QPaintDevice &device, Dues::const_iterator from,
                              Dues::const_iterator to)
{
    StorePixels pixels(device);
    std::optional<QPainter> painter; // most pages need none
    for (auto each = from; each != to; ++each) {
        pixels.setOrigin(each->place.topLeft());
        if (each->picture->copy(pixels))
            continue;
        if (!painter)
            painter.emplace(&device);
        painter->setWorldTransform(QTransform::fromTranslate(each->place.x(), each->place.y()));
        each->picture->draw(*painter);
    }
}

void PaintBatch::drawWindow(QWidget &window, Dues::const_iterator from, Dues::const_iterator to)
{
    DrawnRegion drawn;
    for (auto each = from; each != to; ++each)
        drawn.add(each->place);
    const QRegion region = drawn.region();
    QBackingStore &store = *window.backingStore();
    store.beginPaint(region);
    drawPictures(*store.paintDevice(), from, to);
    store.endPaint();
    store.flush(region);
}

// SPDX-License-Identifier: MIT
#include "widgets/painting/ClearPlaces.h"

#include <QBackingStore>
#include <QGraphicsEffect>
#include <QImage>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <numeric>

namespace {

/// More panels than this are not remembered beyond a turn in which they are not asked for.
constexpr size_t MostPanels = 512;

/// Whether the child can be seen as a part of its parent.
bool isSeen(const QObject &child)
{
    if (!child.isWidgetType())
        return false;
    const auto &widget = static_cast<const QWidget &>(child);
    return !widget.isHidden() && !widget.isWindow();
}

/// What a child may paint in its parent; empty for one that is not seen.
QRect reachOf(const QObject &child)
{
    if (!isSeen(child))
        return {};
    const auto &widget = static_cast<const QWidget &>(child);
    if (const QGraphicsEffect *effect = widget.graphicsEffect(); effect && effect->isEnabled())
        return effect->boundingRectFor(widget.rect()).translated(widget.pos()).toAlignedRect();
    return widget.geometry();
}

bool isPlain(const QWidget &widget)
{
    return !widget.graphicsEffect() && widget.mask().isEmpty();
}

bool hasVisibleChild(const QWidget &widget)
{
    const QObjectList &children = widget.children();
    return std::any_of(children.cbegin(), children.cend(),
                       [](const QObject *each) { return !each || isSeen(*each); });
}

/// Whether the store's pixels are those of the window as it is now: else the next paint renews them.
bool isCurrent(QBackingStore &store, const QWidget &window)
{
    if (store.size() != window.size())
        return false;
    const QPaintDevice *device = store.paintDevice();
    return device && device->devType() == QInternal::Image && !device->paintingActive()
           && device->devicePixelRatio() == window.devicePixelRatio();
}

/// Whether the window shows what is drawn into its backing store, all of it and as it is.
bool isReady(const QWidget &window)
{
    const QWindow *handle = window.windowHandle();
    QBackingStore *store = window.backingStore();
    return handle && handle->isExposed() && handle->surfaceType() == QSurface::RasterSurface
           && store && isPlain(window) && isCurrent(*store, window);
}

} // namespace

bool StackedChildren::look(const QWidget &parent)
{
    const QObjectList &now = parent.children();
    bool same = m_children.size() == static_cast<size_t>(now.size());
    m_children.resize(static_cast<size_t>(now.size()));
    for (size_t i = 0; i < m_children.size(); ++i) {
        const QObject *object = now[static_cast<qsizetype>(i)];
        if (!object) {
            m_children.clear();
            return false;
        }
        const Child child{object, reachOf(*object)};
        if (m_children[i] != child) {
            m_children[i] = child;
            same = false;
        }
    }
    if (!same)
        compare();
    return true;
}

/// Finds who is covered, by a sweep from left to right.
void StackedChildren::compare()
{
    m_covered.clear();
    std::vector<size_t> order(m_children.size());
    std::iota(order.begin(), order.end(), size_t(0));
    std::erase_if(order, [this](size_t each) { return m_children[each].reach.isEmpty(); });
    std::sort(order.begin(), order.end(), [this](size_t one, size_t other) {
        return m_children[one].reach.left() < m_children[other].reach.left();
    });
    for (auto each = order.cbegin(); each != order.cend(); ++each) {
        const QRect &reach = m_children[*each].reach;
        for (auto next = each + 1;
             next != order.cend() && m_children[*next].reach.left() <= reach.right(); ++next) {
            if (reach.intersects(m_children[*next].reach))
                m_covered.push_back(m_children[std::min(*each, *next)].object);
        }
    }
    std::sort(m_covered.begin(), m_covered.end());
    m_covered.erase(std::unique(m_covered.begin(), m_covered.end()), m_covered.end());
}

bool StackedChildren::isCovered(const QWidget &child) const
{
    return std::binary_search(m_covered.cbegin(), m_covered.cend(), &child);
}

QVarLengthArray<QRect, 2> StackedChildren::above(const QWidget &child) const
{
    QVarLengthArray<QRect, 2> rects;
    if (!isCovered(child))
        return rects;
    for (auto each = m_children.crbegin(); each != m_children.crend() && each->object != &child;
         ++each) {
        if (each->reach.intersects(child.geometry()))
            rects.append(each->reach);
    }
    return rects;
}

void ClearPlaces::beginTurn()
{
    if (m_panels.size() > MostPanels)
        std::erase_if(m_panels, [this](const auto &each) { return each.second.turn != m_turn; });
    ++m_turn;
    m_last = nullptr;
}

std::optional<QPoint> ClearPlaces::find(const QWidget &control)
{
    const QWidget *parent = control.parentWidget();
    if (!parent || control.isWindow() || control.internalWinId() || !isPlain(control)
        || hasVisibleChild(control))
        return {};
    if (parent != m_last) {
        m_lastPanel = &panel(*parent);
        m_last = parent;
    }
    const Panel &around = *m_lastPanel;
    const QRect &place = control.geometry();
    const auto reaches = [&place](const QRect &rect) { return rect.intersects(place); };
    if (!around.clear || !around.visible.contains(place) || around.children.isCovered(control)
        || std::any_of(around.above.cbegin(), around.above.cend(), reaches))
        return {};
    return around.corner + place.topLeft();
}

const ClearPlaces::Panel &ClearPlaces::panel(const QWidget &widget)
{
    Panel &found = m_panels[&widget];
    if (found.turn != m_turn) {
        found.turn = m_turn;
        look(widget, found);
    }
    return found;
}

void ClearPlaces::look(const QWidget &widget, Panel &own)
{
    own.clear = false;
    own.above.clear();
    if (widget.isWindow()) {
        if (!isReady(widget))
            return;
        own.window = widget.window();
        own.corner = {};
        own.visible = widget.rect();
    } else {
        if (!widget.parentWidget() || widget.internalWinId() || !isPlain(widget))
            return;
        const Panel &around = panel(*widget.parentWidget());
        if (!around.clear)
            return;
        own.window = around.window;
        own.corner = around.corner + widget.pos();
        own.visible = widget.rect() & around.visible.translated(-widget.pos());
        for (const QRect &each : around.above)
            own.above.append(each.translated(-widget.pos()));
        for (const QRect &each : around.children.above(widget))
            own.above.append(each.translated(-widget.pos()));
    }
    own.clear = own.children.look(widget);
}

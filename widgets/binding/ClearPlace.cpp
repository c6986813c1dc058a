// SPDX-License-Identifier: MIT
#include "widgets/binding/ClearPlace.h"

#include <algorithm>

namespace {

/// With more widgets than that above it in one parent, a control is not looked at: it would take as
/// long as the paint that it is to save.
constexpr qsizetype MostSiblings = 256;

/// Whether the child can be seen as a part of its parent.
bool isSeen(const QObject &child)
{
    if (!child.isWidgetType())
        return false;
    const auto &widget = static_cast<const QWidget &>(child);
    return !widget.isHidden() && !widget.isWindow();
}

/// Whether a sibling that is stacked above `widget` reaches into `place`, in their parent's coordinates.
bool isCovered(const QWidget &widget, const QRect &place)
{
    const QObjectList &siblings = widget.parentWidget()->children();
    qsizetype looked = 0;
    for (auto above = siblings.crbegin(); above != siblings.crend() && *above != &widget; ++above) {
        // A parent under destruction has let go of the children that it has deleted.
        if (!*above || ++looked > MostSiblings)
            return true;
        if (isSeen(**above) && static_cast<const QWidget *>(*above)->geometry().intersects(place))
            return true;
    }
    return false;
}

} // namespace

void ClearPlace::look(const QWidget &control)
{
    m_layout = s_layout;
    m_clear = false;
    const QObjectList &children = control.children();
    if (std::any_of(children.cbegin(), children.cend(),
                    [](const QObject *each) { return isSeen(*each); }))
        return;
    QRect place = control.rect();
    for (const QWidget *each = &control; !each->isWindow(); each = each->parentWidget()) {
        place.translate(each->pos());
        if (each->internalWinId() || !each->parentWidget()
            || !each->parentWidget()->rect().contains(place) || isCovered(*each, place))
            return;
    }
    m_origin = place.topLeft();
    m_clear = !control.isWindow();
}

// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

#include <span>

class QPainter;

namespace artwork {

/// Side of the square in which the icons of widget classes are drawn.
constexpr int classIconSide = 24;

/// The icon by which a form editor lists a widget class: the widget in a few strokes, on a dark tile that
/// stands out on light and dark lists alike.
struct ClassIcon
{
    const char *name; ///< "class-" and the class
    void (*paint)(QPainter &, QSize);
};

std::span<const ClassIcon> classIcons();

} // namespace artwork

// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QGradient>
#include <QPainterPath>
#include <QPointF>

namespace artwork {

/// What the lines of icons are drawn in.
inline constexpr QColor lineColour(204, 210, 218);

/// Radians of an angle in degrees.
double radians(double degrees);

/// The point at `angle` degrees (0 upright, clockwise) and `radius` around the origin.
QPointF pointAt(double angle, double radius);

/// An open arc around the origin from one angle to the other, in either direction.
QPainterPath arcPath(double radius, double fromAngle, double toAngle);

/// `colour` mixed with `other`; `share` 0..1 is the part of `other`.
QColor blend(const QColor &colour, const QColor &other, double share);

/// `colour` with an alpha of 0..255.
QColor withAlpha(QColor colour, int alpha);

/// A vertical gradient from `top` at y = -`radius` to `bottom` at y = `radius`: light from above.
QLinearGradient fromAbove(double radius, const QColor &top, const QColor &bottom);

/// A soft round black shadow around `centre`: full `alpha` up to `inner`, gone at `outer`.
QRadialGradient softShadow(const QPointF &centre, double inner, double outer, int alpha);

} // namespace artwork

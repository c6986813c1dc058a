// SPDX-License-Identifier: MIT
#pragma once

class QPainter;

namespace artwork {

struct KnobStyle;

/// A stretch of the ring, in degrees; `from` is where it begins and `to` where the value stands.
struct LitArc
{
    double from;
    double to;
};

/// The part of the ring that is lit at `position` 0..1; empty (from == to) at the origin.
LitArc litArc(const KnobStyle &style, double position);

/// Draws marks, groove and lit part of the ring around the painter's origin.
void paintRing(QPainter &painter, const KnobStyle &style, double position);

} // namespace artwork

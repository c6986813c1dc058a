// SPDX-License-Identifier: MIT
#pragma once

class QPainter;

namespace artwork {

struct KnobGeometry;
struct KnobStyle;

/// Draws the shadow that the knob casts on the panel, around the painter's origin.
void paintCastShadow(QPainter &painter, const KnobGeometry &geometry);

/// Draws skirt, cap and indicator line, turned to `position` 0..1, around the painter's origin.
///
/// Light comes from above and stays there while the knob turns.
void paintBody(QPainter &painter, const KnobStyle &style, double position);

} // namespace artwork

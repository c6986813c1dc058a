// SPDX-License-Identifier: MIT
#pragma once

class QPainter;

namespace artwork {

struct KnobStyle;

/// Draws one knob at `position` 0..1 in the cell whose top left corner is the painter's origin.
///
/// Surroundings stay transparent, and nothing is drawn outside the cell.
void paintKnob(QPainter &painter, const KnobStyle &style, double position);

} // namespace artwork

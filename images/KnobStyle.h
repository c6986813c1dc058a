// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

namespace artwork {

struct KnobGeometry;

/// What sets one family of knobs apart from the others.
struct KnobStyle
{
    /// Where the lit part of the ring begins.
    enum class Origin {
        Minimum, ///< grows clockwise from the left end
        Centre,  ///< grows to either side of twelve o'clock
    };

    const KnobGeometry &geometry;
    QColor accent; ///< colour of the lit part of the ring
    Origin origin = Origin::Minimum;
    int marks = 2;       ///< marks outside the ring, both ends included
    int detents = 0;     ///< steps the ring is divided into; 0 for an unbroken ring
    bool enabled = true; ///< disabled: pale, nothing lit, no indicator line
};

/// Colours of the families: the same colour means the same kind of control on every screen.
namespace accent {
constexpr QColor amber(255, 170, 44);
constexpr QColor blue(58, 156, 255);
constexpr QColor green(74, 214, 118);
constexpr QColor grey(202, 209, 218);
constexpr QColor red(255, 78, 66);
constexpr QColor teal(52, 211, 200);
} // namespace accent

} // namespace artwork

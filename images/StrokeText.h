// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>

namespace artwork {

/// `text` as centre lines of strokes, for a round pen, in capitals of `height` that are centred on the
/// origin. The pictures are the same on every machine, whatever fonts it has. Knows the characters
/// that keys are labelled with: + 4 8 A C D E I L N O P R S T U V; others are blank.
QPainterPath strokeText(const char *text, double height);

} // namespace artwork

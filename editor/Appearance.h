// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

class QApplication;

/// The editor's looks: a dark palette for a dark room, and colours for states. A palette, not a style
/// sheet: with a style sheet every widget is drawn more slowly and none is opaque any more.
namespace appearance {

constexpr QColor Window(23, 25, 28);
constexpr QColor Panel(41, 45, 50);
constexpr QColor Text(236, 239, 242);
constexpr QColor FaintText(150, 160, 170);
constexpr QColor Highlight(78, 156, 255);
constexpr QColor OnlineLit(80, 214, 124);
constexpr QColor OfflineLit(255, 96, 82);
constexpr QColor ReadoutBack(10, 11, 13);
constexpr QColor ReadoutText(120, 226, 255);

void apply(QApplication &application);

} // namespace appearance

// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

class QWidget;

/// Photographs what the screen shows of windows: what has arrived at the X server or the compositor,
/// whatever a backing store holds. GUI thread.
///
/// Whether all that was drawn has arrived is seen on the screen, too. A small patch in the window's upper
/// left corner takes a colour of its own for each picture; when the screen shows that, it shows
/// everything that was drawn before. It also tells where on the screen the window is, which nobody tells
/// a client of Wayland. The patch stays, so that pictures do not restack widgets, and is black in them.
namespace screencamera {

/// Whether there is a screen that can be photographed: under X11 always, and wherever the environment
/// names a file with the picture of the screen, as scripts/with-screen.sh does.
bool isThere();

/// What the screen shows of the window without its frame, from its upper left corner to where the window
/// or the screen ends; whatever lies over it is in the picture. In pixels of the screen, opaque. Null
/// when that corner does not show within a second. Events are processed.
QImage picture(QWidget &window);

} // namespace screencamera

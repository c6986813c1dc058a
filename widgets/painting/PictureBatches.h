// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

/// New pictures of controls are drawn in batches: those of all controls that changed in the same turn
/// of the event loop together, straight into the window's backing store, which takes a fraction of a
/// paint event each. What the screen shows is the same. Event filters and overrides of paintEvent() do
/// not see every picture, though; whoever needs them to switches batches off. GUI thread.
namespace picturebatches {

/// Whether there are batches, for all controls; true at first. Without them every new picture brings a
/// paint event.
CONSOLEWIDGETS_EXPORT void setEnabled(bool enabled);
/// See setEnabled().
CONSOLEWIDGETS_EXPORT bool areEnabled();

} // namespace picturebatches

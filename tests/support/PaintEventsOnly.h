// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/painting/PictureBatches.h"

/// While it lives, every new picture comes with a paint event, which can be counted.
class PaintEventsOnly
{
public:
    PaintEventsOnly() { picturebatches::setEnabled(false); }
    ~PaintEventsOnly() { picturebatches::setEnabled(true); }
    Q_DISABLE_COPY_MOVE(PaintEventsOnly)
};

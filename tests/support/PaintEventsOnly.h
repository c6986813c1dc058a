// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/painting/BatchedPicture.h"

/// While it lives, every new picture comes with a paint event, which can be counted.
class PaintEventsOnly
{
public:
    PaintEventsOnly() { BatchedPicture::setEnabled(false); }
    ~PaintEventsOnly() { BatchedPicture::setEnabled(true); }
    Q_DISABLE_COPY_MOVE(PaintEventsOnly)
};

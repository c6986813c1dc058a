// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/ParameterLayout.h"

#include <memory>

/// The values of all parameters of a memory at one time.
struct ParameterSnapshot
{
    std::shared_ptr<const ParameterLayout> layout; ///< null: no snapshot
    std::vector<qint32> values; ///< parameter by parameter as in the layout, its elements in order

    bool isWhole() const { return layout && values.size() == layout->valueCount(); }
};

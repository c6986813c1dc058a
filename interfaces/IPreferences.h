// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/Export.h"

#include <QVariant>

/// The editor's numbered preferences, as controls read them. GUI thread.
class CONSOLEINTERFACES_EXPORT IPreferences
{
public:
    /// Preference numbers that controls ask for. All are yes/no values.
    enum Number {
        ConfirmStore = 6,    ///< ask before a library slot is stored
        ConfirmRecall = 7,   ///< ask before a library slot is recalled
        ThresholdLamps = 22, ///< threshold lamps are shown
    };

    virtual ~IPreferences() = default;

    /// The stored value; an invalid QVariant when preference `number` has none.
    virtual QVariant preference(int number) const = 0;
};

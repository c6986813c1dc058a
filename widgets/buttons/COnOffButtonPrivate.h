// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/CSimpleNotifier.h"
#include "widgets/binding/PendingEmissions.h"
#include "widgets/buttons/COnOffButton_PD.h"

#include <QColor>
#include <QPointer>

struct COnOffButton::Private
{
    std::shared_ptr<COnOffButton_PD> look = std::make_shared<COnOffButton_PD>();
    QPointer<CSimpleNotifier> selection;
    QPixmap background; ///< what the key shows without being painted
    QColor focusColor;
    PendingEmissions pending;
    qint16 category = 0;

    bool sharedLook : 1 = false;
    bool polished : 1 = false;
    bool pressed : 1 = false;
    bool dirty : 1 = false;
    bool hasBackground : 1 = false;
    bool switching : 1 = false; ///< inside setOn()
    bool announced : 1 = false; ///< the value has been told at least once
};

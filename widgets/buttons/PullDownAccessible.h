// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/binding/ShownTextAccessible.h"
#include "widgets/buttons/CPullDownMenu.h"

/// How a pull-down menu speaks: a combo box whose value is the current item, and which opens by an
/// action. GUI thread.
class PullDownAccessible : public ShownTextAccessible<CPullDownMenu>
{
public:
    explicit PullDownAccessible(CPullDownMenu &menu)
        : ShownTextAccessible(menu, QAccessible::ComboBox)
    {
    }

    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &name) override;
};

// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/binding/BoundAccessible.h"

class COnOffButton;

/// A key as assistive tools see it: something that is checked or not, and can be toggled. GUI thread.
class KeyAccessible : public BoundAccessible
{
public:
    explicit KeyAccessible(COnOffButton *key);

    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &name) override;

protected:
    COnOffButton *key() const;
};

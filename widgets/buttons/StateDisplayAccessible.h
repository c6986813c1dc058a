// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/binding/BoundAccessible.h"

class StateDisplayWidget;

/// How a state display speaks: a picture whose value is the display text of the state shown, and which
/// can be pressed. GUI thread.
class StateDisplayAccessible : public BoundAccessible
{
public:
    explicit StateDisplayAccessible(StateDisplayWidget &display);

    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;
    void doAction(const QString &name) override;

    /// Makes state displays speak.
    static void install();

private:
    StateDisplayWidget &m_display;
};

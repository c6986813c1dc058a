// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/binding/BoundAccessible.h"

class CPullDownMenu;

/// How a pull-down menu speaks: a combo box whose value is the current item, and which opens by an
/// action. GUI thread.
class PullDownAccessible : public BoundAccessible
{
public:
    explicit PullDownAccessible(CPullDownMenu &menu);

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &name) override;

    /// Makes pull-down menus speak.
    static void install();

private:
    CPullDownMenu &m_menu;
};

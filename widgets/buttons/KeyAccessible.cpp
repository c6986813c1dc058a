// SPDX-License-Identifier: MIT
#include "widgets/buttons/KeyAccessible.h"

#include "widgets/buttons/COnOffButton.h"

KeyAccessible::KeyAccessible(COnOffButton *key) : BoundAccessible(key, *key, QAccessible::CheckBox)
{
}

COnOffButton *KeyAccessible::key() const
{
    return static_cast<COnOffButton *>(object());
}

QAccessible::State KeyAccessible::state() const
{
    QAccessible::State state = BoundAccessible::state();
    state.checkable = key()->isToggleButton();
    state.checked = key()->isOn();
    state.pressed = key()->isDown();
    return state;
}

QStringList KeyAccessible::actionNames() const
{
    return QStringList{key()->isToggleButton() ? toggleAction() : pressAction()}
           + BoundAccessible::actionNames();
}

void KeyAccessible::doAction(const QString &name)
{
    if (name == toggleAction() || name == pressAction())
        key()->click();
    else
        BoundAccessible::doAction(name);
}

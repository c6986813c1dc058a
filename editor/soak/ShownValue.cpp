// SPDX-License-Identifier: MIT
#include "editor/soak/ShownValue.h"

#include "interfaces/TMemProxy.h"
#include "widgets/buttons/COnOffButton.h"
#include "widgets/buttons/CPullDownMenu.h"
#include "widgets/buttons/StateDisplayWidget.h"
#include "widgets/controls/CDial.h"

#include <algorithm>
#include <typeinfo>

namespace {

using shownvalue::Difference;

Difference ofDial(const CDial &dial, int stored)
{
    return {dial.value(), std::clamp(stored, dial.minimum(), dial.maximum())};
}

Difference ofKey(const COnOffButton &key, int stored)
{
    const int onValue = key.boolClipValue() > 0 ? key.boolClipValue() - 1 : 1;
    return {key.isOn(), (stored == onValue) != key.invertedLogic()};
}

/// A value that has no item leaves the menu as it is.
std::optional<Difference> ofMenu(const CPullDownMenu &menu, int fromLowest)
{
    const int due = menu.memapiToMenu(fromLowest);
    if (due < 0 || menu.menuItemList().isEmpty())
        return std::nullopt;
    return Difference{menu.selectedItem(), due};
}

std::optional<Difference> both(QWidget &control, const TMemProxy &proxy)
{
    const IMemAPI &memory = *proxy.memAPI();
    const IMemAPI::TSingleBaseAddress at = proxy.valueAddress();
    const int stored = memory.readValue(at.group, at.index, at.element, 0, 0);
    if (const auto *dial = qobject_cast<const CDial *>(&control))
        return ofDial(*dial, stored);
    // Its subclasses follow more than their value.
    if (typeid(control) == typeid(COnOffButton))
        return ofKey(static_cast<const COnOffButton &>(control), stored);
    if (const auto *menu = qobject_cast<const CPullDownMenu *>(&control))
        return ofMenu(*menu, stored - memory.readMinimum(at.group, at.index, at.element, 0));
    if (const auto *state = qobject_cast<const StateDisplayWidget *>(&control))
        return Difference{state->value(), stored};
    return std::nullopt;
}

} // namespace

std::optional<Difference> shownvalue::compare(QWidget &control)
{
    const auto *proxy = dynamic_cast<TMemProxy *>(&control);
    if (!proxy || !proxy->isAttached() || !proxy->memAPIReady())
        return std::nullopt;
    const std::optional<Difference> found = both(control, *proxy);
    return found && found->shown != found->stored ? found : std::nullopt;
}

QString shownvalue::describe(QWidget &control)
{
    const auto *proxy = dynamic_cast<TMemProxy *>(&control);
    if (!proxy)
        return control.objectName();
    return QStringLiteral("%1 '%2' (%3, element %4)")
        .arg(QLatin1StringView(control.metaObject()->className()),
             control.accessibleName().isEmpty() ? control.objectName() : control.accessibleName(),
             proxy->namedAddress())
        .arg(proxy->valueAddress().element);
}

// SPDX-License-Identifier: MIT
#include "editor/BoundControls.h"

#include "companions/memory/ParameterMemory.h"
#include "widgets/binding/Binding.h"

namespace {

/// Meters and readouts do not: they show what cannot be edited.
bool tellsItsValue(const QWidget &control)
{
    return control.metaObject()->indexOfSignal("memoryAPIValueChange(int)") >= 0;
}

/// The keys of a library list are not: they are made as controls, but have no address.
bool isForAParameter(QWidget *widget)
{
    const TMemProxy *proxy = boundcontrols::proxyOf(widget);
    return proxy && (proxy->isAttached() || !proxy->namedAddress().isEmpty());
}

} // namespace

QList<QWidget *> boundcontrols::inside(QWidget *root)
{
    QList<QWidget *> controls = root->findChildren<QWidget *>();
    controls.removeIf(
        [](QWidget *widget) { return !isForAParameter(widget) || !tellsItsValue(*widget); });
    return controls;
}

QString boundcontrols::nameOf(QWidget *control, const ParameterMemory &memory)
{
    const TMemProxy *proxy = proxyOf(control);
    if (!proxy)
        return {};
    const QString name = control->accessibleName();
    const IMemAPI::TSingleBaseAddress at = proxy->valueAddress();
    return name.isEmpty() ? memory.labelOf(at.group, at.index, at.element) : name;
}

QString boundcontrols::valueTextOf(QWidget *control)
{
    const TMemProxy *proxy = proxyOf(control);
    if (!proxy || !proxy->isAttached() || !binding::ready(*proxy))
        return {};
    return binding::display(*proxy, binding::read(*proxy), binding::range(*proxy)).text;
}

// SPDX-License-Identifier: MIT
#include "widgets/binding/BoundAccessible.h"

#include "widgets/binding/Binding.h"

BoundAccessible::BoundAccessible(QWidget *widget, TMemProxy &proxy, QAccessible::Role role)
    : QAccessibleWidget(widget, role), m_proxy(proxy)
{
}

QString BoundAccessible::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Name && widget()->accessibleName().isEmpty()) {
        const QString words = binding::addressInWords(m_proxy.namedAddress());
        return m_proxy.isAttached() ? words + u' ' + QString::number(channel() + 1) : words;
    }
    if (kind == QAccessible::Value && binding::ready(m_proxy) && m_proxy.isAttached())
        return binding::display(m_proxy, binding::read(m_proxy), binding::range(m_proxy)).text;
    return QAccessibleWidget::text(kind);
}

int BoundAccessible::channel() const
{
    return m_proxy.element + m_proxy.elementOffset();
}

BoundSliderAccessible::BoundSliderAccessible(QAbstractSlider *slider, TMemProxy &proxy,
                                             QAccessible::Role role)
    : BoundAccessible(slider, proxy, role)
{
}

void *BoundSliderAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface *>(this);
    return BoundAccessible::interface_cast(type);
}

QStringList BoundSliderAccessible::actionNames() const
{
    return QStringList{increaseAction(), decreaseAction()} + BoundAccessible::actionNames();
}

void BoundSliderAccessible::doAction(const QString &name)
{
    if (name == increaseAction())
        slider()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    else if (name == decreaseAction())
        slider()->triggerAction(QAbstractSlider::SliderSingleStepSub);
    else
        BoundAccessible::doAction(name);
}

QVariant BoundSliderAccessible::currentValue() const
{
    return slider()->value();
}

void BoundSliderAccessible::setCurrentValue(const QVariant &value)
{
    slider()->setValue(value.toInt());
}

QVariant BoundSliderAccessible::maximumValue() const
{
    return slider()->maximum();
}

QVariant BoundSliderAccessible::minimumValue() const
{
    return slider()->minimum();
}

QVariant BoundSliderAccessible::minimumStepSize() const
{
    return slider()->singleStep();
}

QAbstractSlider *BoundSliderAccessible::slider() const
{
    return static_cast<QAbstractSlider *>(object());
}

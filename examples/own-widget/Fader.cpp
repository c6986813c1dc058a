// SPDX-License-Identifier: MIT
#include "Fader.h"

#include "widgets/binding/Binding.h"
#include "widgets/binding/BoundAccessible.h"

namespace {

/// Assistive tools get the display text as the value, and the address in words as the name.
QAccessibleInterface *makeAccessible(const QString &className, QObject *object)
{
    auto *fader = className == QLatin1String("Fader") ? qobject_cast<Fader *>(object) : nullptr;
    return fader ? new BoundSliderAccessible(fader, *fader, QAccessible::Slider) : nullptr;
}

} // namespace

Fader::Fader(QWidget *parent) : QSlider(Qt::Vertical, parent)
{
    [[maybe_unused]] static const bool speaks = (QAccessible::installFactory(makeAccessible), true);
    setFocusPolicy(Qt::WheelFocus);
}

// First of all, while the object is whole: afterwards no thread is inside process().
Fader::~Fader()
{
    leaveMemory();
}

void Fader::connectMemAPI()
{
    if (!binding::ready(*this))
        return;
    binding::attach(*this);
    process(nullptr, Refresh, 1);
}

void Fader::disconnectMemAPI()
{
    binding::detach(*this);
}

/// The memory has news, on whichever thread; the widget is touched on the GUI thread only.
void Fader::process(const Q_UINT8 *data, int operation, Q_UINT32 extra)
{
    if (!binding::ready(*this) || binding::handOverToMainThread(*this))
        return;
    setWidgetShowState(this);
    const int value = binding::incomingValue(*this, data, operation);
    const binding::Range bounds = binding::range(*this);
    const int before = this->value();
    // Silent: what comes from the memory is not written back. A slot may have destroyed this object.
    const binding::SilentScope silent(*this, operation);
    setRange(bounds.minimum, bounds.maximum);
    if (silent)
        setValue(value);
    if (silent && extra == 1 && before == this->value())
        announce();
}

/// Every change of the value ends here, the operator's and the memory's.
void Fader::sliderChange(SliderChange change)
{
    QSlider::sliderChange(change);
    if (change != SliderValueChange || !binding::ready(*this))
        return;
    if (!isSilent()) {
        // The memory may have made another value of it.
        const int stored = binding::write(*this, value());
        const binding::SilentScope silent(*this);
        setValue(stored);
        if (!silent)
            return;
    }
    announce();
}

void Fader::announce()
{
    binding::announce(*this, value(), {minimum(), maximum()});
}

/// From press to release is one step of undo.
void Fader::mousePressEvent(QMouseEvent *event)
{
    binding::beginGesture(*this);
    QSlider::mousePressEvent(event);
}

void Fader::mouseReleaseEvent(QMouseEvent *event)
{
    const QPointer<Fader> alive(this);
    QSlider::mouseReleaseEvent(event);
    if (alive)
        binding::endGesture(*this);
}

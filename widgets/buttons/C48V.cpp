// SPDX-License-Identifier: MIT
#include "widgets/buttons/C48V.h"

#include "interfaces/utilities/NS_Utilities.h"
#include "widgets/binding/Binding.h"
#include "widgets/binding/PhantomPatch.h"

struct C48V::Private
{
    PhantomPatch patch;
};

C48V::C48V(QWidget *parent, const char *name)
    : COnOffButton(parent, name), d(std::make_unique<Private>())
{
}

C48V::~C48V()
{
    leaveMemory();
}

QString C48V::xtraInfo() const
{
    return d->patch.xtraInfo();
}

void C48V::setXtraInfo(const QString &text)
{
    d->patch.setXtraInfo(text);
}

qint16 C48V::baseElement() const
{
    return d->patch.baseElement();
}

qint16 C48V::baseIndex() const
{
    return d->patch.baseIndex();
}

IMemAPI::TSingleBaseAddress C48V::valueAddress() const
{
    return d->patch.address();
}

void C48V::connectMemAPI()
{
    if (!memAPI())
        return;
    d->patch.attach(*this, *this);
    const binding::SilentScope silent(*this);
    process(nullptr, Refresh, 0);
}

void C48V::disconnectMemAPI()
{
    d->patch.detach(*this);
}

void C48V::handle_patchInChange(int)
{
    d->patch.reattach(*this);
}

int C48V::clip() const
{
    return boolClipValue() == 0 ? 1 : boolClipValue();
}

void C48V::process(const Q_UINT8 *bytes, int operation, Q_UINT32 extra)
{
    if (!binding::ready(*this) || binding::handOverToMainThread(*this))
        return;
    if (isEnabled() != d->patch.isAttachedByAddress()) {
        setEnabled(d->patch.isAttachedByAddress());
        updateErasePixmap(nullptr);
    }
    if (operation > Copy)
        return;
    // Deliberate: the default is that of the channel's own parameter.
    const int value = operation == ResetToDefault
                          ? memAPI()->readDefault(TMemProxy::group, index, element, false, nullptr)
                          : binding::incomingValue(*this, bytes, operation);
    if (operation == Copy)
        return;
    // Deliberate: a clip value above 1 is written but never recognised.
    const bool on = ((value != 0 ? 1 : 0) == clip()) != invertedLogic();
    handleProcessChange(operation, on, extra != 0);
}

void C48V::handleStateChanged(int state)
{
    if (!NS_Utilities::mainThreadRunning() || !memAPI())
        return;
    int value = state == On ? clip() : 0;
    if (invertedLogic())
        value = value != 0 ? 0 : clip();
    const QPointer<C48V> self(this);
    if (binding::ready(*this) && !isSilent())
        binding::writeAsOwnStep(*this, value);
    if (self)
        updateErasePixmap(nullptr);
}

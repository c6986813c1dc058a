// SPDX-License-Identifier: MIT
#include "widgets/controls/C48VDial.h"

#include "interfaces/utilities/NS_Utilities.h"
#include "widgets/binding/Binding.h"
#include "widgets/binding/PhantomPatch.h"

struct C48VDial::Private
{
    PhantomPatch patch;
};

C48VDial::C48VDial(QWidget *parent, const char *name)
    : CDial(parent, name), d(std::make_unique<Private>())
{
    drawsLikeDial(typeid(C48VDial));
}

C48VDial::~C48VDial()
{
    leaveMemory();
}

QString C48VDial::xtraInfo() const
{
    return d->patch.xtraInfo();
}

void C48VDial::setXtraInfo(const QString &text)
{
    d->patch.setXtraInfo(text);
}

qint16 C48VDial::baseElement() const
{
    return d->patch.baseElement();
}

qint16 C48VDial::baseIndex() const
{
    return d->patch.baseIndex();
}

IMemAPI::TSingleBaseAddress C48VDial::valueAddress() const
{
    return d->patch.address();
}

void C48VDial::connectMemAPI()
{
    if (!memAPI())
        return;
    d->patch.attach(*this, *this);
    const binding::SilentScope silent(*this);
    process(nullptr, Refresh, 0);
}

void C48VDial::disconnectMemAPI()
{
    d->patch.detach(*this);
}

void C48VDial::handle_patchInChange(int)
{
    d->patch.reattach(*this);
}

void C48VDial::process(const Q_UINT8 *bytes, int operation, Q_UINT32 extra)
{
    if (binding::ready(*this) && NS_Utilities::mainThreadRunning())
        setEnabled(d->patch.isAttachedByAddress());
    CDial::process(bytes, operation, extra);
}

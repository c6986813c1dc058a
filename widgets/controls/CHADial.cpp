// SPDX-License-Identifier: MIT
#include "widgets/controls/CHADial.h"

#include "interfaces/CSimpleNotifier.h"
#include "widgets/binding/Binding.h"

namespace {

/// Whether a channel has a head amp: a parameter of the console, one element per input.
constexpr int ConnectedGroup = 420;
constexpr int ConnectedIndex = 2;

} // namespace

CHADial::CHADial(QWidget *parent, const char *name) : CDial(parent, name)
{
    drawsLikeDial(typeid(CHADial));
}

CHADial::~CHADial()
{
    leaveMemory();
}

void CHADial::connectMemAPI()
{
    if (!binding::ready(*this))
        return;
    // Deliberate: nobody keeps these, so that every attach adds a pair.
    for (const char *name : {"FEkPatchInInput/kPatchIn", "FEkBackupInputHA/kHAConnected"})
        CSimpleNotifier::Create(*memAPI(), this, QLatin1String(name), element,
                                SLOT(handle_patchInChange(int)), nullptr, nullptr);
    CDial::connectMemAPI();
}

void CHADial::handle_patchInChange(int)
{
    if (!memAPI())
        return;
    const bool connected = memAPI()->readValue(ConnectedGroup, ConnectedIndex, element, 0, 0) != 0;
    const QPointer<CHADial> self(this);
    setVisible(connected);
    if (self)
        Q_EMIT changePatchIn(connected);
}

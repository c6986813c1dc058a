// SPDX-License-Identifier: MIT
#include "widgets/buttons/CSelectButton.h"

#include "interfaces/CSimpleNotifier.h"
#include "interfaces/utilities/NS_Utilities.h"
#include "widgets/binding/Binding.h"
#include "widgets/buttons/BlinkStep.h"
#include "widgets/buttons/KeyAccessible.h"

namespace {

constexpr quint32 ChannelMask = 0xFFFF;
constexpr int BaseShift = 16;
/// A channel number that no console selects.
constexpr quint32 UnboundChannel = 0x7FFF;
/// Channels 2k and 2k + 1 are partners.
constexpr int PartnerBit = 1;

const QString &pairList()
{
    static const QString list = QStringLiteral("FEkInputPair/kPair;10FEkMixPair/kPair;"
                                               "08FEkMatrixPair/kPair;03FEkStereoPair/kPair");
    return list;
}

const QString &groupList()
{
    static const QString list =
        QStringLiteral("FEkGroupID_Input/kGroupID;10FEkGroupID_Mix/kGroupID;"
                       "08FEkGroupID_Matrix/kGroupID;03FEkGroupID_Stereo/kGroupID");
    return list;
}

/// All select keys have the same address: their numbers tell them apart.
class SelectKeyAccessible : public KeyAccessible
{
public:
    using KeyAccessible::KeyAccessible;

protected:
    int channel() const override { return static_cast<CSelectButton *>(key())->channelNumber(); }
};

QAccessibleInterface *makeAccessible(const QString &className, QObject *object)
{
    auto *key = className == QLatin1String("CSelectButton") ? qobject_cast<CSelectButton *>(object)
                                                            : nullptr;
    return key ? new SelectKeyAccessible(key) : nullptr;
}

} // namespace

struct CSelectButton::Private
{
    quint32 selectWord = UnboundChannel; ///< base offset above, own channel number below
    qint16 givenElement = 0;             ///< the element that the address came with
    bool registered = false;
    bool blinking = false;
    bool pairMode = false;
    QPointer<CSimpleNotifier> pair;
    QPointer<CSimpleNotifier> selectedGroup;
    QPointer<CSimpleNotifier> channelGroup;
    QPointer<BlinkStep> step;
};

CSelectButton::CSelectButton(QWidget *parent, const char *name)
    : COnOffButton(parent, name), d(std::make_unique<Private>())
{
    [[maybe_unused]] static const bool speaks = (QAccessible::installFactory(makeAccessible), true);
}

CSelectButton::~CSelectButton()
{
    d->blinking = false;
    leaveMemory();
}

unsigned int CSelectButton::selBaseOffset() const
{
    return d->selectWord >> BaseShift;
}

void CSelectButton::setselBaseOffset(unsigned int offset)
{
    d->selectWord = (offset << BaseShift) | (d->selectWord & ChannelMask);
}

int CSelectButton::channelNumber() const
{
    return static_cast<int>(d->selectWord & ChannelMask);
}

bool CSelectButton::blinkingMode() const
{
    return d->blinking;
}

// Binding ---------------------------------------------------------------------------------------

void CSelectButton::connectMemAPI()
{
    if (!binding::ready(*this))
        return;
    const binding::SilentScope silent(*this);
    if (isAttached()) {
        takeChannelNumber();
        binding::attach(*this);
        makeNotifiers();
    }
    if (silent)
        process(nullptr, Refresh, 0);
}

void CSelectButton::takeChannelNumber()
{
    const quint32 own = selBaseOffset() + static_cast<quint32>(elementOffset() + element);
    d->selectWord = (d->selectWord & ~ChannelMask) | (own & ChannelMask);
    d->givenElement = element;
    d->registered = true;
    element = 0;
}

void CSelectButton::makeNotifiers()
{
    if (!d->pair) {
        d->pair = notifier(pairList(), SLOT(pairModeChanged(int)));
        if (d->pair)
            pairModeChanged(d->pair->value());
    }
    if (!d->selectedGroup)
        d->selectedGroup = notifier(groupList(), SLOT(selGroupChanged(int)));
    if (!d->channelGroup) {
        d->channelGroup = notifier(groupList(), SLOT(chGroupChanged(int)));
        if (d->channelGroup)
            chGroupChanged(d->channelGroup->value());
    }
}

CSimpleNotifier *CSelectButton::notifier(const QString &names, const char *slot)
{
    return CSimpleNotifier::Create(*memAPI(), this, names, channelNumber(), slot, nullptr, nullptr);
}

void CSelectButton::disconnectMemAPI()
{
    delete d->pair;
    delete d->channelGroup;
    delete d->selectedGroup;
    // Nobody tells any longer when it is to end.
    stopBlinking();
    binding::detach(*this);
    // The number is to come out the same when the same address is attached again.
    if (d->registered)
        element = d->givenElement;
    d->registered = false;
}

void CSelectButton::process(const Q_UINT8 *bytes, int operation, Q_UINT32)
{
    if (!binding::ready(*this) || binding::handOverToMainThread(*this))
        return;
    setWidgetShowState(this);
    // Deliberate: the alternative default is not for keys.
    if (operation > Copy)
        return;
    const int value = binding::incomingValue(*this, bytes, operation);
    if (operation == Copy)
        return;
    if (d->selectedGroup)
        memAPI()->selectAltAddress(d->selectedGroup->valueHolder(), value);
    checkBlinkState();
    const bool on = value == channelNumber();
    if (on == (state() != Off))
        return;
    const binding::SilentScope silent(*this, operation);
    setOn(on);
}

void CSelectButton::handleStateChanged(int state)
{
    if (!NS_Utilities::mainThreadRunning() || !memAPI())
        return;
    const QPointer<CSelectButton> self(this);
    const bool clicked = setClicked(false);
    const int selected = binding::read(*this);
    if (state == On) {
        if (!isSilent())
            binding::writeAsOwnStep(*this, channelNumber());
    } else if (selected == channelNumber() && !isOn()) {
        // Deliberate: the selected channel's key cannot be clicked off.
        const binding::SilentScope silent(*this);
        setOn(true);
    }
    if (!self)
        return;
    updateErasePixmap(nullptr);
    repaint();
    setClicked(clicked);
}

// Links to the selected channel -----------------------------------------------------------------

void CSelectButton::pairModeChanged(int value)
{
    const bool on = value != 0;
    if (on == d->pairMode)
        return;
    d->pairMode = on;
    checkBlinkState();
}

void CSelectButton::chGroupChanged(int)
{
    checkBlinkState();
}

void CSelectButton::selGroupChanged(int)
{
    checkBlinkState();
}

bool CSelectButton::isLinkedTo(int selected) const
{
    if (selected == channelNumber())
        return false;
    if (d->channelGroup && d->selectedGroup) {
        const int group = d->selectedGroup->value();
        if (group != 0 && group == d->channelGroup->value())
            return true;
    }
    return d->pairMode && (selected & ~PartnerBit) == (channelNumber() & ~PartnerBit);
}

void CSelectButton::checkBlinkState()
{
    if (!memAPI())
        return;
    if (!isLinkedTo(binding::read(*this))) {
        stopBlinking();
        return;
    }
    if (d->blinking)
        return;
    QObject *clock = memAPI()->blinkClock(nullptr, 0);
    if (!clock)
        return;
    d->blinking = true;
    d->step = BlinkStep::of(*clock);
    connect(d->step, &BlinkStep::step, this, &CSelectButton::doBlink);
}

void CSelectButton::stopBlinking()
{
    if (!d->blinking)
        return;
    d->blinking = false;
    if (d->step)
        disconnect(d->step, &BlinkStep::step, this, &CSelectButton::doBlink);
    if (memAPI())
        doBlink();
}

void CSelectButton::doBlink()
{
    if (!NS_Utilities::mainThreadRunning())
        return;
    updateErasePixmap(nullptr);
    BlinkStep::repaint(*this);
}

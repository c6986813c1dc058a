// SPDX-License-Identifier: MIT
#include "widgets/meters/CMeter.h"

#include "interfaces/utilities/NS_Utilities.h"
#include "widgets/binding/Binding.h"
#include "widgets/binding/ShownTextAccessible.h"
#include "widgets/meters/CMeterPrivate.h"
#include "widgets/meters/MeterWatch.h"

MeterScale CMeter::s_meterLevels = MeterScale::normal();
MeterScale CMeter::s_meterLevels_SIGMA = MeterScale::sigma();
MeterScale CMeter::s_meterLevels_Layer = MeterScale::layer();
MeterScale CMeter::s_meterLevels_SelCh = MeterScale::selectedChannel();
MeterScale CMeter::s_meterLevels_CompOut = MeterScale::compressorOut();
MeterScale CMeter::s_meterLevels_Effect = MeterScale::selectedChannel();
MeterScale CMeter::s_meterLevels_GR = MeterScale::reduction();
MeterScale CMeter::s_meterLevels_CompGR = MeterScale::compressorReduction();
MeterScale CMeter::s_meterLevels_GR_SelCh = MeterScale::reductionSelectedChannel();
MeterScale CMeter::s_meterLevels_GR_Effect = MeterScale::reductionEffect();
bool CMeter::s_meterLevels_constructed = false;

CMeter::CMeter(QWidget *parent, const char *name)
    : QWidget(parent), d(std::make_unique<Private>(*this))
{
    ShownTextAccessible<CMeter>::install<QAccessible::Indicator>();
    if (name)
        setObjectName(QLatin1StringView(name));
    setNumDefaultKind(0);
    setUndoEnable(false);
    CalculateMeterTablePixelOffsets();
    setupMeterTable();
}

CMeter::~CMeter()
{
    leaveMemory();
}

void CMeter::CalculateMeterTablePixelOffsets()
{
    if (s_meterLevels_constructed || !NS_Utilities::mainThreadRunning())
        return;
    s_meterLevels_constructed = true;
    // Deliberate: s_meterLevels_CompGR stays as written.
    for (MeterScale *scale : {&s_meterLevels, &s_meterLevels_SIGMA, &s_meterLevels_Layer,
                              &s_meterLevels_SelCh, &s_meterLevels_CompOut, &s_meterLevels_Effect,
                              &s_meterLevels_GR, &s_meterLevels_GR_SelCh, &s_meterLevels_GR_Effect})
        scale->sumUp();
}

/// Null for a selector that stands for no scale.
const MeterScale *CMeter::scaleOf(EMeterSelector selector)
{
    switch (selector) {
    case eMtr_Normal: return &s_meterLevels;
    case eMtr_Sigma: return &s_meterLevels_SIGMA;
    case eMtr_Layer: return &s_meterLevels_Layer;
    case eMtr_SelCh: return &s_meterLevels_SelCh;
    case eMtr_CompOut: return &s_meterLevels_CompOut;
    case eMtr_Normal_Eff: return &s_meterLevels_Effect;
    case eMtr_GR: return &s_meterLevels_GR;
    case eMtr_CompGR: return &s_meterLevels_CompGR;
    case eMtr_GR_SelCh: return &s_meterLevels_GR_SelCh;
    case eMtr_GR_Eff: return &s_meterLevels_GR_Effect;
    case eMtr_Normal_Offset:
    case eMtr_GR_Offset: break;
    }
    return nullptr;
}

void CMeter::setupMeterTable()
{
    const EMeterSelector selector = d->selector;
    if (const MeterScale *scale = scaleOf(selector))
        d->scale = scale;
    const MeterScale &scale = *d->scale;
    d->scaling.setScale(scale, height());
    d->scaling.setKind(reductionMode()          ? MeterPicture::Kind::Reduction
                       : selector == eMtr_Sigma ? MeterPicture::Kind::Lamp
                                                : MeterPicture::Kind::Level);
    // Deliberate: a reduction starts one row past its scale, which is drawn as the last one.
    const int level = reductionMode() ? scale.rowCount() : minValue();
    d->reading = Private::Reading{static_cast<quint16>(level), 0, 0, 0};
    d->shownPeak = 0;
    setRange(0, scale.rowCount());
    setValue(level);
    d->shown = Private::Shown{value(), d->shownPeak};
    refreshPicture();
}

bool CMeter::peakHoldEnabled() const
{
    return d->peakHoldEnabled;
}

void CMeter::setPeakHoldEnabled(bool enabled)
{
    if (enabled == d->peakHoldEnabled)
        return;
    d->peakHoldEnabled = enabled;
    valueChange();
}

CMeter::EMeterSelector CMeter::meterSelector() const
{
    return d->selector;
}

void CMeter::setMeterSelector(EMeterSelector selector)
{
    if (selector == d->selector)
        return;
    d->selector = selector;
    setupMeterTable();
}

QPixmap CMeter::meterBgndImage() const
{
    return d->unlit;
}

void CMeter::setMeterBgndImage(const QPixmap &picture)
{
    d->unlit = picture;
    refreshPicture();
}

QPixmap CMeter::meterImage() const
{
    return d->lit;
}

void CMeter::setMeterImage(const QPixmap &picture)
{
    d->lit = picture;
    if (!picture.isNull()) {
        setFixedSize(picture.deviceIndependentSize().toSize());
        d->scaling.setVertical(picture.width() < picture.height());
        setupMeterTable();
    }
    refreshPicture();
}

void CMeter::setChangeMeterImage(const QPixmap &picture)
{
    d->lit = picture;
    refreshPicture();
}

bool CMeter::reductionMode() const
{
    return d->selector > eMtr_GR_Offset;
}

int CMeter::available() const
{
    return d->scaling.isVertical() ? height() : width();
}

int CMeter::meterLevelIndex(unsigned short code) const
{
    return d->scale.load()->indexOf(code);
}

QString CMeter::shownText() const
{
    return metering::levelText(*this, d->reading.load().levelCode);
}

// Readings --------------------------------------------------------------------------------------

void CMeter::connectMemAPI()
{
    if (!binding::ready(*this))
        return;
    if (isAttached())
        metering::watch(*this, true, SIGNAL(onlineChanged(bool)), SLOT(onlineChange(bool)));
    resetMeter();
}

void CMeter::disconnectMemAPI()
{
    if (binding::ready(*this) && isAttached())
        metering::watch(*this, false, SIGNAL(onlineChanged(bool)), SLOT(onlineChange(bool)));
    setAttached(false);
}

void CMeter::process(const Q_UINT8 *bytes, int operation, Q_UINT32)
{
    if (operation != Refresh)
        return;
    if (bytes)
        decode(bytes);
    if (d->shown.load().shows(d->reading))
        return;
    if (!binding::handOverToMainThread(*this))
        showReading();
}

/// Any thread.
void CMeter::decode(const Q_UINT8 *bytes)
{
    Private::Reading next = d->reading;
    const MeterScale &scale = *d->scale;
    next.levelCode = metering::levelCode(bytes);
    next.level = static_cast<quint16>(scale.indexOf(next.levelCode));
    if (d->peakHoldEnabled && !reductionMode()) {
        const quint16 peakCode = metering::levelCode(bytes + 2);
        if (peakCode != next.peakCode) {
            next.peakCode = peakCode;
            next.peak = static_cast<quint16>(scale.indexOf(peakCode));
        }
    }
    d->reading = next;
}

void CMeter::showReading()
{
    Private::Reading now;
    Private::Reading next = d->reading;
    do {
        now = next;
        d->repaintPending = true;
        d->shownPeak = now.peak;
        setValue(now.level);
        if (d->repaintPending)
            valueChange();
        next = d->reading;
    } while (next.level != now.level || next.peak != now.peak);
}

void CMeter::valueChange()
{
    if (!NS_Utilities::mainThreadRunning())
        return;
    d->repaintPending = false;
    d->shown = Private::Shown{value(), d->shownPeak};
    pictureChanged();
}

void CMeter::onlineChange(bool online)
{
    if (online == d->online)
        return;
    d->online = online;
    if (!online)
        resetMeter();
}

void CMeter::resetMeter()
{
    if (!NS_Utilities::mainThreadRunning())
        return;
    // Deliberate: the last row of a reduction's scale, where setupMeterTable() goes one past it.
    const int level = reductionMode() ? maxValue() - 1 : minValue();
    d->reading = Private::Reading{static_cast<quint16>(level), 0, 0, 0};
    d->shownPeak = 0;
    setValue(level);
    d->shown = Private::Shown{value(), d->shownPeak};
    d->pictureStale = true;
    pictureChanged();
}

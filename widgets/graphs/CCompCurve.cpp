// SPDX-License-Identifier: MIT
#include "widgets/graphs/CCompCurve.h"

#include "widgets/binding/Binding.h"
#include "widgets/binding/PendingEmissions.h"
#include "widgets/binding/ShownTextAccessible.h"
#include "widgets/graphs/BlockParameters.h"
#include "widgets/graphs/DynamicsGraph.h"
#include "widgets/graphs/DynamicsLaw.h"
#include "widgets/graphs/SegmentPlotter.h"
#include "widgets/painting/ErasePixmap.h"
#include "widgets/painting/Opacity.h"

#include <QPainter>

#include <array>

using blockparameters::Reading;

namespace {

struct Readings
{
    Reading threshold, gain, knee, ratio;
    int kind = 0;

    friend bool operator==(const Readings &, const Readings &) = default;
};

/// The threshold first: what the graph is bound to.
std::array<qint16, 5> indices(const TMemProxy &proxy)
{
    using namespace dynamicsgraph;
    return {proxy.index, GainIndex, KneeIndex, RatioIndex, TypeIndex};
}

} // namespace

struct CCompCurve::Private
{
    Readings readings;
    bool told = false; ///< the value signals have told the threshold
    PendingEmissions pending;
    ErasePixmap erase;
};

CCompCurve::CCompCurve(QWidget *parent, const char *name)
    : QWidget(parent), d(std::make_unique<Private>())
{
    ShownTextAccessible<CCompCurve>::install<QAccessible::Chart>();
    if (name)
        setObjectName(QLatin1String(name));
    opacity::set(*this, true);
    setDisabledUI(true);
}

CCompCurve::~CCompCurve()
{
    leaveMemory();
}

// Picture ---------------------------------------------------------------------------------------

QPixmap CCompCurve::paletteBackgroundPixmap() const
{
    return palette().brush(backgroundRole()).texture();
}

void CCompCurve::setPaletteBackgroundPixmap(const QPixmap &picture)
{
    QBrush brush(palette().color(backgroundRole()));
    if (!picture.isNull())
        brush.setTexture(picture);
    QPalette changed = palette();
    changed.setBrush(backgroundRole(), brush);
    setPalette(changed);
}

QSize CCompCurve::sizeHint() const
{
    const QPixmap texture = paletteBackgroundPixmap();
    return texture.isNull() ? dynamicsgraph::SizeWithoutPicture
                            : texture.deviceIndependentSize().toSize();
}

void CCompCurve::repaintScreenPrimitive(QPainter &painter)
{
    dynamicsgraph::drawGround(painter, *this, paletteBackgroundPixmap(),
                              palette().color(backgroundRole()));
    const Readings &now = d->readings;
    const DynamicsLaw law({now.kind, now.threshold.limited(), now.ratio.value, now.knee.value,
                           now.gain.value, now.gain.maximum});
    if (law.hasCurve())
        dynamicsgraph::CurvePainter(painter, *this).plotToFit([&law](int input) {
            return law.output(input);
        });
}

void CCompCurve::updateErasePixmap(QPixmap *)
{
    d->erase.invalidate();
}

QPixmap CCompCurve::erasePixmap()
{
    return d->erase.pixmap(*this);
}

void CCompCurve::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    opacity::set(*this, true);
    repaintScreenPrimitive(painter);
}

void CCompCurve::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange && event->type() != QEvent::EnabledChange)
        return;
    updateErasePixmap(nullptr);
    updateGeometry();
    update();
}

// Binding ---------------------------------------------------------------------------------------

void CCompCurve::connectMemAPI()
{
    if (!binding::ready(*this))
        return;
    {
        const binding::SilentScope silent(*this);
        blockparameters::attach(*this, indices(*this));
    }
    updateErasePixmap(nullptr);
    update();
}

void CCompCurve::disconnectMemAPI()
{
    blockparameters::detach(*this, indices(*this));
}

void CCompCurve::process(const Q_UINT8 *, int operation, Q_UINT32 extra)
{
    if (operation != Refresh || !binding::ready(*this))
        return;
    if (binding::handOverToMainThread(*this))
        return;
    setWidgetShowState(this);
    Readings now;
    now.threshold = blockparameters::read(*this, index);
    now.gain = blockparameters::read(*this, dynamicsgraph::GainIndex);
    now.knee = blockparameters::read(*this, dynamicsgraph::KneeIndex);
    now.ratio = blockparameters::read(*this, dynamicsgraph::RatioIndex);
    now.kind =
        DynamicsLaw::kindOf(group, blockparameters::readValue(*this, dynamicsgraph::TypeIndex));
    const bool moved = now.threshold != d->readings.threshold;
    if (now != d->readings) {
        d->readings = now;
        updateErasePixmap(nullptr);
        update();
    }
    if (moved || !d->told || extra == 1)
        tell();
}

void CCompCurve::tell()
{
    if (signalsBlocked()) {
        d->pending.defer(this, [](QObject *object) {
            auto *curve = static_cast<CCompCurve *>(object);
            curve->d->pending.deferredCallCame();
            curve->tell();
        });
        return;
    }
    d->told = true;
    const Reading &threshold = d->readings.threshold;
    if (binding::ready(*this))
        binding::announce(*this, threshold.value, {threshold.minimum, threshold.maximum});
}

QString CCompCurve::shownText() const
{
    if (!binding::ready(*this) || !isAttached())
        return {};
    const auto textOf = [this](int parameter) { return blockparameters::text(*this, parameter); };
    return tr("%1, threshold %2, ratio %3, knee %4, gain %5")
        .arg(textOf(dynamicsgraph::TypeIndex), textOf(index), textOf(dynamicsgraph::RatioIndex),
             textOf(dynamicsgraph::KneeIndex), textOf(dynamicsgraph::GainIndex));
}

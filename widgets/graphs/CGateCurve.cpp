// SPDX-License-Identifier: MIT
#include "widgets/graphs/CGateCurve.h"

#include "widgets/binding/Binding.h"
#include "widgets/binding/PendingEmissions.h"
#include "widgets/binding/ShownTextAccessible.h"
#include "widgets/graphs/BlockParameters.h"
#include "widgets/graphs/DynamicsGraph.h"
#include "widgets/graphs/SegmentPlotter.h"
#include "widgets/painting/ErasePixmap.h"
#include "widgets/painting/Opacity.h"

#include <QPainter>

#include <array>

using blockparameters::Reading;

namespace {

/// The type; every other one is ducking.
constexpr int GateType = 0;

std::array<qint16, 3> indices(const TMemProxy &proxy)
{
    return {proxy.index, dynamicsgraph::RangeIndex, dynamicsgraph::TypeIndex};
}

} // namespace

struct CGateCurve::Private
{
    int output(int input) const;

    Reading threshold; ///< tenths of a dB
    Reading range;     ///< dB
    int type = GateType;
    bool told = false; ///< the value signals have told the threshold
    PendingEmissions pending;
    QPixmap picture;
    ErasePixmap erase;
};

/// A gate lets through what is above the threshold, ducking what is not.
int CGateCurve::Private::output(int input) const
{
    const bool above = input > threshold.value / 10;
    return above == (type == GateType) ? input : input + range.value;
}

CGateCurve::CGateCurve(QWidget *parent, const char *name)
    : QWidget(parent), d(std::make_unique<Private>())
{
    ShownTextAccessible<CGateCurve>::install<QAccessible::Chart>();
    if (name)
        setObjectName(QLatin1String(name));
    opacity::set(*this, true);
    setDisabledUI(true);
}

CGateCurve::~CGateCurve()
{
    leaveMemory();
}

// Picture ---------------------------------------------------------------------------------------

QPixmap CGateCurve::pixmap() const
{
    return d->picture;
}

void CGateCurve::setPixmap(const QPixmap &picture)
{
    d->picture = picture;
    updateGeometry();
    pictureChanged();
}

QSize CGateCurve::sizeHint() const
{
    return d->picture.isNull() ? dynamicsgraph::SizeWithoutPicture
                               : d->picture.deviceIndependentSize().toSize();
}

void CGateCurve::repaintScreenPrimitive(QPainter &painter)
{
    dynamicsgraph::drawGround(painter, *this, d->picture,
                              d->picture.isNull() ? QBrush(dynamicsgraph::GroundColour)
                                                  : palette().brush(backgroundRole()));
    dynamicsgraph::CurvePainter(painter, *this).plotPixelPerDecibel([this](int input) {
        return d->output(input);
    });
}

void CGateCurve::updateErasePixmap(QPixmap *)
{
    d->erase.invalidate();
}

QPixmap CGateCurve::erasePixmap()
{
    return d->erase.pixmap(*this);
}

void CGateCurve::pictureChanged()
{
    updateErasePixmap(nullptr);
    update();
}

void CGateCurve::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    opacity::set(*this, true);
    repaintScreenPrimitive(painter);
}

void CGateCurve::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange)
        pictureChanged();
}

// Binding ---------------------------------------------------------------------------------------

void CGateCurve::connectMemAPI()
{
    if (!binding::ready(*this))
        return;
    const binding::SilentScope silent(*this);
    blockparameters::attach(*this, indices(*this));
}

void CGateCurve::disconnectMemAPI()
{
    blockparameters::detach(*this, indices(*this));
}

void CGateCurve::process(const Q_UINT8 *, int operation, Q_UINT32 extra)
{
    if (operation != Refresh || !binding::ready(*this))
        return;
    if (binding::handOverToMainThread(*this))
        return;
    setWidgetShowState(this);
    const Reading before = d->threshold;
    d->threshold = blockparameters::read(*this, index);
    d->range = blockparameters::read(*this, dynamicsgraph::RangeIndex);
    d->type = blockparameters::readValue(*this, dynamicsgraph::TypeIndex);
    d->threshold.value = d->threshold.limited();
    d->range.value = d->range.limited();
    // Deliberate: drawn anew even when nothing has changed.
    pictureChanged();
    if (d->threshold != before || !d->told || extra == 1)
        tell();
}

void CGateCurve::tell()
{
    if (signalsBlocked()) {
        d->pending.defer(this, [](QObject *object) {
            auto *curve = static_cast<CGateCurve *>(object);
            curve->d->pending.deferredCallCame();
            curve->tell();
        });
        return;
    }
    d->told = true;
    if (binding::ready(*this))
        binding::announce(*this, d->threshold.value, {d->threshold.minimum, d->threshold.maximum});
}

QString CGateCurve::shownText() const
{
    if (!binding::ready(*this) || !isAttached())
        return {};
    const auto textOf = [this](int parameter) { return blockparameters::text(*this, parameter); };
    return tr("%1, threshold %2, range %3")
        .arg(textOf(dynamicsgraph::TypeIndex), textOf(index), textOf(dynamicsgraph::RangeIndex));
}

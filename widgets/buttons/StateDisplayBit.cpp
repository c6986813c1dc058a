// SPDX-License-Identifier: MIT
#include "widgets/buttons/StateDisplayBit.h"

#include "interfaces/utilities/NS_Utilities.h"
#include "widgets/binding/Binding.h"
#include "widgets/binding/ShownTextAccessible.h"
#include "widgets/binding/TCacheServer.h"
#include "widgets/painting/BatchedPicture.h"
#include "widgets/painting/ImageStrip.h"
#include "widgets/painting/Picture.h"

#include <QEvent>
#include <QPainter>

#include <limits>

namespace {

/// As many bits as a value has.
constexpr int MostBits = std::numeric_limits<unsigned>::digits;

bool bit(unsigned bits, int number)
{
    return number < MostBits && (bits >> number & 1U);
}

} // namespace

class StateDisplayBit::StateDisplayBit_PD : public TCachedData, public BatchedPicture
{
public:
    explicit StateDisplayBit_PD(StateDisplayBit &owner)
        : BatchedPicture(owner, typeid(StateDisplayBit))
    {
    }

    void describe(Picture &picture) const override;

    QPixmap onImage;
    QPixmap offImage;
    QPixmap composite;
    QList<quint32> attached; ///< where the display is registered
    unsigned shownBits = 0;  ///< what `composite` shows
    int value = 0;
    quint8 subImages = 0;
    bool multiMode : 1 = false;
    bool told : 1 = false;  ///< `value` came since the last attach
    bool stale : 1 = false; ///< the pictures or their division changed since composing

    bool canCompose() const
    {
        return subImages > 0 && onImage.width() > 0 && offImage.width() > 0
               && onImage.size() == offImage.size();
    }
    /// A lamp's strip, in the picture's own pixels.
    QRect strip(int number) const
    {
        return picturecells::cell(onImage, {1, subImages}, {0, number});
    }
    /// Where it stands in the widget.
    QRect place(int number) const
    {
        const QRectF own(strip(number));
        const qreal ratio = onImage.devicePixelRatio();
        return QRectF(own.topLeft() / ratio, own.size() / ratio).toAlignedRect();
    }
    /// Copies the strip of a lamp, lit or dark, to the composed picture.
    void copyStrip(QPainter &painter, int number, bool lit) const
    {
        painter.drawPixmap(strip(number), lit ? onImage : offImage, strip(number));
    }
};

// Deliberate: the name is dropped.
StateDisplayBit::StateDisplayBit(QWidget *parent, const char *)
    : QFrame(parent), d(std::make_unique<StateDisplayBit_PD>(*this))
{
    ShownTextAccessible<StateDisplayBit>::install<QAccessible::Indicator>();
    setNumDefaultKind(0);
    setUndoEnable(false);
    setFocusPolicy(Qt::ClickFocus);
}

StateDisplayBit::~StateDisplayBit()
{
    leaveMemory();
}

QPixmap StateDisplayBit::combinedOnImage() const
{
    return d->onImage;
}

void StateDisplayBit::setCombinedOnImage(const QPixmap &picture)
{
    d->onImage = picture;
    refreshPictures(picture);
}

QPixmap StateDisplayBit::combinedOffImage() const
{
    return d->offImage;
}

void StateDisplayBit::setCombinedOffImage(const QPixmap &picture)
{
    d->offImage = picture;
    refreshPictures(picture);
}

void StateDisplayBit::refreshPictures(const QPixmap &picture)
{
    setFixedSize(picture.deviceIndependentSize().toSize());
    d->stale = true;
    reCalc();
}

int StateDisplayBit::nSubImages() const
{
    return d->subImages;
}

void StateDisplayBit::setnSubImages(int count)
{
    // Deliberate: eight bits, so 260 is 4.
    d->subImages = static_cast<quint8>(count);
    d->stale = true;
    reCalc();
}

bool StateDisplayBit::multiMode() const
{
    return d->multiMode;
}

void StateDisplayBit::setMultiMode(bool multi)
{
    d->multiMode = multi;
}

int StateDisplayBit::value() const
{
    return d->value;
}

void StateDisplayBit::setValue(int value)
{
    if (!NS_Utilities::mainThreadRunning() || (d->told && value == d->value))
        return;
    d->told = true;
    d->value = value;
    reCalc();
    announce();
}

QPixmap StateDisplayBit::erasePixmap() const
{
    return d->composite;
}

int StateDisplayBit::getBitParam() const
{
    if (!memAPI())
        return 0;
    if (!d->multiMode)
        return binding::read(*this);
    unsigned bits = 0;
    for (int number = d->subImages - 1; number >= 0; --number) {
        const bool on = memAPI()->readValue(group, index + number, element, 0, 0) != 0;
        bits = bits << 1 | (on ? 1U : 0U);
    }
    return static_cast<int>(bits);
}

void StateDisplayBit::reCalc()
{
    if (!memAPI() || !d->canCompose())
        return;
    const bool whole = d->stale || d->composite.isNull();
    QRegion changed;
    setFixedSize(d->onImage.deviceIndependentSize().toSize());
    // Deliberate: the memory is asked again; the value that was told does not count.
    const auto bits = static_cast<unsigned>(getBitParam());
    QPixmap composite = whole ? d->offImage : std::exchange(d->composite, QPixmap());
    {
        QPainter painter(&composite);
        painter.scale(1 / composite.devicePixelRatio(), 1 / composite.devicePixelRatio());
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        for (int number = 0; number < d->subImages; ++number) {
            const bool shown = !whole && bit(d->shownBits, number);
            if (bit(bits, number) == shown)
                continue;
            d->copyStrip(painter, number, !shown);
            changed += d->place(number);
        }
    }
    d->shownBits = bits;
    d->stale = false;
    setErasePixmap(composite);
    if (whole)
        d->changed();
    else if (!changed.isEmpty())
        d->changed(changed);
}

void StateDisplayBit::setErasePixmap(const QPixmap &picture)
{
    d->composite = picture;
    const bool opaque = !picture.isNull() && !picture.hasAlphaChannel();
    if (opaque != d->isOpaque())
        d->setOpaque(opaque);
}

QSize StateDisplayBit::sizeHint() const
{
    return d->onImage.isNull() ? QFrame::sizeHint() : minimumSize();
}

/// Each lamp by itself, so that its neighbours do not bleed into it, and below them what does not divide.
void StateDisplayBit::StateDisplayBit_PD::describe(Picture &picture) const
{
    if (composite.isNull() || stale || !canCompose()) {
        picture.add(composite, composite.rect());
        return;
    }
    const qreal ratio = onImage.devicePixelRatio();
    for (int number = 0; number < subImages; ++number) {
        const QRect lamp = strip(number);
        picture.add(bit(shownBits, number) ? onImage : offImage, lamp, {0, lamp.top() / ratio});
    }
    const int end = strip(0).height() * subImages;
    picture.add(offImage, offImage.rect().adjusted(0, end, 0, 0), {0, end / ratio});
}

void StateDisplayBit::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    d->paint(painter, *event);
}

// Binding ---------------------------------------------------------------------------------------

void StateDisplayBit::connectMemAPI()
{
    const binding::SilentScope silent(*this);
    if (!binding::ready(*this))
        return;
    d->told = false;
    const int count = d->multiMode ? d->subImages : 1;
    for (int number = 0; number < count; ++number) {
        d->attached.append(packedAddress(group, static_cast<qint16>(index + number), element));
        memAPI()->attachProxy(this, d->attached.constLast(), 0);
    }
    process(nullptr, Refresh, 0);
}

void StateDisplayBit::disconnectMemAPI()
{
    if (isAttached() && binding::ready(*this)) {
        for (const quint32 address : std::as_const(d->attached))
            memAPI()->detachProxy(this, address);
    }
    d->attached.clear();
    setAttached(false);
}

void StateDisplayBit::process(const Q_UINT8 *, int operation, Q_UINT32)
{
    if (operation != Refresh || !binding::ready(*this) || binding::handOverToMainThread(*this))
        return;
    setWidgetShowState(this);
    setValue(getBitParam());
}

void StateDisplayBit::announce()
{
    ShownTextAccessible<StateDisplayBit>::notify(*this);
    if (!binding::ready(*this))
        return;
    const QPointer<StateDisplayBit> self(this);
    Q_EMIT memoryAPIValueChange(d->value);
    if (self)
        Q_EMIT textualValueChange(shownText());
    if (self)
        Q_EMIT altAddressMode(d->value == 0);
}

QString StateDisplayBit::shownText() const
{
    QStringList lit;
    for (int number = 0; number < d->subImages; ++number) {
        if (bit(static_cast<unsigned>(d->value), number))
            lit.append(QString::number(number + 1));
    }
    return lit.isEmpty() ? tr("none on") : tr("%1 on").arg(lit.join(QLatin1String(", ")));
}

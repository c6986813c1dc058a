// SPDX-License-Identifier: MIT
#include "widgets/buttons/COnOffButton.h"

#include "interfaces/utilities/NS_Utilities.h"
#include "widgets/binding/Binding.h"
#include "widgets/buttons/COnOffButtonPrivate.h"
#include "widgets/buttons/KeyAccessible.h"
#include "widgets/painting/FocusRing.h"
#include "widgets/painting/Opacity.h"
#include "widgets/painting/Picture.h"

#include <QPainter>
#include <QtMath>

namespace {

QAccessibleInterface *makeAccessible(const QString &className, QObject *object)
{
    auto *key =
        className == QLatin1String("COnOffButton") ? qobject_cast<COnOffButton *>(object) : nullptr;
    return key ? new KeyAccessible(key) : nullptr;
}

QSize sizeOf(const QPixmap &picture)
{
    const QSizeF size = picture.deviceIndependentSize();
    return {qCeil(size.width()), qCeil(size.height())};
}

} // namespace

COnOffButton::COnOffButton(QWidget *parent, const char *name)
    : QPushButton(parent), d(std::make_unique<Private>())
{
    [[maybe_unused]] static const bool speaks = (QAccessible::installFactory(makeAccessible), true);
    if (name) {
        setObjectName(QLatin1String(name));
        d->look->setCacheName(QLatin1String(name));
    }
    setToggleButton(true);
    setNumDefaultKind(0);
    connect(this, &QAbstractButton::toggled, this, [this](bool on) {
        if (!d->switching)
            handleToggled(on);
    });
    // By name, so that disconnectAutomaticObserver() finds it whatever the signal.
    connect(this, SIGNAL(stateChanged(int)), this, SLOT(handleStateChanged(int)));
}

COnOffButton::~COnOffButton()
{
    leaveMemory();
    TCacheServer::release(d->look);
}

bool COnOffButton::imagesSwapped() const
{
    return d->look->imagesSwapped;
}

void COnOffButton::setimagesSwapped(bool swapped)
{
    d->look->imagesSwapped = swapped;
}

COnOffButton::TOnOffStateTrigger COnOffButton::onStateTrigger() const
{
    return d->look->onTrigger;
}

void COnOffButton::setOnStateTrigger(const TOnOffStateTrigger mode)
{
    d->look->onTrigger = mode;
}

COnOffButton::TOnOffStateTrigger COnOffButton::offStateTrigger() const
{
    return d->look->offTrigger;
}

void COnOffButton::setOffStateTrigger(const TOnOffStateTrigger mode)
{
    d->look->offTrigger = mode;
}

bool COnOffButton::useTrackingImage() const
{
    return d->look->useTrackingImage;
}

void COnOffButton::setUseTrackingImage(bool use)
{
    d->look->useTrackingImage = use;
}

bool COnOffButton::hasDisableImage() const
{
    return d->look->hasDisableImage;
}

void COnOffButton::setHasDisableImage(bool has)
{
    d->look->hasDisableImage = has;
}

bool COnOffButton::hasOffState() const
{
    return d->look->hasOffState;
}

void COnOffButton::setHasOffState(bool has)
{
    d->look->hasOffState = has;
}

int COnOffButton::boolClipValue() const
{
    return d->look->boolClipValue;
}

void COnOffButton::setBoolClipValue(int value)
{
    d->look->boolClipValue = value;
}

bool COnOffButton::invertedLogic() const
{
    return d->look->invertedLogic;
}

void COnOffButton::setInvertedLogic(bool inverted)
{
    d->look->invertedLogic = inverted;
}

bool COnOffButton::disableAutoHide() const
{
    return d->look->disableAutoHide;
}

void COnOffButton::setDisableAutoHide(bool disable)
{
    d->look->disableAutoHide = disable;
}

bool COnOffButton::disabledUI() const
{
    return TMemProxy::disabledUI();
}

void COnOffButton::setDisabledUI(bool disabled)
{
    TMemProxy::setDisabledUI(disabled);
    updateErasePixmap(nullptr);
}

QColor COnOffButton::focusColor() const
{
    return d->focusColor;
}

void COnOffButton::setFocusColor(const QColor &colour)
{
    d->focusColor = colour;
    update();
}

void COnOffButton::setSelectionObject(CSimpleNotifier *selection)
{
    d->selection = selection;
}

void COnOffButton::setToggleButton(bool toggle)
{
    setCheckable(toggle);
}

bool COnOffButton::isToggleButton() const
{
    return isCheckable();
}

/// What the change is told to may destroy the key, which the push button's own telling in the middle of
/// setChecked() does not survive: it is told afterwards.
void COnOffButton::setOn(bool on)
{
    const bool before = isChecked();
    d->switching = true;
    setChecked(on);
    d->switching = false;
    if (isChecked() != before)
        handleToggled(on);
}

bool COnOffButton::isOn() const
{
    return isChecked();
}

int COnOffButton::state() const
{
    return isOn() ? On : Off;
}

// Pictures --------------------------------------------------------------------------------------

int COnOffButton::nImageCategories() const
{
    return d->look->categories;
}

void COnOffButton::setnImageCategories(int categories)
{
    d->look->categories = static_cast<quint8>(categories);
    refreshImage();
}

int COnOffButton::nSubImages() const
{
    return d->look->subImages;
}

void COnOffButton::setnSubImages(int rows)
{
    d->look->subImages = static_cast<quint8>(rows);
    refreshImage();
}

QPixmap COnOffButton::combinedImage() const
{
    return d->look->combinedImage;
}

void COnOffButton::setCombinedImage(const QPixmap &picture)
{
    d->look->combinedImage = picture;
    refreshImage();
}

void COnOffButton::setCurrentImage(int category)
{
    if (category < 0 || category >= nImageCategories())
        return;
    d->category = static_cast<qint16>(category);
    refreshImage();
}

void COnOffButton::reloadImage()
{
    cutImages(true);
}

void COnOffButton::cutImages(bool giveUpStrip)
{
    COnOffButton_PD &look = *d->look;
    if (!look.canCut() || look.shareCount() > 1)
        return;
    const QPixmap plain =
        icon().isNull() ? QPixmap() : icon().pixmap(iconSize(), devicePixelRatioF());
    const QSize size = plain.isNull() ? look.cellSize() : look.cellSize().expandedTo(sizeOf(plain));
    setFixedSize(size);
    look.cut(d->category, size, plain);
    if (giveUpStrip && look.categories == 1)
        look.combinedImage = QPixmap();
    opacity::set(*this, look.isOpaque());
}

void COnOffButton::refreshImage()
{
    // Until the key is about to be shown more properties may come, which the strip is needed for.
    cutImages(d->polished);
    updateErasePixmap(nullptr);
    update();
}

bool COnOffButton::setClicked(bool clicked)
{
    const bool before = d->pressed;
    d->pressed = clicked;
    markDirty();
    return before;
}

void COnOffButton::markDirty()
{
    d->dirty = true;
}

void COnOffButton::clickDelayDone()
{
    d->pressed = false;
    updateErasePixmap(nullptr);
    update();
}

bool COnOffButton::blinkingMode() const
{
    return false;
}

QPixmap COnOffButton::staticPixmap() const
{
    const COnOffButton_PD &look = *d->look;
    if (!d->pressed && blinkingMode()) {
        bool lit = false;
        if (IMemAPI *memory = memAPI())
            memory->blinkClock(&lit, 0);
        return look.stateImage(lit);
    }
    if (!isEnabled() && !look.disabledImage.isNull())
        return look.disabledImage;
    if (d->pressed && look.useTrackingImage)
        return look.trackingImage;
    return look.stateImage(isOn());
}

QPixmap COnOffButton::shownPicture() const
{
    const bool grey = !isEnabled() && !d->look->hasDisabledCell;
    return grey ? d->look->greyImage(isOn()) : staticPixmap();
}

void COnOffButton::drawPicture(QPainter &painter, const QPixmap &shown) const
{
    Picture picture(size());
    picture.add(shown, shown.rect());
    picture.draw(painter);
}

void COnOffButton::repaintScreenPrimitive(QPainter &painter)
{
    drawPicture(painter, shownPicture());
}

void COnOffButton::updateErasePixmap(QPixmap *)
{
    d->background = shownPicture();
    d->hasBackground = true;
}

void COnOffButton::updateErasePixmapSlot()
{
    updateErasePixmap(nullptr);
}

QPixmap COnOffButton::erasePixmap()
{
    if (!d->hasBackground)
        updateErasePixmap(nullptr);
    return d->background;
}

void COnOffButton::drawButton(QPainter *painter)
{
    if (!d->dirty && isToggleButton())
        return;
    repaintScreenPrimitive(*painter);
    updateErasePixmap(nullptr);
    d->dirty = false;
}

void COnOffButton::paintEvent(QPaintEvent *event)
{
    // A key without pictures is a push button like others.
    if (d->look->onImage.isNull()) {
        QPushButton::paintEvent(event);
        return;
    }
    QPainter painter(this);
    if (!d->dirty && isToggleButton())
        drawPicture(painter, erasePixmap());
    drawButton(&painter);
    if (hasFocus())
        focusring::draw(painter, *this, d->focusColor);
}

void COnOffButton::polish()
{
    adoptSharedLook();
    d->polished = true;
    cutImages(true);
    updateErasePixmap(nullptr);
    opacity::set(*this, d->look->isOpaque());
}

void COnOffButton::adoptSharedLook()
{
    COnOffButton_PD &own = *d->look;
    if (own.shareCount() != 0 || own.cacheName().isEmpty())
        return;
    TCacheServer *server = TCacheServer::nearest(this);
    if (own.categories != 1 || !server || server->caption().isEmpty()) {
        own.setCacheName({});
        return;
    }
    d->look = std::static_pointer_cast<COnOffButton_PD>(server->share(d->look));
    // The first key of the name has cut the pictures; this one takes their size.
    if (!d->look->onImage.isNull())
        setFixedSize(sizeOf(d->look->onImage));
}

// Binding ---------------------------------------------------------------------------------------

void COnOffButton::connectMemAPI()
{
    if (memAPI() && isAttached() && binding::ready(*this))
        binding::attach(*this);
}

void COnOffButton::disconnectMemAPI()
{
    binding::detach(*this);
}

void COnOffButton::process(const Q_UINT8 *bytes, int operation, Q_UINT32 extra)
{
    if (binding::handOverToMainThread(*this))
        return;
    const bool direct = operation == DirectValue;
    if (!direct && !d->selection && !binding::ready(*this))
        return;
    if (binding::ready(*this))
        setWidgetShowState(this);
    // Deliberate: the alternative default is not for keys.
    if (operation < DirectValue || operation > Copy)
        return;
    const int value = direct ? static_cast<int>(extra) : incomingValue(bytes, operation);
    if (operation == Copy)
        return;
    const bool on = (value == d->look->onValue()) != d->look->invertedLogic;
    handleProcessChange(operation, on, !direct && extra != 0);
}

/// What a process() call means, by the selection object when there is one.
int COnOffButton::incomingValue(const Q_UINT8 *bytes, int operation)
{
    if (!d->selection)
        return binding::incomingValue(*this, bytes, operation);
    TMemProxy *holder = d->selection->valueHolder();
    if (operation == Refresh || !holder || !binding::ready(*holder))
        return d->selection->value();
    return binding::incomingValue(*holder, bytes, operation);
}

void COnOffButton::handleProcessChange(int operation, bool on, bool force)
{
    if (operation > Paste)
        return;
    const binding::SilentScope silent(*this, operation);
    const bool redraw = force || !d->hasBackground;
    const bool changes = on != (state() != Off);
    if (changes) {
        markDirty();
        setOn(on);
    }
    if (!silent)
        return;
    if (redraw)
        updateErasePixmap(nullptr);
    // A change has told its value already.
    if (!changes && (force || !d->announced))
        announceValue();
}

void COnOffButton::handleToggled(bool on)
{
    const QPointer<COnOffButton> self(this);
    Q_EMIT stateChanged(on ? On : Off);
    if (self && isOn() == on)
        announceValue();
}

void COnOffButton::announceValue()
{
    if (!binding::ready(*this) || !isAttached())
        return;
    if (signalsBlocked()) {
        d->pending.defer(this, [](QObject *object) {
            auto *key = static_cast<COnOffButton *>(object);
            key->d->pending.deferredCallCame();
            key->announceValue();
        });
        return;
    }
    d->announced = true;
    binding::announce(*this, binding::read(*this), binding::range(*this));
}

void COnOffButton::handleStateChanged(int state)
{
    if (!NS_Utilities::mainThreadRunning() || !memAPI())
        return;
    const COnOffButton_PD &look = *d->look;
    int value = state == On ? look.onValue() : 0;
    if (look.invertedLogic)
        value = value != 0 ? 0 : look.onValue();
    // A key that chooses a value leaves it to the others of its row to choose another.
    const bool counts = state == On || value != 0 || look.boolClipValue == 0 || look.hasOffState;
    const QPointer<COnOffButton> self(this);
    if (counts && !isSilent()) {
        // Deliberate: reading prefers the selection object, writing the memory.
        if (binding::ready(*this))
            binding::writeAsOwnStep(*this, value);
        else if (d->selection)
            d->selection->setValue(value);
    }
    if (!self)
        return;
    markDirty();
    updateErasePixmap(nullptr);
    update();
}

void COnOffButton::setNonBoolValue(int value)
{
    process(nullptr, DirectValue, static_cast<Q_UINT32>(value));
}

void COnOffButton::disconnectAutomaticObserver()
{
    disconnect(this, nullptr, this, SLOT(handleStateChanged(int)));
}

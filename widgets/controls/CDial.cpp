// SPDX-License-Identifier: MIT
#include "widgets/controls/CDial.h"

#include "interfaces/utilities/NS_Utilities.h"
#include "widgets/binding/Binding.h"
#include "widgets/binding/BoundAccessible.h"
#include "widgets/binding/TCacheServer.h"
#include "widgets/controls/CDialPrivate.h"
#include "widgets/painting/FocusRing.h"
#include "widgets/painting/Picture.h"

#include <QPainter>

namespace {

/// The range before the memory gives one: no parameter has it.
constexpr int UnboundMinimum = -559038801;
constexpr int UnboundMaximum = 2125315823;
constexpr int PageStep = 10;

bool straightDrags = false;

QAccessibleInterface *makeAccessible(const QString &className, QObject *object)
{
    auto *dial = className == QLatin1String("CDial") ? qobject_cast<CDial *>(object) : nullptr;
    return dial ? new BoundSliderAccessible(dial, *dial, QAccessible::Dial) : nullptr;
}

QString cacheKey(const QWidget &dial, int row)
{
    const QString scope = TCacheServer::scopeOf(&dial);
    if (scope.isEmpty())
        return {};
    return scope + QStringLiteral("tv9k-CDial-%1%2").arg(dial.objectName(), QString::number(row));
}

} // namespace

CDial::CDial(QWidget *parent, const char *name)
    : UnboundDial(parent, UnboundMinimum, UnboundMaximum), d(std::make_unique<Private>(*this))
{
    [[maybe_unused]] static const bool speaks = (QAccessible::installFactory(makeAccessible), true);
    if (name)
        setObjectName(QLatin1String(name));
    setPageStep(PageStep);
    setFocusPolicy(Qt::WheelFocus);
}

CDial::~CDial()
{
    leaveMemory();
    delete d->tip;
}

bool CDial::inverted() const
{
    return d->inverted;
}

void CDial::setInverted(bool inverted)
{
    d->inverted = inverted;
    refreshImage();
}

bool CDial::transparent() const
{
    return d->transparent;
}

void CDial::setTransparent(bool transparent)
{
    d->transparent = transparent;
    refreshImage();
}

int CDial::disabledImageIndex() const
{
    return d->strip.disabledRow();
}

void CDial::setdisabledImageIndex(int row)
{
    d->strip.setDisabledRow(row);
    refreshImage();
}

QColor CDial::focusColor() const
{
    return d->focusColor;
}

void CDial::setFocusColor(const QColor &colour)
{
    d->focusColor = colour;
    update();
}

int CDial::nImageCategories() const
{
    return d->strip.categories();
}

void CDial::setnImageCategories(int categories)
{
    d->strip.setCategories(categories);
    refreshImage();
}

int CDial::nSubImages() const
{
    return d->strip.rows();
}

void CDial::setnSubImages(int rows)
{
    d->strip.setRows(rows);
    refreshImage();
}

QPixmap CDial::combinedImage() const
{
    return d->strip.picture();
}

void CDial::setCombinedImage(const QPixmap &picture)
{
    d->strip.setPicture(picture);
    refreshImage();
}

void CDial::setCurrentImage(int category)
{
    if (d->strip.setCurrentCategory(category))
        refreshImage();
}

void CDial::drawsLikeDial(const std::type_info &subclass)
{
    d->drawsLike(subclass);
}

int CDial::alternativeIndex() const
{
    return d->alternativeIndex;
}

void CDial::setAlternativeIndex(int alternative)
{
    d->alternativeIndex = alternative;
}

void CDial::setTranslationTable(const TranslationTable &table)
{
    d->translation = std::make_unique<TranslationTable>(table);
}

void CDial::clearTranslationTable()
{
    d->translation.reset();
}

void CDial::setfxValueTransform(bool on)
{
    d->fxValueTransform = on;
}

void CDial::setVerticalMode(bool vertical)
{
    straightDrags = vertical;
}

bool CDial::verticalMode()
{
    return straightDrags;
}

bool CDial::numberToolTip() const
{
    return d->tip;
}

void CDial::setNumberToolTip(bool on)
{
    if (!on) {
        delete d->tip;
        return;
    }
    if (!d->tip)
        d->tip = new CDialTip(*this);
    emitValueChanges(false);
}

// Pictures --------------------------------------------------------------------------------------

int CDial::currentIndex() const
{
    return DialGeometry::row(value(), minimum(), maximum(),
                             {d->strip.rows(), d->strip.disabledRow(), bool(d->inverted)});
}

int CDial::getAttKnobIndex(int value) const
{
    return DialGeometry::attenuatorRow(value, minimum(), maximum());
}

void CDial::repaintScreenPrimitive(QPainter &painter)
{
    Picture picture(size());
    d->strip.describe(picture, currentIndex(), isEnabled());
    picture.draw(painter);
}

void CDial::updateErasePixmap(QPixmap *)
{
    d->erase.invalidate();
}

QPixmap CDial::erasePixmap()
{
    const bool shares = d->strip.rows() >= 1 && d->strip.categories() >= 1;
    return d->erase.pixmap(*this, shares ? cacheKey(*this, currentIndex()) : QString(),
                           [this](QPainter &painter) { repaintScreenPrimitive(painter); });
}

/// Tells the picture of the current column from all others.
int CDial::pictureNumber() const
{
    return isEnabled() ? currentIndex() : -2 - currentIndex();
}

/// The one place where a change of the value's picture asks for a paint.
void CDial::pictureChanged()
{
    if (!isVisible()) { // painted when it is shown
        updateErasePixmap(nullptr);
        return;
    }
    const int picture = pictureNumber();
    if (picture == d->shownPicture)
        return;
    d->shownPicture = picture;
    updateErasePixmap(nullptr);
    d->changed();
}

void CDial::refreshImage()
{
    d->shownPicture = Private::NoPicture;
    d->sharedRow = -1;
    setOpacity();
    updateGeometry();
    pictureChanged();
}

QSize CDial::sizeHint() const
{
    const QSizeF cell = d->strip.cellSize();
    return cell.isEmpty() ? QDial::sizeHint() : QSize(qCeil(cell.width()), qCeil(cell.height()));
}

QSize CDial::minimumSizeHint() const
{
    return d->strip.cellSize().isEmpty() ? QDial::minimumSizeHint() : sizeHint();
}

/// The strip needs no pen and no font, and fetching them is a tenth of a frame.
void CDial::initPainter(QPainter *) const {}

void CDial::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    d->paint(painter, *event);
    if (hasFocus())
        focusring::draw(painter, *this, d->focusColor);
}

/// Its palette's background fills what the cell leaves free. Before a dial is polished nobody asks.
void CDial::setOpacity()
{
    if (testAttribute(Qt::WA_WState_Polished))
        d->setOpaque(!d->transparent
                     && (d->strip.covers(size()) || palette().brush(backgroundRole()).isOpaque()));
}

void CDial::Private::describe(Picture &picture) const
{
    if (!transparent && !strip.covers(picture.size()))
        picture.fill(dial.palette().brush(dial.backgroundRole()));
    strip.describe(picture, dial.currentIndex(), dial.isEnabled());
}

/// Under a cache server with a caption the cache holds every picture that was painted.
void CDial::shareErasePixmap()
{
    if (d->sharedRow == currentIndex())
        return;
    d->sharedRow = currentIndex();
    if (!TCacheServer::scopeOf(this).isEmpty())
        erasePixmap();
}

// Binding ---------------------------------------------------------------------------------------

void CDial::connectMemAPI()
{
    if (!binding::ready(*this))
        return;
    const binding::SilentScope silent(*this);
    d->savedIndex = index;
    if (d->alternativeIndex >= 0 && d->alternativeMode)
        index = static_cast<qint16>(d->alternativeIndex);
    binding::attach(*this);
    process(nullptr, Refresh, 0);
}

void CDial::disconnectMemAPI()
{
    binding::detach(*this);
}

void CDial::process(const Q_UINT8 *bytes, int operation, Q_UINT32 extra)
{
    if (!binding::ready(*this))
        return;
    if (!NS_Utilities::mainThreadRunning() && extra == 1 && operation == Refresh)
        d->pending.request();
    if (binding::handOverToMainThread(*this))
        return;
    setWidgetShowState(this);
    const binding::Range bounds = binding::range(*this);
    if (bounds.minimum != minimum() || bounds.maximum != maximum()) {
        const binding::SilentScope silent(*this);
        setRange(bounds.minimum, bounds.maximum);
    }
    if (d->alternativeMode)
        d->translation.reset();
    const int stored = binding::incomingValue(*this, bytes, operation);
    const int position = d->translation ? d->toPosition(stored - minimum()) : stored;
    const binding::SilentScope silent(*this, operation);
    if (value() != position) {
        setValue(position);
    } else if (d->alternativeModeChanged || d->fxValueTransform) {
        d->alternativeModeChanged = false;
        valueChange();
    }
    if (silent && (extra == 1 || d->pending.requested())) {
        d->pending.settle();
        emitValueChanges(false);
    }
}

void CDial::valueChange()
{
    if (!NS_Utilities::mainThreadRunning())
        return;
    triggerEmitValueChanged(true);
    pictureChanged();
}

void CDial::triggerEmitValueChanged(bool write)
{
    if (NS_Utilities::mainThreadRunning())
        emitValueChanges(write);
}

void CDial::emitValueChanges(bool write)
{
    if (!binding::ready(*this))
        return;
    const QPointer<CDial> self(this);
    const int stored = write && !isSilent() ? changeMemApiValue() : d->fromPosition(value());
    if (!self)
        return;
    if (signalsBlocked()) {
        d->pending.defer(this, [](QObject *object) {
            auto *dial = static_cast<CDial *>(object);
            dial->d->pending.deferredCallCame();
            dial->emitValueChanges(false);
        });
        return;
    }
    Q_EMIT memoryAPIValueChange(stored);
    if (!self || !binding::ready(*this))
        return;
    const binding::Display shown =
        d->alternativeMode
            ? binding::Display{value() == minimum() ? QStringLiteral("OFF") : QStringLiteral("ON"),
                               {}}
            : binding::display(*this, stored, {minimum(), maximum()});
    if (!shown.pixmap.isNull()) {
        Q_EMIT pixmapValueChange(shown.pixmap);
    } else {
        if (d->tip)
            d->tip->setText(shown.text);
        Q_EMIT textualValueChange(shown.text);
    }
    if (!self)
        return;
    Q_EMIT altAddressMode(value() == minimum());
    if (self)
        pictureChanged();
}

int CDial::changeMemApiValue()
{
    return binding::write(*this, d->fromPosition(value()));
}

int CDial::translateValue(int value, const int *table, int offset)
{
    return table ? table[value + offset] : value;
}

void CDial::changeAltAddressMode(bool on)
{
    if (on == d->alternativeMode)
        return;
    d->alternativeModeChanged = true;
    d->alternativeMode = on;
    if (binding::ready(*this) && d->alternativeIndex >= 0)
        memAPI()->selectAltAddress(this, element + elementOffset());
}

void CDial::handle_changeAltNamedValue(int)
{
    emitValueChanges(false);
    update();
}

void CDial::acceptNum(double number)
{
    if (!binding::ready(*this))
        return;
    if (numberFollowsParameter())
        memAPI()->setNumberContext(this);
    const int typed = memAPI()->numberToValue(static_cast<float>(number), tableId());
    const bool fromZero = tableId() >= 0 && minimum() < 0;
    const QPointer<CDial> self(this);
    binding::beginGesture(*this);
    setValue(fromZero ? static_cast<int>(qint64(typed) + minimum()) : typed);
    if (self)
        binding::endGesture(*this);
}

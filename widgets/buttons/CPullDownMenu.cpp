// SPDX-License-Identifier: MIT
#include "widgets/buttons/CPullDownMenu.h"

#include "interfaces/utilities/NS_Utilities.h"
#include "widgets/binding/Binding.h"
#include "widgets/binding/PendingEmissions.h"
#include "widgets/buttons/CMenuObject.h"
#include "widgets/buttons/MenuItems.h"
#include "widgets/buttons/PullDownAccessible.h"
#include "widgets/painting/FocusRing.h"
#include "widgets/painting/ImageStrip.h"
#include "widgets/painting/Opacity.h"
#include "widgets/painting/Picture.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionComboBox>

#include <algorithm>
#include <limits>

namespace {

constexpr int NoneYet = -1;
constexpr int TextIndent = 4;

} // namespace

struct CPullDownMenu::Private
{
    ImageStrip strip; ///< a picture per position; grey while disabled
    MenuItems items;
    int currentIndex = 0;
    int lastChosen = NoneYet;
    CMenuObject *menu = nullptr; ///< a child of the widget
    int imageCount = 1;
    int valueOffset = 0;
    PendingEmissions pending;
    mutable int widestText = -1; ///< in pixels; below 0: not measured

    bool sorted : 1 = false;
    bool wantCheck : 1 = false;
    bool focusRect : 1 = true;
    bool announcing : 1 = false;

    /// What the current position means in memory.
    int value(int memoryPosition) const
    {
        return static_cast<int>(std::min<qint64>(qint64(memoryPosition) + valueOffset,
                                                 std::numeric_limits<int>::max()));
    }
};

CPullDownMenu::CPullDownMenu(QWidget *parent, const char *name)
    : QLabel(parent), d(std::make_unique<Private>())
{
    PullDownAccessible::install<PullDownAccessible>();
    if (name)
        setObjectName(QLatin1String(name));
    setTextFormat(Qt::PlainText);
    setFocusPolicy(Qt::StrongFocus);
    d->menu = new CMenuObject(this);
    connect(d->menu, &CMenuObject::chosen, this, &CPullDownMenu::changedTheMenu);
    connect(d->menu, &QMenu::aboutToHide, this, QOverload<>::of(&QWidget::update));
}

CPullDownMenu::~CPullDownMenu()
{
    leaveMemory();
    d->menu->discard();
}

// Properties ------------------------------------------------------------------------------------

QString CPullDownMenu::menuItemList() const
{
    return d->items.list();
}

void CPullDownMenu::setMenuItemList(const QString &list)
{
    if (!d || list == menuItemList())
        return;
    d->items.setList(list, d->sorted);
    if (!d->items.isEmpty())
        fillMenu();
}

bool CPullDownMenu::sorted() const
{
    return d->sorted;
}

void CPullDownMenu::setSorted(bool bSorted)
{
    if (bSorted == d->sorted)
        return;
    d->sorted = bSorted;
    if (d->items.isEmpty())
        return;
    d->items.setList(d->items.list(), d->sorted);
    fillMenu();
}

bool CPullDownMenu::wantCheck() const
{
    return d->wantCheck;
}

void CPullDownMenu::setWantCheck(bool bDoYouWantItOrNot)
{
    d->wantCheck = bDoYouWantItOrNot;
    updateCheck(d->currentIndex);
}

bool CPullDownMenu::focusRectEnabled() const
{
    return d->focusRect;
}

void CPullDownMenu::setEnableFocusRect(bool enable)
{
    if (enable == d->focusRect)
        return;
    d->focusRect = enable;
    // Focus that is neither seen nor used would only be in the way.
    setFocusPolicy(enable ? Qt::StrongFocus : Qt::NoFocus);
    update();
}

int CPullDownMenu::nSubImages() const
{
    return d->imageCount;
}

void CPullDownMenu::setnSubImages(int count)
{
    d->imageCount = count;
    d->strip.setRows(std::max(1, count));
    updateDimensions();
    update();
}

QPixmap CPullDownMenu::combinedImage() const
{
    return d->strip.picture();
}

void CPullDownMenu::setCombinedImage(const QPixmap &picture)
{
    d->strip.setPicture(picture);
    opacity::set(*this, !picture.isNull() && !picture.hasAlphaChannel());
    updateDimensions();
    refreshText();
    update();
}

int CPullDownMenu::selectedItem() const
{
    return d->currentIndex;
}

bool CPullDownMenu::isOpen() const
{
    return d->menu->openedFor() == this;
}

// The list --------------------------------------------------------------------------------------

void CPullDownMenu::fillMenu()
{
    d->widestText = -1;
    d->menu->clearItems();
    for (const MenuItems::Line &line : d->items.lines())
        d->menu->appendItem(d->items.item(line.item), line.position);
    updateGeometry();
    refreshText();
    update();
    if (!isAttached() || !binding::ready(*this)) {
        changedTheMenu(0);
        return;
    }
    takeValueOffset();
    // What the memory holds is shown, not written back.
    const binding::SilentScope silent(*this);
    showValue(binding::read(*this));
}

void CPullDownMenu::takeValueOffset()
{
    double lowest = 0;
    double highest = 0;
    double step = 0;
    if (parameterRange(lowest, highest, step))
        d->valueOffset = static_cast<int>(lowest);
}

int CPullDownMenu::menuToMemapi(int position) const
{
    return d->items.toMemory(position);
}

int CPullDownMenu::memapiToMenu(int position) const
{
    return d->items.toMenu(position);
}

/// Values that no item stands for leave the display as it is.
void CPullDownMenu::showValue(int value)
{
    const qint64 position = qint64(value) - d->valueOffset;
    if (position < 0 || position >= d->items.count())
        return;
    const int inMenu = memapiToMenu(static_cast<int>(position));
    if (d->items.contains(inMenu))
        changedTheMenu(inMenu);
}

void CPullDownMenu::changedTheMenu(int position)
{
    d->lastChosen = position;
    updateCheck(position);
    if (position >= 0)
        setCurrentImage(position);
}

void CPullDownMenu::updateCheck(int position)
{
    if (d->wantCheck)
        d->menu->checkItem(position);
    else
        d->menu->uncheck();
}

void CPullDownMenu::setCurrentImage(int position)
{
    const QPointer<CPullDownMenu> self(this);
    const bool changes = accepts(position);
    if (changes) {
        d->currentIndex = position;
        d->lastChosen = position;
        refreshText();
        write(position);
        updateDimensions();
        update();
    }
    // A receiver that sets the position again, as two menus that follow each other do, comes to an end.
    if (!self || (d->announcing && !changes))
        return;
    const bool outermost = !d->announcing;
    d->announcing = true;
    Q_EMIT valueChanged(d->currentIndex);
    if (!self)
        return;
    if (outermost)
        d->announcing = false;
    if (changes)
        announce();
}

bool CPullDownMenu::accepts(int position) const
{
    if (!d->strip.picture().isNull())
        return position >= 0 && position < d->imageCount && position != d->currentIndex;
    // Deliberate: the start position counts as shown as soon as anything was chosen, so that choosing
    // it while the memory holds a value without an item writes nothing.
    const bool shown = position == d->currentIndex && d->lastChosen != NoneYet;
    return d->items.contains(position) && !shown;
}

void CPullDownMenu::write(int position)
{
    if (!isSilent() && binding::ready(*this))
        binding::writeAsOwnStep(*this, d->value(menuToMemapi(position)));
}

void CPullDownMenu::stepTo(int position)
{
    const QPointer<CPullDownMenu> self(this);
    setCurrentImage(position);
    if (self && d->items.contains(position))
        updateCheck(position);
}

void CPullDownMenu::incMenu()
{
    stepTo(std::min(d->currentIndex + 1, d->imageCount - 1));
}

void CPullDownMenu::decMenu()
{
    stepTo(std::max(d->currentIndex - 1, 0));
}

void CPullDownMenu::toggleImage()
{
    const int next = d->currentIndex + 1;
    stepTo(next >= d->imageCount ? 0 : next);
}

void CPullDownMenu::indexChanged(int position)
{
    if (d->items.contains(position))
        stepTo(position);
}

void CPullDownMenu::adjustParams()
{
    setCurrentImage(0);
}

// Binding ---------------------------------------------------------------------------------------

void CPullDownMenu::connectMemAPI()
{
    if (!binding::ready(*this))
        return;
    const binding::SilentScope silent(*this);
    takeValueOffset();
    binding::attach(*this);
    // Labels that follow the menu want its text, also where that is no change.
    process(nullptr, Refresh, 1);
}

void CPullDownMenu::disconnectMemAPI()
{
    binding::detach(*this);
}

void CPullDownMenu::process(const Q_UINT8 *bytes, int operation, Q_UINT32 extra)
{
    if (!binding::ready(*this))
        return;
    if (!NS_Utilities::mainThreadRunning() && extra == 1 && operation == Refresh)
        d->pending.request();
    if (binding::handOverToMainThread(*this))
        return;
    setWidgetShowState(this);
    // Deliberate: the alternative default is no operation of its own here.
    const bool known = operation >= Refresh && operation <= Copy;
    const int value = binding::incomingValue(*this, bytes, known ? operation : Refresh);
    const binding::SilentScope silent(*this, operation);
    showValue(value);
    if (silent && (extra == 1 || d->pending.requested())) {
        d->pending.settle();
        announce();
    }
}

/// The value signals.
void CPullDownMenu::announce()
{
    if (!binding::ready(*this))
        return;
    if (signalsBlocked()) {
        d->pending.defer(this, [](QObject *object) {
            auto *menu = static_cast<CPullDownMenu *>(object);
            menu->d->pending.deferredCallCame();
            menu->announce();
        });
        return;
    }
    const QPointer<CPullDownMenu> self(this);
    const int position = menuToMemapi(d->currentIndex);
    Q_EMIT memoryAPIValueChange(d->value(position));
    if (!self)
        return;
    if (d->strip.picture().isNull())
        Q_EMIT textualValueChange(shownText());
    else
        Q_EMIT pixmapValueChange(d->strip.picture().copy(d->strip.cell(0, d->currentIndex)));
    if (self)
        Q_EMIT altAddressMode(position == 0);
}

QString CPullDownMenu::shownText() const
{
    return d->items.textAt(d->currentIndex);
}

// Drawing ---------------------------------------------------------------------------------------

void CPullDownMenu::refreshText()
{
    if (d->strip.picture().isNull() && !d->items.isEmpty())
        setText(shownText());
    PullDownAccessible::notify(*this);
}

void CPullDownMenu::updateDimensions()
{
    if (d->strip.picture().isNull())
        return;
    setFixedSize(picturecells::size(d->strip.picture(), {1, d->strip.rows()}));
}

void CPullDownMenu::repaintScreenPrimitive(QPainter &painter)
{
    if (d->strip.picture().isNull()) {
        drawText(painter);
        return;
    }
    Picture picture(size());
    d->strip.describe(picture, d->currentIndex, isEnabled());
    picture.draw(painter);
}

void CPullDownMenu::drawText(QPainter &painter)
{
    QStyleOptionComboBox option;
    option.initFrom(this);
    option.state.setFlag(QStyle::State_HasFocus, false);
    option.state.setFlag(QStyle::State_On, isOpen());
    option.subControls = QStyle::SC_ComboBoxFrame | QStyle::SC_ComboBoxArrow;
    style()->drawComplexControl(QStyle::CC_ComboBox, &option, &painter, this);
    const QRect field =
        style()
            ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this)
            .adjusted(TextIndent, 0, 0, 0);
    const QString shown =
        fontMetrics().elidedText(text().simplified(), Qt::ElideRight, field.width());
    style()->drawItemText(&painter, field, int(alignment()), palette(), isEnabled(), shown,
                          QPalette::ButtonText);
}

void CPullDownMenu::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    repaintScreenPrimitive(painter);
    if (hasFocus() && d->focusRect)
        focusring::draw(painter, *this, {});
}

QSize CPullDownMenu::sizeHint() const
{
    if (!d->strip.picture().isNull())
        return minimumSize();
    if (d->widestText < 0) {
        d->widestText = 0;
        for (int item = 0; item < d->items.count(); ++item)
            d->widestText =
                std::max(d->widestText, fontMetrics().horizontalAdvance(d->items.item(item)));
    }
    QStyleOptionComboBox option;
    option.initFrom(this);
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option,
                                     {d->widestText + TextIndent, fontMetrics().height()}, this);
}

QSize CPullDownMenu::minimumSizeHint() const
{
    return d->strip.picture().isNull()
               ? QSize(fontMetrics().averageCharWidth() * 6, sizeHint().height())
               : sizeHint();
}

// The operator's hands --------------------------------------------------------------------------

void CPullDownMenu::popup()
{
    if (disabledUI())
        return;
    d->menu->setMinimumWidth(std::max(0, width()));
    d->menu->openFor(this);
    update();
}

void CPullDownMenu::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        popup();
    else
        event->ignore();
}

void CPullDownMenu::keyPressEvent(QKeyEvent *event)
{
    const bool opens = event->key() == Qt::Key_Space || event->key() == Qt::Key_Return
                       || event->key() == Qt::Key_Enter;
    if (opens && d->focusRect && hasFocus())
        popup();
    else
        event->ignore();
}

void CPullDownMenu::hideEvent(QHideEvent *event)
{
    QLabel::hideEvent(event);
    d->menu->close();
}

void CPullDownMenu::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        d->menu->close();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        d->widestText = -1;
}

bool CPullDownMenu::event(QEvent *event)
{
    const bool handled = QLabel::event(event);
    if (opacity::mustBeToldAfter(*event))
        opacity::set(*this, !d->strip.picture().isNull() && !d->strip.picture().hasAlphaChannel());
    // The style lights what the pointer is over, of which a label does not take notice.
    if ((event->type() == QEvent::Enter || event->type() == QEvent::Leave)
        && d->strip.picture().isNull())
        update();
    return handled;
}

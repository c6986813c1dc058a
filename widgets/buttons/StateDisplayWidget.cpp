// SPDX-License-Identifier: MIT
#include "widgets/buttons/StateDisplayWidget.h"

#include "interfaces/utilities/NS_Utilities.h"
#include "widgets/binding/Binding.h"
#include "widgets/binding/ShownTextAccessible.h"
#include "widgets/binding/TCacheServer.h"
#include "widgets/painting/BatchedPicture.h"
#include "widgets/painting/ErasePixmap.h"
#include "widgets/painting/ImageStrip.h"
#include "widgets/painting/Picture.h"

#include <QMouseEvent>
#include <QPainter>

#include <limits>

namespace {

/// A picture that says its state and can be pressed.
class PictureAccessible : public ShownTextAccessible<StateDisplayWidget>
{
public:
    explicit PictureAccessible(StateDisplayWidget &picture)
        : ShownTextAccessible(picture, QAccessible::Graphic)
    {
    }

    QStringList actionNames() const override
    {
        return QStringList(pressAction()) + BoundAccessible::actionNames();
    }
    void doAction(const QString &name) override
    {
        if (name == pressAction() && control().isEnabled())
            control().click();
        else
            BoundAccessible::doAction(name);
    }
};

} // namespace

class StateDisplayWidget::StateDisplayWidget_PD : public TCachedData, public BatchedPicture
{
public:
    explicit StateDisplayWidget_PD(StateDisplayWidget &owner)
        : BatchedPicture(owner, typeid(StateDisplayWidget)), display(owner)
    {
    }

    void describe(Picture &picture) const override;
    void drawn() override;

    /// No parameter holds it, so that the first value always counts as a change.
    static constexpr int NoValue = std::numeric_limits<int>::min() + 1;

    int cmpValue = 0;
    bool booleanLogic = false;
    quint8 subImages = 1;
    QPixmap combinedImage;
    int value = NoValue;
    bool pressed = false;
    ErasePixmap erase;
    StateDisplayWidget &display;

    QSize cellSize() const { return picturecells::size(combinedImage, {1, subImages}); }
    bool hasCells() const { return subImages > 0 && combinedImage.width() > 0; }
};

// Deliberate: the name is dropped.
StateDisplayWidget::StateDisplayWidget(QWidget *parent, const char *)
    : QFrame(parent), d(std::make_unique<StateDisplayWidget_PD>(*this))
{
    PictureAccessible::install<PictureAccessible>();
    setNumDefaultKind(0);
    setUndoEnable(false);
    setFocusPolicy(Qt::ClickFocus);
}

StateDisplayWidget::~StateDisplayWidget()
{
    leaveMemory();
}

// Deliberate: these setters only store.
int StateDisplayWidget::cmpValue() const
{
    return d->cmpValue;
}

void StateDisplayWidget::setCmpValue(int value)
{
    d->cmpValue = value;
}

bool StateDisplayWidget::booleanLogic() const
{
    return d->booleanLogic;
}

void StateDisplayWidget::setBooleanLogic(bool boolean)
{
    d->booleanLogic = boolean;
}

int StateDisplayWidget::nSubImages() const
{
    return d->subImages;
}

void StateDisplayWidget::setnSubImages(int count)
{
    // Deliberate: eight bits, so 257 is 1.
    d->subImages = static_cast<quint8>(count);
}

QPixmap StateDisplayWidget::combinedImage() const
{
    return d->combinedImage;
}

void StateDisplayWidget::setCombinedImage(const QPixmap &picture)
{
    d->combinedImage = picture;
}

int StateDisplayWidget::value() const
{
    return d->value;
}

void StateDisplayWidget::setValue(int value)
{
    if (!NS_Utilities::mainThreadRunning() || value == d->value)
        return;
    d->value = value;
    updateErasePixmap(nullptr);
    d->changed();
    PictureAccessible::notify(*this);
    if (binding::ready(*this))
        binding::announce(*this, value, binding::range(*this));
}

int StateDisplayWidget::pixmapId(int value) const
{
    if (d->booleanLogic)
        value = value == d->cmpValue ? 1 : 0;
    return std::min(std::max(value, 0), d->subImages - 1);
}

QString StateDisplayWidget::shownText() const
{
    if (!isAttached() || !binding::ready(*this))
        return {};
    return binding::display(*this, d->value, binding::range(*this)).text;
}

// Pictures --------------------------------------------------------------------------------------

void StateDisplayWidget::repaintScreenPrimitive(QPainter &painter)
{
    d->draw(painter);
}

void StateDisplayWidget::StateDisplayWidget_PD::describe(Picture &picture) const
{
    picture.add(combinedImage,
                picturecells::cell(combinedImage, {1, subImages}, {0, display.pixmapId(value)}));
}

/// Below a cache server the cache holds what was painted.
void StateDisplayWidget::StateDisplayWidget_PD::drawn()
{
    if (TCacheServer::nearest(&display))
        display.erasePixmap();
}

void StateDisplayWidget::updateErasePixmap(QPixmap *)
{
    d->erase.invalidate();
}

QPixmap StateDisplayWidget::erasePixmap()
{
    const QString scope = d->subImages > 0 ? TCacheServer::scopeOf(this) : QString();
    // Displays without a name have nothing in common.
    const QString key = scope.isEmpty() || objectName().isEmpty()
                            ? QString()
                            : scope
                                  + QStringLiteral("tv9k-StateDisplayWidget-%1%2")
                                        .arg(objectName(), QString::number(pixmapId(d->value)));
    return d->erase.pixmap(*this, key,
                           [this](QPainter &painter) { repaintScreenPrimitive(painter); });
}

void StateDisplayWidget::polish()
{
    if (d->hasCells())
        setFixedSize(d->cellSize());
    d->setOpaque(d->hasCells() && !d->combinedImage.hasAlphaChannel());
    updateErasePixmap(nullptr);
}

QSize StateDisplayWidget::sizeHint() const
{
    return d->hasCells() ? d->cellSize() : QFrame::sizeHint();
}

bool StateDisplayWidget::event(QEvent *event)
{
    const bool handled = QFrame::event(event);
    if (event->type() == QEvent::Polish)
        polish();
    return handled;
}

void StateDisplayWidget::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    d->paint(painter, *event);
}

// Clicks ----------------------------------------------------------------------------------------

void StateDisplayWidget::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        d->pressed = true;
    else
        event->ignore();
}

void StateDisplayWidget::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !d->pressed) {
        event->ignore();
        return;
    }
    // Deliberate: wherever the pointer is by now.
    d->pressed = false;
    click();
}

void StateDisplayWidget::click()
{
    Q_EMIT clicked(element + elementOffset());
}

void StateDisplayWidget::setValueFromData(int value)
{
    if (binding::ready(*this))
        binding::writeAsOwnStep(*this, value);
}

// Binding ---------------------------------------------------------------------------------------

void StateDisplayWidget::connectMemAPI()
{
    const binding::SilentScope silent(*this);
    if (!binding::ready(*this))
        return;
    binding::attach(*this);
    process(nullptr, Refresh, 0);
}

void StateDisplayWidget::disconnectMemAPI()
{
    binding::detach(*this);
}

void StateDisplayWidget::process(const Q_UINT8 *, int operation, Q_UINT32)
{
    if (operation != Refresh || !binding::ready(*this) || binding::handOverToMainThread(*this))
        return;
    setWidgetShowState(this);
    setValue(binding::read(*this));
}

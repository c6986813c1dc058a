// SPDX-License-Identifier: MIT
// How the operator's mouse, wheel and keys turn the dial.
#include "interfaces/IEditorExtensions.h"
#include "interfaces/utilities/CNumEdit.h"
#include "widgets/binding/Binding.h"
#include "widgets/controls/CDialPrivate.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <optional>

namespace {

/// The wheel's unit: eighths of a degree per notch.
constexpr int WheelNotch = 120;

/// The nearest ancestor that is an editor.
IEditorExtensions *editorAround(const QWidget *control)
{
    for (QWidget *ancestor = control->parentWidget(); ancestor;
         ancestor = ancestor->parentWidget()) {
        if (auto *editor = dynamic_cast<IEditorExtensions *>(ancestor))
            return editor;
    }
    return nullptr;
}

/// Whether typing this begins a number.
bool beginsNumber(const QString &text)
{
    return text.size() == 1 && (text.at(0).isDigit() || QStringLiteral("-+.,").contains(text));
}

} // namespace

double CDial::Radian(double degrees)
{
    return DialGeometry::radian(degrees);
}

double CDial::Degree(double radians)
{
    return DialGeometry::degree(radians);
}

double CDial::CnvAngle(double angle)
{
    return DialGeometry::convertAngle(angle);
}

bool CDial::CalcAngle(double x, double y, double &angle) const
{
    return d->geometry().angleOf({x, y}, angle);
}

bool CDial::CalcIntersection(double x1, double y1, double x2, double y2, double x3, double y3,
                             double x4, double y4, double &x, double &y)
{
    QPointF point;
    if (!DialGeometry::intersection({x1, y1}, {x2, y2}, {x3, y3}, {x4, y4}, point))
        return false;
    x = point.x();
    y = point.y();
    return true;
}

double CDial::CalcVectorAngle(double x1, double y1, double x2, double y2)
{
    return DialGeometry::vectorAngle({x1, y1}, {x2, y2});
}

double CDial::GetAngle() const
{
    return d->geometry().angle();
}

double CDial::mousePressMoveStart(QMouseEvent *event, double startDegrees, double endDegrees,
                                  bool relative)
{
    const QPoint origin = mapToGlobal(QPoint(0, 0));
    const QPoint centre = origin + QPoint((width() + 1) / 2, (height() + 1) / 2);
    const double range = double(maximum()) - minimum();
    const double turned = range > 0 ? (double(value()) - minimum()) / range : 0;
    const double knob = (endDegrees - startDegrees) * turned + DialGeometry::SweepStart;
    d->geometry().start(centre, event->globalPosition(), knob, startDegrees, endDegrees, relative);
    return knob;
}

double CDial::mousePressMoveTrace(QMouseEvent *event)
{
    return d->geometry().trace(event->globalPosition());
}

void CDial::mousePressEvent(QMouseEvent *event)
{
    const bool modified = event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier);
    const bool outside =
        d->transparent
        && !d->strip.outlineContains(currentIndex(), isEnabled(), event->position().toPoint());
    if (d->dragging || event->button() != Qt::LeftButton || modified || outside || disabledUI()) {
        event->ignore();
        return;
    }
    d->dragging = true;
    mousePressMoveStart(event, DialGeometry::SweepStart, DialGeometry::SweepEnd, false);
    setSliderDown(true);
}

void CDial::mouseMoveEvent(QMouseEvent *event)
{
    const QPointer<CDial> self(this);
    if (d->dragging) {
        d->dragging = false;
        mousePressEventInternal(event);
    }
    if (self)
        mouseMoveEventInternal(event);
}

void CDial::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    if (d->dragging) {
        d->dragging = false;
        setSliderDown(false);
    } else {
        mouseReleaseEventInternal(event);
    }
}

void CDial::mousePressEventInternal(QMouseEvent *event)
{
    if (!(event->buttons() & Qt::LeftButton))
        return;
    // A container forwards the press itself; the dial's own handling comes here with the first move.
    if (event->type() == QEvent::MouseButtonPress)
        mousePressMoveStart(event, DialGeometry::SweepStart, DialGeometry::SweepEnd, false);
    d->pressed = true;
    binding::beginGesture(*this);
    if (verticalMode()) {
        d->lastPoint = event->position().toPoint();
        setValue(value());
    } else {
        setValue(DialGeometry::valueAt(mousePressMoveTrace(event), minimum(), maximum()));
    }
}

void CDial::mouseMoveEventInternal(QMouseEvent *event)
{
    if (d->pressed && (event->buttons() & Qt::LeftButton))
        drag(event);
}

void CDial::drag(QMouseEvent *event)
{
    int next = 0;
    if (verticalMode()) {
        // Whole pixels: on scaled screens events come in fractions, which must add up.
        const QPoint point = event->position().toPoint();
        const QPoint moved = point - d->lastPoint;
        const int change =
            DialGeometry::straightChange(moved.x() - moved.y(), minimum(), maximum());
        next = valueAfter(change);
        d->lastPoint = point;
    } else {
        next = DialGeometry::valueAt(mousePressMoveTrace(event), minimum(), maximum());
    }
    notifyMoved(next);
}

/// The value after a change, held inside the range.
int CDial::valueAfter(int change) const
{
    const qint64 next = qint64(value()) + change;
    return static_cast<int>(qBound(qint64(minimum()), next, qint64(maximum())));
}

/// Sets the value and has the base class tell of the move exactly once, also when the value stays.
void CDial::notifyMoved(int next)
{
    const QPointer<CDial> self(this);
    const int before = value();
    setValue(next);
    if (self && (value() == before || !isSliderDown()))
        Q_EMIT sliderMoved(value());
}

void CDial::mouseReleaseEventInternal(QMouseEvent *)
{
    endDrag();
}

void CDial::endDrag()
{
    const bool wasPressed = d->pressed;
    d->dragging = false;
    d->pressed = false;
    if (wasPressed)
        binding::endGesture(*this);
    setSliderDown(false);
}

void CDial::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier)
        editNumber();
    else
        event->ignore();
}

void CDial::wheelEvent(QWheelEvent *event)
{
    if (!rect().contains(event->position().toPoint()) || disabledUI()) {
        event->ignore();
        return;
    }
    const int steps = event->angleDelta().y() / WheelNotch;
    const QPointer<CDial> self(this);
    setValue(valueAfter(steps));
    event->accept();
    if (!self)
        return;
    if (d->tip)
        d->tip->refresh();
    if (IEditorExtensions *editor = editorAround(this))
        editor->controlStepped(this);
}

void CDial::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down: return subtractLine();
    case Qt::Key_Right:
    case Qt::Key_Up: return addLine();
    case Qt::Key_PageUp: return addPage();
    case Qt::Key_PageDown: return subtractPage();
    default: break;
    }
    QDial::keyPressEvent(event);
    if (event->isAccepted() || disabledUI())
        return;
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool plain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (!plain || (!enter && !beginsNumber(event->text())))
        return;
    event->accept();
    enter ? editNumber() : openNumberField(event->text(), false);
}

void CDial::stepBy(IMemAPI::Step step, SliderAction action)
{
    constexpr int StepperTable = -7;
    if (tableId() == StepperTable && binding::ready(*this))
        setValue(memAPI()->stepValue(this, value(), step));
    else
        triggerAction(action);
}

void CDial::subtractPage()
{
    stepBy(IMemAPI::PageDown, SliderPageStepSub);
}

void CDial::addPage()
{
    stepBy(IMemAPI::PageUp, SliderPageStepAdd);
}

void CDial::subtractLine()
{
    stepBy(IMemAPI::LineDown, SliderSingleStepSub);
}

void CDial::addLine()
{
    stepBy(IMemAPI::LineUp, SliderSingleStepAdd);
}

void CDial::editNumber()
{
    if (!binding::ready(*this))
        return;
    openNumberField(binding::display(*this, d->fromPosition(value()), {minimum(), maximum()}).text,
                    true);
}

void CDial::openNumberField(const QString &text, bool selectAll)
{
    if (!binding::ready(*this))
        return;
    endDrag();
    auto *field = new NS_Utilities::CNumEdit(this);
    connect(field, &NS_Utilities::CNumEdit::numberProposed, this, &CDial::acceptNum);
    field->doEdit({mapToGlobal(QPoint(0, 0)), size()}, text, selectAll);
}

void CDial::enterEvent(QEnterEvent *event)
{
    QDial::enterEvent(event);
    if (d->tip)
        d->tip->appear();
}

void CDial::leaveEvent(QEvent *event)
{
    QDial::leaveEvent(event);
    if (d->tip)
        d->tip->hide();
}

void CDial::hideEvent(QHideEvent *event)
{
    QDial::hideEvent(event);
    endDrag();
    if (d->tip)
        d->tip->hide();
}

void CDial::sliderChange(SliderChange change)
{
    if (change == SliderValueChange)
        valueChange();
    else
        pictureChanged();
}

void CDial::polish()
{
    d->strip.warnIfUneven(*this);
    updateErasePixmap(nullptr);
}

void CDial::enabledChange(bool)
{
    if (!isEnabled())
        endDrag();
    pictureChanged();
}

bool CDial::event(QEvent *event)
{
    const bool handled = QDial::event(event);
    switch (event->type()) {
    case QEvent::Polish: polish(); [[fallthrough]];
    case QEvent::StyleChange:
        // The default style sets this, though the picture does not depend on the pointer.
        setAttribute(Qt::WA_Hover, false);
        [[fallthrough]];
    case QEvent::Resize: setOpacity(); break;
    case QEvent::Show: d->shownPicture = pictureNumber(); break;
    case QEvent::ParentChange:
    case QEvent::PaletteChange: refreshImage(); break;
    default: break;
    }
    return handled;
}

void CDial::changeEvent(QEvent *event)
{
    QDial::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        enabledChange(!isEnabled());
}

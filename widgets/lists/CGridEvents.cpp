// SPDX-License-Identifier: MIT
// What the operator's mouse and keys do to the grid.
#include "widgets/lists/CGridPrivate.h"
#include "widgets/lists/GridAccessible.h"
#include "widgets/painting/Opacity.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>

void CGrid::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || disabledUI()) {
        event->ignore();
        return;
    }
    const QPoint point = event->position().toPoint();
    d->pressCell = {pixelToIndexX(point.x()), pixelToIndexY(point.y())};
}

void CGrid::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint point = event->position().toPoint();
    const QPoint cell(pixelToIndexX(point.x()), pixelToIndexY(point.y()));
    // Behind the last line, and outside while a button is held, there is no cell.
    if (!rect().contains(point) || !hasCell(cell.y(), cell.x()) || cell == d->cursor)
        return;
    repaintCursor();
    d->keyboardCursor = false;
    d->cursor = cell;
    repaintCursor();
    Q_EMIT cursorMoved(cell.x(), cell.y());
}

void CGrid::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const QPoint point = event->position().toPoint();
    const QPoint cell(pixelToIndexX(point.x()), pixelToIndexY(point.y()));
    const QPoint pressed = std::exchange(d->pressCell, Private::NoCell);
    if (pressed == cell && rect().contains(point))
        connectionChange(cell.y(), cell.x(), true);
}

void CGrid::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // A key held down makes one connection.
        if (!event->isAutoRepeat() && !disabledUI())
            connectionChange(d->cursor.y(), d->cursor.x(), true);
        return;
    case Qt::Key_Left: return moveCursor(-1, 0);
    case Qt::Key_Up: return moveCursor(0, -1);
    case Qt::Key_Right: return moveCursor(1, 0);
    case Qt::Key_Down: return moveCursor(0, 1);
    default: event->ignore();
    }
}

void CGrid::moveCursor(int columns, int rows)
{
    if (!hasCell(0, 0))
        return;
    repaintCursor();
    d->keyboardCursor = true;
    d->cursor = {std::clamp(d->cursor.x() + columns, 0, cols() - 1),
                 std::clamp(d->cursor.y() + rows, 0, this->rows() - 1)};
    repaintCursor();
    GridAccessible::announceCursor(*this);
    const QPoint cell = d->cursor;
    const QPointer<CGrid> self(this);
    Q_EMIT cursorMoved(cell.x(), cell.y());
    if (self)
        Q_EMIT kbCursorMoved(cell.x(), cell.y());
}

void CGrid::enterEvent(QEnterEvent *event)
{
    QWidget::enterEvent(event);
    d->mouseInside = true;
    repaintCursor();
}

void CGrid::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    repaintCursor();
    d->mouseInside = false;
    Q_EMIT cursorOff();
}

void CGrid::focusInEvent(QFocusEvent *event)
{
    const Qt::FocusReason reason = event->reason();
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason)
        d->keyboardCursor = true;
    updatePart(d->cellRect(d->cursor));
}

void CGrid::focusOutEvent(QFocusEvent *)
{
    updatePart(d->cellRect(d->cursor));
}

bool CGrid::event(QEvent *event)
{
    const bool handled = QWidget::event(event);
    switch (event->type()) {
    case QEvent::ScreenChangeInternal: opacity::set(*this, true); break;
    case QEvent::EnabledChange:
    case QEvent::PaletteChange: update(); break;
    default: break;
    }
    return handled;
}

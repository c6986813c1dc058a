// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/TestedExport.h"

#include <QBrush>
#include <QPixmap>
#include <QRectF>
#include <QVarLengthArray>

class OnDevicePixels;
class QPainter;

/// One cell of a picture, and where it stands in a control.
struct Blit
{
    const QPixmap *picture; ///< outlives the list that the blit is in
    QRect cell;             ///< in the picture's pixels
    QRectF place;           ///< of the whole cell in the control, device-independent
    QRectF shown;           ///< what of the control it may cover

    /// A cell whose upper left corner stands at `corner`.
    static Blit of(const QPixmap &picture, const QRect &cell, const QPointF &corner,
                   const QRectF &shown)
    {
        return {&picture, cell, {corner, QSizeF(cell.size()) / picture.devicePixelRatio()}, shown};
    }
};

/// Draws one, by a painter on the control that draws in pixels.
void drawBlit(QPainter &painter, const OnDevicePixels &pixels, const Blit &blit);

/// What a control looks like: a background, if it has one of its own, and a few cells of pictures over
/// it, in the order in which they are drawn. A control describes itself so once; whoever needs its
/// pixels (a paint event, a batch, a pixmap) draws this list. GUI thread.
class CONSOLEWIDGETS_TESTED Picture
{
public:
    using Blits = QVarLengthArray<Blit, 4>;

    /// Of a control of that size, device-independent.
    explicit Picture(const QSize &size) : m_size(size) {}

    const QSize &size() const { return m_size; }

    /// Fills the whole control first.
    void fill(const QBrush &brush) { m_background = brush; }
    const QBrush &background() const { return m_background; }

    /// Adds a cell of `picture` whose upper left corner stands at `corner`. Nothing for an empty cell.
    void add(const QPixmap &picture, const QRect &cell, const QPointF &corner = {})
    {
        add(picture, cell, corner, QRectF(QPointF(0, 0), m_size));
    }
    /// The same, of which only what lies in `shown` is seen.
    void add(const QPixmap &picture, const QRect &cell, const QPointF &corner, const QRectF &shown);

    const Blits &blits() const { return m_blits; }

    /// Draws it at the painter's origin, on whole pixels of the device. Leaves the painter as it was.
    void draw(QPainter &painter) const;

private:
    void drawTransformed(QPainter &painter) const;

    QSize m_size;
    QBrush m_background{Qt::NoBrush};
    Blits m_blits;
};

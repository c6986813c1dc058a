// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

class QPaintEvent;
class QPainter;
class QWidget;

/// What lies behind a translucent control: taken from the window's backing store when the control's
/// paint event begins, since then everything beneath is painted and the control is not. Whatever
/// changes beneath brings a paint event, so what was taken last always holds. GUI thread.
class Ground
{
public:
    /// The image that is painted, if it is what the control's window shows; else null.
    static const QImage *storeBehind(const QWidget &control, const QPainter &painter);

    /// The control's paint event begins; `painter` has painted nothing yet into `store`.
    void take(const QWidget &control, const QImage &store, const QPaintEvent &event);
    /// Another ground is there, or may be.
    void forget() { m_picture = {}; }

    /// Whether a picture was taken.
    bool isKnown() const { return !m_picture.isNull(); }
    /// Draws it at the painter's origin.
    void draw(QPainter &painter) const;

private:
    QImage m_picture;
};

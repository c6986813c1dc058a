// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

#include <memory>

class QPaintEvent;
class QPainter;
class QWidget;

/// What lies behind a translucent control: taken from the window's backing store when the control's
/// paint event begins, since then everything beneath is painted and the control is not. Whatever
/// changes beneath brings a paint event, so what was taken last holds as long as all paint events were
/// seen. GUI thread.
class Ground
{
public:
    /// The image that is painted, if it is what the control's window shows; else null.
    static const QImage *storeBehind(const QWidget &control, const QPainter &painter);

    /// The control's paint event begins; its painter has painted nothing yet into `store`.
    void take(const QWidget &control, const QImage &store, const QPaintEvent &event);
    /// Another ground is there, or may be.
    void forget() { m_picture.reset(); }

    /// The pixels that were taken; null if there are none.
    const QImage *picture() const { return m_picture.get(); }

private:
    std::unique_ptr<QImage> m_picture;
};

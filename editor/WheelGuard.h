// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

class QScrollArea;
class QWheelEvent;

/// Keeps a scroll from becoming an edit. While the wheel scrolls a page, controls pass under the
/// pointer that does not move: for as long as a scroll that began over the page is going on, the wheel
/// goes on scrolling wherever the pointer is. A wheel over a control otherwise turns the control.
///
/// A page that is only wider than its window scrolls sideways with the common wheel.
class WheelGuard : public QObject
{
    Q_OBJECT

public:
    /// A scroll ends this long after its last wheel event.
    static constexpr int HoldMilliseconds = 400;

    explicit WheelGuard(QObject *parent = nullptr);

    void watchPage(QScrollArea *page);
    /// A control on a watched page.
    void watchControl(QWidget *control);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool scroll(QScrollArea *page, QWheelEvent *event);

    QPointer<QScrollArea> m_scrolled;
    QElapsedTimer m_sinceScroll;
};

// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/PaintEventsOnly.h"

#include <QApplication>
#include <QEvent>
#include <QPaintEvent>
#include <QWidget>

/// What a widget repaints: the regions of its paint events since the last take.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget &widget) { widget.installEventFilter(this); }

    QRegion take()
    {
        QApplication::processEvents();
        return std::exchange(m_region, {});
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            m_region += static_cast<QPaintEvent *>(event)->region();
        return false;
    }

private:
    PaintEventsOnly m_events;
    QRegion m_region;
};

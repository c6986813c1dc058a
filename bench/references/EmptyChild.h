// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// A child widget that claims to be opaque and paints nothing: a frame with it is what the toolkit
/// takes to carry an update() to a paint event.
class EmptyChild : public QWidget
{
public:
    explicit EmptyChild(QWidget *parent) : QWidget(parent)
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

protected:
    void paintEvent(QPaintEvent *) override {}
};

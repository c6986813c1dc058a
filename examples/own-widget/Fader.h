// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/QtTypes.h"
#include "widgets/binding/BoundParameter.h"

#include <QSlider>

/// A fader for one parameter, drawn by the style: a control of one's own on the binding contract.
class Fader : public QSlider, public TMemProxy
{
    Q_OBJECT
    BOUND_PARAMETER

public:
    explicit Fader(QWidget *parent = nullptr);
    ~Fader() override;

    void connectMemAPI() override;
    void disconnectMemAPI() override;

public Q_SLOTS:
    void process(const Q_UINT8 *data, int operation, Q_UINT32 extra) override;

protected:
    void sliderChange(SliderChange change) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void announce();
};

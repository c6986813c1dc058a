// SPDX-License-Identifier: MIT
#include "bench/Stage.h"

#include "bench/KnobStrip.h"

#include <QEvent>

namespace {
constexpr QSize WindowSize(1200, 800);
constexpr QPoint Place(400, 300);
} // namespace

Stage::Stage()
{
    m_window.resize(WindowSize);
    m_window.show();
    frame(); // becomes active while there is nothing to take the focus
}

void Stage::enter(QWidget &control)
{
    control.setGeometry(QRect(Place, QSize(knobstrip::CellSize, knobstrip::CellSize)));
    control.show();
    frame();
    if (!control.isVisible() || control.hasFocus())
        qFatal("the stage is not as it must be");
}

bool PaintCounter::eventFilter(QObject *, QEvent *event)
{
    paints += event->type() == QEvent::Paint;
    return false;
}

// SPDX-License-Identifier: MIT
#include "bench/Stage.h"

#include "bench/KnobStrip.h"

#include <QBackingStore>
#include <QElapsedTimer>
#include <QEvent>
#include <QImage>
#include <QWindow>

namespace {
constexpr QSize WindowSize(1200, 800);
constexpr QPoint Place(400, 300);
constexpr int Patience = 5000; // milliseconds
} // namespace

Stage::Stage()
{
    m_window.resize(WindowSize);
    show(m_window);
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

void Stage::show(QWidget &window)
{
    window.show();
    QElapsedTimer patience;
    patience.start();
    while (!window.windowHandle()->isExposed()) {
        if (patience.hasExpired(Patience))
            qFatal("the window does not appear");
        frame();
    }
    frame();
}

QRect Stage::place(int number, int columns, const QSize &cell)
{
    const QPoint corner(number % columns * cell.width(), number / columns * cell.height());
    return {corner, cell};
}

QImage onScreen(const QWidget &control)
{
    const auto *shown = static_cast<QImage *>(control.window()->backingStore()->paintDevice());
    return shown->copy({control.mapTo(control.window(), QPoint(0, 0)), control.size()});
}

bool PaintCounter::eventFilter(QObject *, QEvent *event)
{
    paints += event->type() == QEvent::Paint;
    return false;
}

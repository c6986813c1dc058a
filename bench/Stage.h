// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QWidget>

/// A shown window of 1200x800 in which a control stands while it is measured. The control does not
/// have the focus, as nearly everything on a page has not.
class Stage
{
public:
    Stage();

    QWidget &window() { return m_window; }

    /// Puts a control of one cell's size on the stage, shows it and paints it once.
    void enter(QWidget &control);

    /// Shows a window and waits until the window system has it on the screen.
    static void show(QWidget &window);

    /// Place number `number` of a grid with cells of that size, filled row by row.
    static QRect place(int number, int columns, const QSize &cell);

    /// A turn of the event loop, which delivers everything that is posted, paints included.
    static void frame() { QCoreApplication::processEvents(); }

private:
    QWidget m_window;
};

/// What a control's window holds of it for the screen. On platform offscreen.
QImage onScreen(const QWidget &control);

/// Counts the paint events of a widget while it lives.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget &widget) { widget.installEventFilter(this); }

    int paints = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override;
};

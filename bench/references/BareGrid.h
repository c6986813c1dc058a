// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QPaintEvent>
#include <QWidget>

#include <vector>

/// The least that a grid can be: a matrix of switches, drawn cell by cell where it is exposed. All cells
/// have one size, all lines one width.
class BareGrid : public QWidget
{
public:
    static constexpr int Cell = 13;
    static constexpr int Line = 1;

    BareGrid(int count, const QPixmap &ball, QWidget *parent)
        : QWidget(parent), m_count(count), m_ball(ball), m_cells(size_t(count) * size_t(count))
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
        setFixedSize(count * (Cell + Line), count * (Cell + Line));
    }

    void set(int row, int column, bool on)
    {
        m_cells[size_t(row) * size_t(m_count) + size_t(column)] = on;
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        constexpr int Step = Cell + Line;
        QPainter painter(this);
        const QRect exposed = event->rect();
        painter.fillRect(exposed, palette().window());
        const int firstColumn = exposed.left() / Step;
        const int lastColumn = std::min(exposed.right() / Step, m_count - 1);
        const int firstRow = exposed.top() / Step;
        const int lastRow = std::min(exposed.bottom() / Step, m_count - 1);
        for (int column = firstColumn; column <= lastColumn; ++column)
            painter.fillRect(column * Step + Cell, exposed.top(), Line, exposed.height(), m_lines);
        for (int row = firstRow; row <= lastRow; ++row)
            painter.fillRect(exposed.left(), row * Step + Cell, exposed.width(), Line, m_lines);
        const int inset = (Cell - m_ball.width()) / 2;
        for (int row = firstRow; row <= lastRow; ++row) {
            for (int column = firstColumn; column <= lastColumn; ++column) {
                if (m_cells[size_t(row) * size_t(m_count) + size_t(column)])
                    painter.drawPixmap(column * Step + inset, row * Step + inset, m_ball);
            }
        }
    }

private:
    int m_count;
    QPixmap m_ball;
    QColor m_lines{58, 58, 71};
    std::vector<bool> m_cells;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QWidget>

/// The least that a knob can be: a value picks the row of a strip, a paint is one blit. With a
/// translucent strip the parent's background shows through.
class IdealKnob : public QWidget
{
public:
    IdealKnob(const QPixmap &strip, int rows, QWidget *parent)
        : QWidget(parent), m_strip(strip), m_rows(rows)
    {
        setAttribute(Qt::WA_OpaquePaintEvent, !strip.hasAlphaChannel());
    }

    void setRange(int minimum, int maximum)
    {
        m_minimum = minimum;
        m_maximum = maximum;
    }

    void setValue(int value)
    {
        const int row = (value - m_minimum) * (m_rows - 1) / (m_maximum - m_minimum);
        if (row == m_row)
            return;
        m_row = row;
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        const int height = m_strip.height() / m_rows;
        QPainter(this).drawPixmap(QPoint(0, 0), m_strip,
                                  QRect(0, m_row * height, m_strip.width(), height));
    }

private:
    QPixmap m_strip;
    int m_rows;
    int m_minimum = 0;
    int m_maximum = 1;
    int m_row = 0;
};

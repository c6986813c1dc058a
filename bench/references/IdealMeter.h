// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QWidget>

/// The least that a standing meter can be: a length, and a paint of two blits that do not overlap.
class IdealMeter : public QWidget
{
public:
    IdealMeter(const QPixmap &unlit, const QPixmap &lit, QWidget *parent)
        : QWidget(parent), m_unlit(unlit), m_lit(lit)
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

    void setLength(int pixels)
    {
        if (pixels == m_length)
            return;
        m_length = pixels;
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        const int border = height() - m_length;
        QPainter painter(this);
        painter.drawPixmap(QPoint(0, 0), m_unlit, QRect(0, 0, width(), border));
        painter.drawPixmap(QPoint(0, border), m_lit, QRect(0, border, width(), m_length));
    }

private:
    QPixmap m_unlit;
    QPixmap m_lit;
    int m_length = 0;
};

// SPDX-License-Identifier: MIT
#include "widgets/forms/MissingWidget.h"

#include <QPainter>

MissingWidget::MissingWidget(const QString &className, QWidget *parent)
    : QWidget(parent), m_className(className)
{
    setAccessibleName(tr("Missing: %1").arg(className));
    setToolTip(tr("This program has no widget of the class %1.").arg(className));
}

QSize MissingWidget::sizeHint() const
{
    return fontMetrics().boundingRect(m_className).size() + QSize(12, 12);
}

void MissingWidget::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::PlaceholderText), 1, Qt::DashLine));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.drawText(rect().adjusted(3, 3, -3, -3), Qt::AlignCenter | Qt::TextWrapAnywhere,
                     m_className);
}

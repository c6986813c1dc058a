// SPDX-License-Identifier: MIT
#include "interfaces/utilities/YPainter.h"

#include <QWidget>

namespace NS_Utilities {

YPainter::YPainter(QWidget *widget) : QPainter(widget), m_widget(widget) {}

void YPainter::fill(const QColor &colour)
{
    save();
    resetTransform();
    setCompositionMode(CompositionMode_Source);
    fillRect(m_widget->rect(), colour);
    restore();
}

} // namespace NS_Utilities

// SPDX-License-Identifier: MIT
#include "designer/LampPreview.h"

#include "widgets/buttons/StateDisplayBit.h"

#include <QEvent>
#include <QPainter>

LampPreview::LampPreview(StateDisplayBit &lamps) : QObject(&lamps), m_lamps(lamps)
{
    lamps.installEventFilter(this);
}

bool LampPreview::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Paint || m_lamps.memAPI())
        return QObject::eventFilter(watched, event);
    paint();
    return true;
}

void LampPreview::paint()
{
    const QPixmap dark = m_lamps.combinedOffImage();
    const QPixmap lit = m_lamps.combinedOnImage();
    const int count = m_lamps.nSubImages();
    QPainter painter(&m_lamps);
    painter.drawPixmap(0, 0, dark);
    if (count < 1 || lit.size() != dark.size())
        return;
    const QSizeF size = QSizeF(lit.size()) / lit.devicePixelRatio();
    const double height = size.height() / count;
    for (int lamp = 0; lamp < count; lamp += 2) {
        const QRectF place(0, lamp * height, size.width(), height);
        const double ratio = lit.devicePixelRatio();
        painter.drawPixmap(place, lit, {QPointF(0, lamp * height * ratio), place.size() * ratio});
    }
}

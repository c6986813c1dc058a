// SPDX-License-Identifier: MIT
#include "bench/KnobStrip.h"

#include <QPainter>

#include <numbers>

namespace {

constexpr double SweepDegrees = 270;
constexpr double CellCentre = knobstrip::CellSize / 2.0;

void drawKnob(QPainter &painter, double turned)
{
    const double angle = (turned * SweepDegrees - SweepDegrees / 2) * std::numbers::pi / 180;
    const QPointF centre(CellCentre, CellCentre);
    const QPointF pointer(std::sin(angle), -std::cos(angle));
    painter.setPen(QPen(Qt::black, 1));
    painter.setBrush(QColor(70, 75, 80));
    painter.drawEllipse(centre, CellCentre - 5, CellCentre - 5);
    painter.setPen(QPen(Qt::white, 3));
    painter.drawLine(centre + 6 * pointer, centre + 16 * pointer);
}

QPixmap strip(int rows, QImage::Format format, const QColor &background)
{
    QImage image(knobstrip::CellSize, knobstrip::CellSize * rows, format);
    image.fill(background);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int row = 0; row < rows; ++row) {
        drawKnob(painter, double(row) / (rows - 1));
        painter.translate(0, knobstrip::CellSize);
    }
    painter.end();
    return QPixmap::fromImage(image);
}

} // namespace

QPixmap knobstrip::opaque(int rows)
{
    return strip(rows, QImage::Format_RGB32, QColor(40, 44, 48));
}

QPixmap knobstrip::translucent(int rows)
{
    return strip(rows, QImage::Format_ARGB32_Premultiplied, Qt::transparent);
}

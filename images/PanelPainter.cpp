// SPDX-License-Identifier: MIT
#include "images/PanelPainter.h"

#include "images/Drawing.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace artwork {

namespace {

constexpr QColor panelColour(38, 41, 46);
constexpr QColor headerTop(62, 67, 74);
constexpr QColor headerBottom(43, 46, 52);
constexpr QColor etchedDark(0, 0, 0, 150);
constexpr QColor etchedLight(255, 255, 255, 24);

// Levels of brightness by which the grain departs from the panel's colour.
constexpr double grainDepth = 1.5;

// One row of noise, drawn out to `length` pixels and joined at the ends; unit variance.
std::vector<double> scratchedRow(std::mt19937 &random, int width, int length)
{
    std::vector<double> noise(static_cast<size_t>(width));
    for (double &sample : noise)
        sample = static_cast<double>(random()) / std::mt19937::max() - 0.5;
    const double variance = std::sqrt(12.0 / length);
    std::vector<double> row(noise.size(), 0.0);
    for (int x = 0; x < width; ++x) {
        for (int back = 0; back < length; ++back)
            row[static_cast<size_t>(x)] += noise[static_cast<size_t>((x + back) % width)];
        row[static_cast<size_t>(x)] *= variance;
    }
    return row;
}

QRgb shaded(double grain)
{
    const int shade = static_cast<int>(std::lround(std::clamp(grain, -2.0, 2.0) * grainDepth));
    return qRgb(panelColour.red() + shade, panelColour.green() + shade, panelColour.blue() + shade);
}

} // namespace

void paintBrushedPanel(QPainter &painter, QSize size)
{
    const double ratio = painter.device()->devicePixelRatioF();
    QImage grain(size * ratio, QImage::Format_RGB32);
    std::mt19937 random(20);
    for (int y = 0; y < grain.height(); ++y) {
        const auto fine = scratchedRow(random, grain.width(), grain.width() / 12);
        const auto lengthy = scratchedRow(random, grain.width(), grain.width() / 3);
        for (int x = 0; x < grain.width(); ++x) {
            const auto at = static_cast<size_t>(x);
            grain.setPixel(x, y, shaded(0.55 * fine[at] + 0.55 * lengthy[at]));
        }
    }
    grain.setDevicePixelRatio(ratio);
    painter.drawImage(QPointF(), grain);
}

void paintStripHeader(QPainter &painter, QSize size)
{
    QLinearGradient gradient(0, 0, 0, size.height());
    gradient.setColorAt(0.0, headerTop);
    gradient.setColorAt(1.0, headerBottom);
    painter.fillRect(QRect(QPoint(), size), gradient);
    painter.fillRect(0, 0, size.width(), 1, QColor(255, 255, 255, 34));
    painter.fillRect(0, size.height() - 1, size.width(), 1, QColor(0, 0, 0, 140));
}

void paintSeparator(QPainter &painter, QSize size)
{
    const bool upright = size.height() > size.width();
    const QSize line = upright ? QSize(1, size.height()) : QSize(size.width(), 1);
    painter.fillRect(QRect(QPoint(), line), etchedDark);
    painter.fillRect(QRect(upright ? QPoint(1, 0) : QPoint(0, 1), line), etchedLight);
}

} // namespace artwork

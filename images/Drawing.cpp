// SPDX-License-Identifier: MIT
#include "images/Drawing.h"

#include <QtMath>

#include <cmath>

namespace artwork {

double radians(double degrees)
{
    return qDegreesToRadians(degrees);
}

QPointF pointAt(double angle, double radius)
{
    return {radius * std::sin(radians(angle)), -radius * std::cos(radians(angle))};
}

QPainterPath arcPath(double radius, double fromAngle, double toAngle)
{
    const QRectF circle(-radius, -radius, 2 * radius, 2 * radius);
    QPainterPath path;
    path.arcMoveTo(circle, 90.0 - fromAngle);
    path.arcTo(circle, 90.0 - fromAngle, fromAngle - toAngle);
    return path;
}

QColor blend(const QColor &colour, const QColor &other, double share)
{
    const auto mix = [share](float from, float to) {
        return static_cast<float>(from + (to - from) * share);
    };
    return QColor::fromRgbF(mix(colour.redF(), other.redF()), mix(colour.greenF(), other.greenF()),
                            mix(colour.blueF(), other.blueF()),
                            mix(colour.alphaF(), other.alphaF()));
}

QColor withAlpha(QColor colour, int alpha)
{
    colour.setAlpha(alpha);
    return colour;
}

QLinearGradient fromAbove(double radius, const QColor &top, const QColor &bottom)
{
    QLinearGradient gradient(0.0, -radius, 0.0, radius);
    gradient.setColorAt(0.0, top);
    gradient.setColorAt(1.0, bottom);
    return gradient;
}

QRadialGradient softShadow(const QPointF &centre, double inner, double outer, int alpha)
{
    constexpr int steps = 8;
    QRadialGradient gradient(centre, outer);
    for (int step = 0; step <= steps; ++step) {
        const double way = static_cast<double>(step) / steps;
        const double fade = 0.5 + 0.5 * std::cos(way * M_PI);
        gradient.setColorAt((inner + way * (outer - inner)) / outer,
                            QColor(0, 0, 0, static_cast<int>(std::lround(alpha * fade))));
    }
    return gradient;
}

} // namespace artwork

// SPDX-License-Identifier: MIT
#include "images/MeterPainter.h"

#include "images/Drawing.h"
#include "images/KnobStyle.h"
#include "widgets/meters/MeterScale.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace artwork {

namespace {

constexpr QColor body(12, 13, 15);
constexpr int segment = 3; ///< pixels from gap to gap
constexpr double unlitShare = 0.84;

/// The console's codes: 127 is full scale, and a code less is 0.75 dB less.
constexpr unsigned short fullScaleCode = 127;

unsigned short codeAt(double decibels)
{
    return static_cast<unsigned short>(std::max(0L, std::lround(fullScaleCode + decibels / 0.75)));
}

struct Zone
{
    double from; ///< decibels
    QColor colour;
};

// From the end at which the bar begins.
constexpr Zone levelZones[] = {
    {-200, accent::green}, {-18, QColor(190, 220, 60)}, {-9, accent::amber}, {0, accent::red}};
constexpr Zone reductionZones[] = {
    {-200, accent::red}, {-20, accent::amber}, {-9, QColor(255, 205, 90)}};

QColor colourAt(const MeterBar &bar, const MeterScale &scale, double pixel)
{
    const bool level = bar.family == MeterBar::Family::Level;
    const double factor = double(bar.size.height()) / scale.fullScale();
    QColor colour = level ? levelZones[0].colour : reductionZones[0].colour;
    const auto pick = [&](const auto &zones) {
        for (const Zone &zone : zones) {
            // What lights first at a level is the step up to it.
            const int row = scale.indexOf(codeAt(zone.from)) - 1;
            if (pixel >= scale.offset(row) * factor)
                colour = zone.colour;
        }
    };
    level ? pick(levelZones) : pick(reductionZones);
    return colour;
}

/// A line of the bar: brighter in the middle, so that it looks round.
void paintLine(QPainter &painter, const QRectF &line, const QColor &colour, bool lit)
{
    const QColor middle = lit ? blend(colour, Qt::white, 0.22) : blend(colour, body, unlitShare);
    const QColor edge =
        lit ? blend(colour, Qt::black, 0.12) : blend(colour, body, unlitShare + 0.05);
    QLinearGradient gradient(line.topLeft(), line.topRight());
    gradient.setColorAt(0.0, edge);
    gradient.setColorAt(0.5, middle);
    gradient.setColorAt(1.0, edge);
    painter.fillRect(line, gradient);
}

void paintLetter(QPainter &painter, LampStrip::Letter letter, const QColor &colour)
{
    constexpr double radius = 3.1;
    constexpr double opening = 48;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, 1.5, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    if (letter == LampStrip::Letter::Compressor) {
        painter.drawPath(arcPath(radius, 90 - opening, 90 + opening - 360));
        return;
    }
    painter.drawPath(arcPath(radius, 90 - opening, -270));
    painter.drawLine(QPointF(radius + 0.75, 0.3), QPointF(0.6, 0.3));
}

void paintBulb(QPainter &painter, double radius, const QColor &colour, bool lit)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(8, 9, 10));
    painter.drawEllipse(QPointF(), radius, radius);
    const QColor top = lit ? blend(colour, Qt::white, 0.35) : blend(colour, body, 0.80);
    const QColor bottom = lit ? blend(colour, Qt::black, 0.1) : blend(colour, body, 0.92);
    painter.setBrush(fromAbove(radius, top, bottom));
    painter.drawEllipse(QPointF(), radius - 0.9, radius - 0.9);
}

QColor workColour(int work, int most)
{
    constexpr QColor colours[] = {QColor(190, 220, 60), accent::amber, accent::red};
    const int last = static_cast<int>(std::size(colours)) - 1;
    return colours[most > 1 ? (work - 1) * last / (most - 1) : last];
}

} // namespace

void paintMeterBar(QPainter &painter, const MeterBar &bar)
{
    MeterScale scale = bar.scale();
    scale.sumUp();
    const int height = bar.size.height();
    painter.fillRect(QRect(QPoint(), bar.size), body);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (int pixel = 0; pixel < height; ++pixel) {
        if (pixel % segment == segment - 1)
            continue;
        const QRectF line(0, height - 1 - pixel, bar.size.width(), 1);
        paintLine(painter, line, colourAt(bar, scale, pixel), bar.lit);
    }
    painter.restore();
}

QSize sizeOf(const LampStrip &strip)
{
    return {LampStrip::Side, LampStrip::Side * strip.states};
}

void paintLampStrip(QPainter &painter, const LampStrip &strip)
{
    constexpr double centre = LampStrip::Side / 2.0;
    const int most = strip.states - 2;
    for (int state = 0; state < strip.states; ++state) {
        const int work = state - 1;
        painter.save();
        painter.translate(centre, centre + state * LampStrip::Side);
        if (state == 0)
            paintBulb(painter, centre - 0.5, accent::grey, false);
        else if (work == 0)
            paintBulb(painter, centre - 0.5, blend(accent::green, body, 0.25), true);
        else
            paintBulb(painter, centre - 0.5, workColour(work, most), true);
        paintLetter(painter, strip.letter, state == 0 ? QColor(120, 128, 136) : QColor(14, 16, 18));
        painter.restore();
    }
}

QSize sizeOf(const SignalLamp &)
{
    return {SignalLamp::Side, SignalLamp::Side * SignalLamp::States};
}

void paintSignalLamp(QPainter &painter, const SignalLamp &)
{
    constexpr double centre = SignalLamp::Side / 2.0;
    constexpr QColor colours[SignalLamp::States] = {
        accent::green,        QColor(42, 120, 66), QColor(52, 160, 86),  accent::green,
        QColor(190, 220, 60), accent::amber,       QColor(255, 120, 50), accent::red};
    for (int state = 0; state < SignalLamp::States; ++state) {
        painter.save();
        painter.translate(centre, centre + state * SignalLamp::Side);
        paintBulb(painter, centre - 0.5, colours[state], state > 0);
        painter.restore();
    }
}

} // namespace artwork

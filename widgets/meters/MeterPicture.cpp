// SPDX-License-Identifier: MIT
#include "widgets/meters/MeterPicture.h"

#include "widgets/meters/MeterScale.h"

#include <algorithm>
#include <cmath>

namespace {

using Stretch = MeterBands::Stretch;

Stretch clipped(int from, int to, int available)
{
    const Stretch inside{std::max(from, 0), std::min(to, available)};
    return inside.isEmpty() ? Stretch{} : inside;
}

} // namespace

void MeterPicture::setScale(const MeterScale &scale, int height)
{
    m_scale = &scale;
    // Deliberate: the height is what is divided for lying meters, too.
    m_factor = static_cast<double>(height) / scale.fullScale();
    m_scaling = m_factor != 1.0;
}

int MeterPicture::scaled(int pixels, int available) const
{
    if (!m_scaling)
        return pixels;
    // A scale whose full scale is no pixel at all knows two lengths: none and everything.
    if (!std::isfinite(m_factor))
        return pixels > 0 ? available : 0;
    return static_cast<int>(pixels * m_factor);
}

MeterBands MeterPicture::bands(const QSize &size, int index, int peak) const
{
    MeterBands bands;
    if (!m_scale || index < 0)
        return bands;
    const int length = available(size);
    int bar = m_scale->offset(index);
    if (m_kind == Kind::Lamp)
        bar = bar > 0 ? length : 0;
    else
        bar = scaled(bar, length);
    bands.bar = barOf(bar, length);
    if (m_kind != Kind::Reduction && peak > 0)
        bands.mark = markOf(bar, peak, length);
    return bands;
}

Stretch MeterPicture::barOf(int bar, int available) const
{
    if (m_kind == Kind::Lamp)
        return clipped(0, bar, available);
    if (m_kind == Kind::Level) {
        // Deliberate: a lying bar takes what a standing one leaves.
        return m_vertical ? clipped(available - bar, available, available)
                          : clipped(0, available - bar, available);
    }
    ++bar;
    return m_vertical ? clipped(0, available - bar + 1, available)
                      : clipped(available - bar, available, available);
}

/// The mark lights the step of the scale just below the held peak.
Stretch MeterPicture::markOf(int bar, int peak, int available) const
{
    const int top = scaled(m_scale->offset(peak), available);
    const int step = m_scale->stepBelow(peak);
    if (bar > top || step == 0)
        return {};
    const int length = m_scaling ? std::max(1, scaled(step, available)) : step;
    return clipped(available - top, available - top + length, available);
}

QRect MeterPicture::part(const QSize &size, const Stretch &stretch) const
{
    const int length = stretch.to - stretch.from;
    return m_vertical ? QRect(0, stretch.from, size.width(), length)
                      : QRect(stretch.from, 0, length, size.height());
}

MeterPicture::Blits MeterPicture::blits(const QSize &size, const MeterBands &bands) const
{
    Stretch first = bands.bar;
    Stretch second = bands.mark;
    if (first.isEmpty() || (!second.isEmpty() && second.from < first.from))
        std::swap(first, second);
    // Where they overlap or meet they are one.
    if (!second.isEmpty() && second.from <= first.to) {
        first.to = std::max(first.to, second.to);
        second = {};
    }
    Blits parts;
    int drawn = 0;
    const auto draw = [&](int to, bool lit) {
        if (to > drawn)
            parts.append({part(size, {drawn, to}), lit});
        drawn = std::max(drawn, to);
    };
    for (const Stretch &lit : {first, second}) {
        if (lit.isEmpty())
            continue;
        draw(lit.from, false);
        draw(lit.to, true);
    }
    draw(available(size), false);
    return parts;
}

// SPDX-License-Identifier: MIT
#include "widgets/graphs/FilterCascade.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

using std::numbers::pi;
using std::numbers::sqrt2;

/// The corner on the frequency axis of the analogue prototype, as the bilinear transform bends it.
double prewarped(double frequency, double sampleRate)
{
    return std::tan(pi * frequency / sampleRate);
}

double factorOf(double decibels)
{
    return std::pow(10.0, decibels * 0.05);
}

/// x² + damping·x·s + s² under the bilinear transform: a pair of poles or zeros with its corner at x.
struct Pair
{
    Pair(double x, double damping)
        : p0(x * x + damping * x + 1), p1(-2 * (1 - x * x)), p2(1 - damping * x + x * x)
    {
    }
    double p0, p1, p2;
};

/// Of the k-th pair of poles, which lie on a circle at equal angles.
double butterworthDamping(int order, std::size_t k)
{
    return -2 * std::cos((order + 1 + 2 * static_cast<double>(k)) * pi / (2 * order));
}

} // namespace

FilterCascade::FilterCascade()
{
    setOrder(2);
}

void FilterCascade::setOrder(int order)
{
    m_order = std::clamp(order, 0, MaximumOrder);
    const auto pairs = static_cast<std::size_t>(m_order / 2);
    m_sections.assign(pairs, {});
    m_memory.assign(pairs, {});
    m_magnitudes.assign(pairs + (hasFirstOrder() ? 1 : 0), {});
}

void FilterCascade::clearState()
{
    std::ranges::fill(m_sections, Section());
    std::ranges::fill(m_memory, std::array<double, 2>());
    std::ranges::fill(m_magnitudes, SectionMagnitude());
    m_firstOrder = {};
    m_firstOrderMemory = 0;
}

void FilterCascade::force(int order)
{
    if (m_order == std::clamp(order, 0, MaximumOrder))
        return;
    setOrder(order);
    clearState();
}

void FilterCascade::setSection(std::size_t number, const Section &section)
{
    m_sections[number] = section;
    m_magnitudes[number] = {{section.b0, section.b1, section.b2}, {1, -section.a1, -section.a2}};
}

void FilterCascade::setFirstOrder(const FirstOrder &section)
{
    m_firstOrder = section;
    m_magnitudes.back() = {{section.b0, section.b1, 0}, {1, -section.a1, 0}};
}

/// A step between two corners with `gain` above it.
void FilterCascade::designStep1(double zeroCorner, double poleCorner, double gain)
{
    force(2);
    const double scale = gain / (poleCorner + 1);
    setSection(0, {(zeroCorner + 1) * scale, -(1 - zeroCorner) * scale, 0,
                   (1 - poleCorner) / (poleCorner + 1), 0});
}

void FilterCascade::designStep2(double zeroCorner, double poleCorner, double gain)
{
    force(2);
    const Pair zeros(zeroCorner, sqrt2);
    const Pair poles(poleCorner, sqrt2);
    const double scale = gain / poles.p0;
    setSection(0, {zeros.p0 * scale, zeros.p1 * scale, zeros.p2 * scale, -poles.p1 / poles.p0,
                   -poles.p2 / poles.p0});
}

void FilterCascade::designLowShelf1(double frequency, double gain, double sampleRate)
{
    const double t = prewarped(frequency, sampleRate);
    const double s = t * factorOf(std::abs(gain));
    gain >= 0 ? designStep1(s, t, 1) : designStep1(t, s, 1);
}

void FilterCascade::designLowShelf1Upper(double frequency, double gain, double sampleRate)
{
    const double t = prewarped(frequency, sampleRate);
    const double factor = factorOf(gain);
    gain >= 0 ? designStep1(t, t / factor, 1) : designStep1(t * factor, t, 1);
}

void FilterCascade::designHighShelf1(double frequency, double gain, double sampleRate)
{
    const double t = prewarped(frequency, sampleRate);
    const double factor = factorOf(std::abs(gain));
    const double s = t * factor;
    gain >= 0 ? designStep1(t, s, factor) : designStep1(s, t, 1 / factor);
}

void FilterCascade::designLowShelf2(double frequency, double gain, double sampleRate)
{
    const double t = prewarped(frequency, sampleRate);
    const double s = t / std::sqrt(factorOf(std::abs(gain)));
    gain >= 0 ? designStep2(t, s, 1) : designStep2(s, t, 1);
}

void FilterCascade::designHighShelf2(double frequency, double gain, double sampleRate)
{
    const double t = prewarped(frequency, sampleRate);
    const double factor = factorOf(std::abs(gain));
    const double s = t * std::sqrt(factor);
    gain >= 0 ? designStep2(t, s, factor) : designStep2(s, t, 1 / factor);
}

void FilterCascade::designHighPass(int order, double frequency, double sampleRate)
{
    force(order);
    const double t = prewarped(frequency, sampleRate);
    for (std::size_t k = 0; k < m_sections.size(); ++k) {
        const Pair poles(t, butterworthDamping(m_order, k));
        const double scale = 1 / poles.p0;
        setSection(k, {scale, -2 * scale, scale, -poles.p1 * scale, -poles.p2 * scale});
    }
    if (hasFirstOrder())
        setFirstOrder({1 / (t + 1), -1 / (t + 1), (1 - t) / (t + 1)});
}

void FilterCascade::designLowPass(int order, double frequency, double sampleRate)
{
    force(order);
    const double t = prewarped(frequency, sampleRate);
    for (std::size_t k = 0; k < m_sections.size(); ++k) {
        const Pair poles(t, butterworthDamping(m_order, k));
        const double scale = t * t / poles.p0;
        setSection(k, {scale, 2 * scale, scale, -poles.p1 / poles.p0, -poles.p2 / poles.p0});
    }
    if (hasFirstOrder())
        setFirstOrder({t / (t + 1), t / (t + 1), (1 - t) / (t + 1)});
}

void FilterCascade::designOnePoleLowPass(double frequency, double sampleRate)
{
    force(1);
    const double alpha = 1 - std::exp(-2 * pi * frequency / sampleRate);
    setFirstOrder({alpha, 0, 1 - alpha});
}

void FilterCascade::designOnePoleHighPass(double frequency, double sampleRate)
{
    force(1);
    const double alpha = 1 - std::exp(-2 * pi * frequency / sampleRate);
    const double beta = 1 - alpha / 2;
    setFirstOrder({beta, -beta, beta});
}

double FilterCascade::responseDb(double frequency, double sampleRate) const
{
    return magnitude::decibels(m_magnitudes, CirclePoint::at(frequency, sampleRate));
}

void FilterCascade::responseDb(std::span<const double> frequencies, double sampleRate,
                               std::span<double> decibels) const
{
    magnitude::decibels(m_magnitudes, frequencies, sampleRate, decibels);
}

void FilterCascade::responseDb(const ResponseGrid &grid, std::span<double> decibels) const
{
    magnitude::decibels(m_magnitudes, grid, decibels);
}

double FilterCascade::filter(double sample)
{
    for (std::size_t k = 0; k < m_sections.size(); ++k) {
        const Section &section = m_sections[k];
        auto &[first, second] = m_memory[k];
        const double out = section.b0 * sample + first;
        first = section.b1 * sample + section.a1 * out + second;
        second = section.b2 * sample + section.a2 * out;
        sample = out;
    }
    if (!hasFirstOrder())
        return sample;
    const double out = m_firstOrder.b0 * sample + m_firstOrderMemory;
    m_firstOrderMemory = m_firstOrder.b1 * sample + m_firstOrder.a1 * out;
    return out;
}

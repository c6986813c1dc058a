// SPDX-License-Identifier: MIT
#include "widgets/graphs/PeakingBand.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

namespace {

/// How much of its Q a band keeps near the top of the spectrum, for a range of sample rates.
struct Correction
{
    double below;     ///< sample rates below this
    double threshold; ///< frequencies above this
    double a, b, c;   ///< a − b·log2(Q) − c·frequency
};

constexpr double Unlimited = std::numeric_limits<double>::infinity();

constexpr Correction corrections[] = {
    {48000, 2000, 1.25513, 0.0301, 0.00004817},
    {88200, 2000, 1.25686, 0.02143, 0.00004103},
    {96000, 4000, 1.29486, 0.0317, 0.00002462},
    {Unlimited, 4000, 1.21531, 0.02382, 0.00002004},
};

constexpr double LeastCorrectedQ = 0.1;

double correctedQ(double frequency, double sampleRate, double q)
{
    const auto *range = std::ranges::find_if(
        corrections, [=](const Correction &each) { return sampleRate < each.below; });
    if (range == std::end(corrections) || !(frequency > range->threshold))
        return q;
    const double factor = range->a - range->b * std::log2(q) - range->c * frequency;
    return factor <= 1 ? std::max(factor * q, LeastCorrectedQ) : q;
}

PeakingBand::Kind kindOf(double gain)
{
    if (gain < 0)
        return PeakingBand::Cut;
    return gain > 0 ? PeakingBand::Boost : PeakingBand::Flat;
}

} // namespace

void PeakingBand::designPeaking(double frequency, double sampleRate, double q, double gain)
{
    m_kind = kindOf(gain);
    q = correctedQ(frequency, sampleRate, q);
    // Deliberate: no gain counts as "off". A band with -100 dB is a deep cut like any other.
    m_gainMinusOne = std::pow(10.0, std::abs(gain) * 0.05) - 1;
    const double u = 2 * std::tan(std::numbers::pi * frequency / sampleRate);
    const double width = 2 * u / q;
    const double divisor = u * u + width + 4;
    m_c0 = (2 * u * u - 8) / divisor;
    m_c1 = (4 - width + u * u) / divisor;
    m_bandPass = width / divisor;
    m_scaledBandPass = m_bandPass * m_gainMinusOne;
}

std::complex<double> PeakingBand::bandPassResponse(double frequency, double sampleRate) const
{
    if (m_order == 0)
        return 1;
    const std::complex<double> z = std::polar(1.0, -2 * std::numbers::pi * frequency / sampleRate);
    const std::complex<double> response =
        m_bandPass * (1.0 - z * z) / (1.0 + m_c0 * z + m_c1 * z * z);
    const bool finite = std::isfinite(response.real()) && std::isfinite(response.imag());
    return finite ? response : 0;
}

SectionMagnitude PeakingBand::boostMagnitude() const
{
    if (m_order == 0)
        return {};
    const QuadraticMagnitude denominator(1, m_c0, m_c1);
    // What the band-pass filter adds lies across the real part, which thus stays exact.
    QuadraticMagnitude numerator = denominator;
    const double across = 1 - m_c1 + 2 * m_scaledBandPass;
    numerator.width = across * across;
    return {numerator, denominator};
}

SectionMagnitude PeakingBand::cutMagnitude() const
{
    if (m_order == 0)
        return {};
    const auto [numerator, denominator] = boostMagnitude();
    return {denominator, numerator};
}

double PeakingBand::boostResponseDb(double frequency, double sampleRate) const
{
    const SectionMagnitude section = boostMagnitude();
    return magnitude::decibels({&section, 1}, CirclePoint::at(frequency, sampleRate));
}

double PeakingBand::cutResponseDb(double frequency, double sampleRate) const
{
    const SectionMagnitude section = cutMagnitude();
    return magnitude::decibels({&section, 1}, CirclePoint::at(frequency, sampleRate));
}

void PeakingBand::boostResponseDb(std::span<const double> frequencies, double sampleRate,
                                  std::span<double> decibels) const
{
    const SectionMagnitude section = boostMagnitude();
    magnitude::decibels({&section, 1}, frequencies, sampleRate, decibels);
}

void PeakingBand::cutResponseDb(std::span<const double> frequencies, double sampleRate,
                                std::span<double> decibels) const
{
    const SectionMagnitude section = cutMagnitude();
    magnitude::decibels({&section, 1}, frequencies, sampleRate, decibels);
}

void PeakingBand::boostResponseDb(const ResponseGrid &grid, std::span<double> decibels) const
{
    const SectionMagnitude section = boostMagnitude();
    magnitude::decibels({&section, 1}, grid, decibels);
}

void PeakingBand::cutResponseDb(const ResponseGrid &grid, std::span<double> decibels) const
{
    const SectionMagnitude section = cutMagnitude();
    magnitude::decibels({&section, 1}, grid, decibels);
}

double PeakingBand::filter(double sample)
{
    if (m_order == 0)
        return 0;
    auto &[in1, in2, out1, out2] = m_memory;
    const double first = 1 + m_scaledBandPass;
    const double last = m_c1 - m_scaledBandPass;
    const double out = m_kind == Cut
                           ? (sample + m_c0 * (in1 - out1) + m_c1 * in2 - last * out2) / first
                           : first * sample + m_c0 * (in1 - out1) + last * in2 - m_c1 * out2;
    in2 = std::exchange(in1, sample);
    out2 = std::exchange(out1, out);
    return out;
}

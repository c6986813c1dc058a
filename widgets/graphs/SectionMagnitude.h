// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

#include <cstddef>
#include <span>

class ResponseGrid;

/// What magnitude responses give where there is nothing to show: no output at all, or a filter that
/// is not defined.
constexpr double ResponseFloorDb = -100.0;

/// A point of the unit circle, by what a magnitude depends on.
struct CONSOLEWIDGETS_EXPORT CirclePoint
{
    double halfSine; ///< sin²(ω/2); unlike a cosine it keeps its precision at low frequencies
    double sine;     ///< sin²ω

    /// The point of a frequency in Hz. Frequencies above half the sample rate are mirrored, as
    /// sampling does; without a usable sample rate the point is not a number.
    static CirclePoint at(double frequency, double sampleRate);
};

/// |p0 + p1·z + p2·z²|² on the unit circle, as (atZero − slope·sin²(ω/2))² + width·sin²ω: a sum of
/// squares, in which poles and zeros close to 0 Hz do not cancel.
struct QuadraticMagnitude
{
    double atZero = 0; ///< p0 + p1 + p2
    double slope = 0;  ///< 2·(p0 + p2)
    double width = 0;  ///< (p0 − p2)²

    QuadraticMagnitude() = default;
    /// The coefficients of the polynomial, that of 1 first.
    QuadraticMagnitude(double p0, double p1, double p2)
        : atZero((p0 + p1) + p2), slope(2 * (p0 + p2)), width((p0 - p2) * (p0 - p2))
    {
    }

    /// Not below 0.
    double at(const CirclePoint &point) const
    {
        const double real = atZero - slope * point.halfSine;
        return real * real + width * point.sine;
    }
};

/// The squared magnitude of one section of a filter.
struct SectionMagnitude
{
    QuadraticMagnitude numerator;   ///< of the zeros
    QuadraticMagnitude denominator; ///< of the poles
};

namespace magnitude {

/// The magnitude in dB of sections in series.
double decibels(std::span<const SectionMagnitude> sections, const CirclePoint &point);

/// The same for many points at once. Allocates nothing, and uses the widest instructions that the
/// processor has. What grid and span do not share in length is left alone.
void decibels(std::span<const SectionMagnitude> sections, const ResponseGrid &grid,
              std::span<double> decibels);

/// The same for frequencies in Hz.
void decibels(std::span<const SectionMagnitude> sections, std::span<const double> frequencies,
              double sampleRate, std::span<double> decibels);

} // namespace magnitude

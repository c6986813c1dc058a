// SPDX-License-Identifier: MIT
#include "widgets/graphs/SectionMagnitude.h"

#include "widgets/graphs/ResponseGrid.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>

// The loops over points are written once and compiled twice, for every processor of the platform and
// for those with wider instructions; which one runs is decided when the first curve is evaluated.
#if defined(__GNUC__) && defined(__x86_64__)
#    define WIDE_POINTS __attribute__((target("avx2")))
#    define IN_BOTH inline __attribute__((always_inline))
#else
#    define IN_BOTH inline
#endif

namespace {

/// Points that are worked on together: few enough to stay in the fastest cache.
constexpr std::size_t BlockSize = 64;

/// Sections whose product is divided at once. More could leave the range of a double.
constexpr std::size_t SectionsPerQuotient = 8;

/// Twenty divided by the natural logarithm of ten, over the odd numbers: the series of
/// 10·log10((1 + f) / (1 − f)), which has 2e-13 dB left after eight terms.
constexpr double Series = 20 / std::numbers::ln10;

IN_BOTH void multiply(const SectionMagnitude &section, const double *halfSines, const double *sines,
                      std::size_t count, double *numerators, double *denominators)
{
    const auto [atZero, slope, width] = section.numerator;
    const auto [atZeroBelow, slopeBelow, widthBelow] = section.denominator;
    for (std::size_t i = 0; i < count; ++i) {
        const double above = atZero - slope * halfSines[i];
        const double below = atZeroBelow - slopeBelow * halfSines[i];
        numerators[i] *= above * above + width * sines[i];
        denominators[i] *= below * below + widthBelow * sines[i];
    }
}

IN_BOTH void squaredMagnitudes(std::span<const SectionMagnitude> sections, const double *halfSines,
                               const double *sines, std::size_t count, double *squares)
{
    double denominators[BlockSize];
    std::fill_n(squares, count, 1.0);
    while (!sections.empty()) {
        const std::size_t some = std::min(sections.size(), SectionsPerQuotient);
        std::fill_n(denominators, count, 1.0);
        for (const SectionMagnitude &section : sections.first(some))
            multiply(section, halfSines, sines, count, squares, denominators);
        for (std::size_t i = 0; i < count; ++i)
            squares[i] /= denominators[i];
        sections = sections.subspan(some);
    }
}

/// 10·log10 of normal numbers. True when some of them are none (zero, tiny, infinite, not a number):
/// their results mean nothing.
IN_BOTH bool logarithms(const double *squares, std::size_t count, double *decibels)
{
    constexpr std::uint64_t one = std::bit_cast<std::uint64_t>(1.0);
    constexpr std::uint64_t lowest = std::bit_cast<std::uint64_t>(std::numbers::sqrt2 / 2);
    constexpr std::uint64_t exponentBits = 0xFFF0'0000'0000'0000;
    constexpr std::uint64_t smallest = 0x0010'0000'0000'0000;
    constexpr std::uint64_t greatest = 0x7FEF'FFFF'FFFF'FFFF;
    // An integer in the lower bits of this number's mantissa makes it greater by as much.
    constexpr double integers = 0x1p52;
    constexpr std::uint64_t integersBits = std::bit_cast<std::uint64_t>(integers);
    std::uint64_t odd = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const auto bits = std::bit_cast<std::uint64_t>(squares[i]);
        odd |= (bits - smallest) | (greatest - bits);
        const std::uint64_t shifted = bits + (one - lowest);
        const double exponent =
            std::bit_cast<double>((shifted >> 52) | integersBits) - (integers + 1023);
        const auto mantissa = std::bit_cast<double>(bits - ((shifted & exponentBits) - one));
        const double f = (mantissa - 1) / (mantissa + 1);
        const double g = f * f;
        double sum = Series / 15;
        sum = sum * g + Series / 13;
        sum = sum * g + Series / 11;
        sum = sum * g + Series / 9;
        sum = sum * g + Series / 7;
        sum = sum * g + Series / 5;
        sum = sum * g + Series / 3;
        sum = sum * g + Series;
        constexpr double octave = 10 * std::numbers::ln2 / std::numbers::ln10;
        decibels[i] = exponent * octave + f * sum;
    }
    return odd >> 63;
}

double decibelsOf(double square)
{
    if (!(square > 0))
        return ResponseFloorDb;
    return 10 * std::log10(std::min(square, std::numeric_limits<double>::max()));
}

IN_BOTH void evaluate(std::span<const SectionMagnitude> sections, const double *halfSines,
                      const double *sines, std::size_t count, double *decibels)
{
    double squares[BlockSize];
    for (std::size_t begin = 0; begin < count; begin += BlockSize) {
        const std::size_t some = std::min(BlockSize, count - begin);
        squaredMagnitudes(sections, halfSines + begin, sines + begin, some, squares);
        if (logarithms(squares, some, decibels + begin))
            std::transform(squares, squares + some, decibels + begin, decibelsOf);
    }
}

using Evaluate = void (*)(std::span<const SectionMagnitude>, const double *, const double *,
                          std::size_t, double *);

void evaluateAnywhere(std::span<const SectionMagnitude> sections, const double *halfSines,
                      const double *sines, std::size_t count, double *decibels)
{
    evaluate(sections, halfSines, sines, count, decibels);
}

#ifdef WIDE_POINTS
WIDE_POINTS void evaluateWide(std::span<const SectionMagnitude> sections, const double *halfSines,
                              const double *sines, std::size_t count, double *decibels)
{
    evaluate(sections, halfSines, sines, count, decibels);
}
#endif

Evaluate fastest()
{
#ifdef WIDE_POINTS
    if (__builtin_cpu_supports("avx2"))
        return evaluateWide;
#endif
    return evaluateAnywhere;
}

void evaluateFastest(std::span<const SectionMagnitude> sections, const double *halfSines,
                     const double *sines, std::size_t count, double *decibels)
{
    static const Evaluate chosen = fastest();
    chosen(sections, halfSines, sines, count, decibels);
}

} // namespace

CirclePoint CirclePoint::at(double frequency, double sampleRate)
{
    double turn = std::abs(frequency / sampleRate);
    turn -= std::floor(turn);
    turn = std::min(turn, 1 - turn);
    const double low = std::sin(std::numbers::pi * turn);
    const double high = std::sin(std::numbers::pi * (0.5 - turn));
    const double product = 2 * low * high;
    return {low * low, product * product};
}

double magnitude::decibels(std::span<const SectionMagnitude> sections, const CirclePoint &point)
{
    double square = 1;
    while (!sections.empty()) {
        const std::size_t some = std::min(sections.size(), SectionsPerQuotient);
        double denominator = 1;
        for (const SectionMagnitude &section : sections.first(some)) {
            square *= section.numerator.at(point);
            denominator *= section.denominator.at(point);
        }
        square /= denominator;
        sections = sections.subspan(some);
    }
    return decibelsOf(square);
}

void magnitude::decibels(std::span<const SectionMagnitude> sections, const ResponseGrid &grid,
                         std::span<double> decibels)
{
    evaluateFastest(sections, grid.halfSines().data(), grid.sines().data(),
                    std::min(grid.size(), decibels.size()), decibels.data());
}

void magnitude::decibels(std::span<const SectionMagnitude> sections,
                         std::span<const double> frequencies, double sampleRate,
                         std::span<double> decibels)
{
    double halfSines[BlockSize];
    double sines[BlockSize];
    const std::size_t count = std::min(frequencies.size(), decibels.size());
    for (std::size_t begin = 0; begin < count; begin += BlockSize) {
        const std::size_t some = std::min(BlockSize, count - begin);
        for (std::size_t i = 0; i < some; ++i) {
            const CirclePoint point = CirclePoint::at(frequencies[begin + i], sampleRate);
            halfSines[i] = point.halfSine;
            sines[i] = point.sine;
        }
        evaluateFastest(sections, halfSines, sines, some, decibels.data() + begin);
    }
}

// SPDX-License-Identifier: MIT
#include "bench/references/FilterReference.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace {

constexpr std::size_t BlockSize = 64;

void expand(double p0, double p1, double p2, double (&polynomial)[3])
{
    polynomial[0] = (p0 + p1 + p2) * (p0 + p1 + p2);
    polynomial[1] = -4 * (p0 * p1 + 4 * p0 * p2 + p1 * p2);
    polynomial[2] = 16 * p0 * p2;
}

/// 10·log10 of a positive number.
inline double logarithm(double square)
{
    constexpr double series = 20 / std::numbers::ln10;
    constexpr auto one = std::bit_cast<std::uint64_t>(1.0);
    constexpr auto lowest = std::bit_cast<std::uint64_t>(std::numbers::sqrt2 / 2);
    const auto bits = std::bit_cast<std::uint64_t>(square);
    const std::uint64_t shifted = bits + (one - lowest);
    const double exponent =
        std::bit_cast<double>((shifted >> 52) | std::bit_cast<std::uint64_t>(0x1p52))
        - (0x1p52 + 1023);
    const auto mantissa = std::bit_cast<double>(bits - ((shifted & 0xFFF0'0000'0000'0000) - one));
    const double f = (mantissa - 1) / (mantissa + 1);
    const double g = f * f;
    double sum = series / 15;
    for (const int divisor : {13, 11, 9, 7, 5, 3, 1})
        sum = sum * g + series / divisor;
    return exponent * (10 * std::numbers::ln2 / std::numbers::ln10) + f * sum;
}

} // namespace

FilterReference::FilterReference(std::span<const Section> sections)
{
    for (const Section &each : sections) {
        Polynomial &polynomial = m_polynomials.emplace_back();
        expand(each.b0, each.b1, each.b2, polynomial.above);
        expand(1, -each.a1, -each.a2, polynomial.below);
    }
}

void FilterReference::decibels(std::span<const double> halfSines, std::span<double> decibels) const
{
    double above[BlockSize];
    double below[BlockSize];
    for (std::size_t begin = 0; begin < halfSines.size(); begin += BlockSize) {
        const std::size_t count = std::min(BlockSize, halfSines.size() - begin);
        const double *const s = halfSines.data() + begin;
        double *const out = decibels.data() + begin;
        std::fill_n(above, count, 1.0);
        std::fill_n(below, count, 1.0);
        for (const Polynomial &each : m_polynomials) {
            const auto [a0, a1, a2] = each.above;
            const auto [b0, b1, b2] = each.below;
            for (std::size_t i = 0; i < count; ++i) {
                above[i] *= a0 + s[i] * (a1 + s[i] * a2);
                below[i] *= b0 + s[i] * (b1 + s[i] * b2);
            }
        }
        for (std::size_t i = 0; i < count; ++i) {
            const double square = above[i] / below[i];
            const double level = logarithm(square);
            out[i] = square > 0 ? level : -100.0;
        }
    }
}

double complexProductDb(std::span<const FilterReference::Section> sections, double frequency,
                        double sampleRate)
{
    const double omega = 2 * std::numbers::pi * frequency / sampleRate;
    const std::complex<double> z(std::cos(omega), -std::sin(omega));
    std::complex<double> product = 1;
    for (const FilterReference::Section &each : sections)
        product *=
            (each.b0 + each.b1 * z + each.b2 * z * z) / (1.0 - each.a1 * z - each.a2 * z * z);
    const double square = std::norm(product);
    return square > 0 ? 10 * std::log10(square) : -100.0;
}

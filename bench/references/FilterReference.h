// SPDX-License-Identifier: MIT
#pragma once

#include <complex>
#include <span>
#include <vector>

/// How responses of sections in series are evaluated when no effort is spared and no wider
/// instructions are used than every processor of the platform has: squared magnitudes as polynomials
/// in sin²(ω/2), which come from a table, and a logarithm by a series.
class FilterReference
{
public:
    /// y = b0·x0 + b1·x1 + b2·x2 + a1·y1 + a2·y2.
    struct Section
    {
        double b0, b1, b2, a1, a2;
    };

    explicit FilterReference(std::span<const Section> sections);

    /// Magnitudes in dB at the points of a table of sin²(ω/2).
    void decibels(std::span<const double> halfSines, std::span<double> decibels) const;

private:
    struct Polynomial
    {
        double above[3], below[3];
    };
    std::vector<Polynomial> m_polynomials;
};

/// The definition, one frequency at a time: one sine and cosine, complex quotients, one logarithm.
double complexProductDb(std::span<const FilterReference::Section> sections, double frequency,
                        double sampleRate);

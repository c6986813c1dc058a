// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

#include <cstddef>
#include <span>
#include <vector>

/// The frequencies at which a plot shows responses, prepared so that a curve costs no trigonometry.
/// Made when a plot gets its width; any number of filters is evaluated on it.
class CONSOLEWIDGETS_EXPORT ResponseGrid
{
public:
    ResponseGrid() = default;
    /// `frequencies` and `sampleRate` are in Hz.
    ResponseGrid(std::span<const double> frequencies, double sampleRate);

    /// `points` frequencies from `first` to `last`, both included, in equal ratios.
    static ResponseGrid logarithmic(double first, double last, std::size_t points,
                                    double sampleRate);

    /// How many frequencies.
    std::size_t size() const { return m_frequencies.size(); }
    /// In Hz.
    double sampleRate() const { return m_sampleRate; }
    /// In Hz, as given.
    std::span<const double> frequencies() const { return m_frequencies; }
    /// sin²(ω/2) and sin²ω of every frequency.
    std::span<const double> halfSines() const { return m_halfSines; }
    std::span<const double> sines() const { return m_sines; }

private:
    double m_sampleRate = 0;
    std::vector<double> m_frequencies;
    std::vector<double> m_halfSines;
    std::vector<double> m_sines;
};

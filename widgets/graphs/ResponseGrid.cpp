// SPDX-License-Identifier: MIT
#include "widgets/graphs/ResponseGrid.h"

#include "widgets/graphs/SectionMagnitude.h"

#include <cmath>

ResponseGrid::ResponseGrid(std::span<const double> frequencies, double sampleRate)
    : m_sampleRate(sampleRate), m_frequencies(frequencies.begin(), frequencies.end())
{
    m_halfSines.reserve(size());
    m_sines.reserve(size());
    for (const double frequency : frequencies) {
        const CirclePoint point = CirclePoint::at(frequency, sampleRate);
        m_halfSines.push_back(point.halfSine);
        m_sines.push_back(point.sine);
    }
}

ResponseGrid ResponseGrid::logarithmic(double first, double last, std::size_t points,
                                       double sampleRate)
{
    std::vector<double> frequencies(points, first);
    for (std::size_t i = 1; i < points; ++i) {
        const double share = static_cast<double>(i) / static_cast<double>(points - 1);
        frequencies[i] = first * std::pow(last / first, share);
    }
    return {frequencies, sampleRate};
}

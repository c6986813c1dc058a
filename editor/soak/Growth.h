// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

/// Whether something grows over time: by the straight line that fits all samples best. One sample at a
/// moment of much or little says nothing.
class Growth
{
public:
    void add(double minutes, double value) { m_samples.push_back({minutes, value}); }

    int samples() const { return static_cast<int>(m_samples.size()); }
    /// The line's slope; 0 below two samples.
    double perMinute() const;
    /// What the line gains from the first sample to the last.
    double overall() const;

private:
    struct Sample
    {
        double minutes;
        double value;
    };
    std::vector<Sample> m_samples;
};

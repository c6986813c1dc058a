// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// What one row of the table came to.
struct Measurement
{
    /// A case that was timed for it, and what it usually took.
    struct Timing
    {
        std::string name;
        double nanoseconds;
    };

    double ratio = 0;
    double lowerQuartile = 0; ///< of the ratios of all rounds
    double upperQuartile = 0;
    std::vector<Timing> timings;
};

/// The value in the middle; `values` must not be empty.
double median(std::vector<double> values);

/// Median and quartiles of the ratios of all rounds.
Measurement summary(std::vector<double> ratios);

/// A measurement as text, for another process, and back.
std::string toText(const Measurement &measurement);
Measurement fromText(const std::string &text);

/// A row that counts something instead of timing it.
inline Measurement counted(double count)
{
    return {count, count, count, {}};
}

// SPDX-License-Identifier: MIT
#include "bench/Measurement.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace {

double quantile(const std::vector<double> &sorted, double part)
{
    return sorted[static_cast<size_t>(part * static_cast<double>(sorted.size() - 1) + 0.5)];
}

} // namespace

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return quantile(values, 0.5);
}

Measurement summary(std::vector<double> ratios)
{
    std::sort(ratios.begin(), ratios.end());
    return {quantile(ratios, 0.5), quantile(ratios, 0.25), quantile(ratios, 0.75), {}};
}

std::string toText(const Measurement &measurement)
{
    std::ostringstream text;
    text << measurement.ratio << ' ' << measurement.lowerQuartile << ' '
         << measurement.upperQuartile << '\n';
    for (const Measurement::Timing &each : measurement.timings)
        text << each.nanoseconds << ' ' << each.name << '\n';
    return text.str();
}

Measurement fromText(const std::string &text)
{
    std::istringstream from(text);
    Measurement measurement;
    from >> measurement.ratio >> measurement.lowerQuartile >> measurement.upperQuartile;
    Measurement::Timing timing;
    while (from >> timing.nanoseconds >> std::ws && std::getline(from, timing.name))
        measurement.timings.push_back(std::exchange(timing, {}));
    return measurement;
}

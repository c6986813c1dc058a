// SPDX-License-Identifier: MIT
#include "bench/Measurement.h"

#include <algorithm>

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

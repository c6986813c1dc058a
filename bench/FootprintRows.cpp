// SPDX-License-Identifier: MIT
// What a control takes of the memory. Each figure comes from a fresh process, so that nothing that
// was there before is used again.
#include "bench/Footprint.h"
#include "bench/FreshProcess.h"
#include "bench/Rounds.h"
#include "bench/Rows.h"

namespace {

/// What growth is measured against, in bytes.
constexpr double GrowthUnit = 200;

double inFreshProcess(const QString &kind)
{
    return freshprocess::outputOf({footprint::Option, kind}).trimmed().toDouble();
}

} // namespace

Measurement dialMemory()
{
    std::vector<double> ratios;
    for (int round = 0; round < rounds::Count; ++round) {
        const double dial = inFreshProcess(footprint::Dials);
        ratios.push_back(dial / inFreshProcess(footprint::Widgets));
    }
    return summary(std::move(ratios));
}

Measurement dialMemoryGrowth()
{
    std::vector<double> growths;
    for (int round = 0; round < rounds::Count; ++round)
        growths.push_back(inFreshProcess(footprint::Growth) / GrowthUnit);
    return summary(std::move(growths));
}

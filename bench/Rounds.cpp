// SPDX-License-Identifier: MIT
#include "bench/Rounds.h"

#include <QtGlobal>

namespace {

constexpr double CalibrationSeconds = 0.01;

/// Keeps the result of the one benchmark that is run, and prints nothing.
class Collector : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context &) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.error_occurred)
                qFatal("%s: %s", run.benchmark_name().c_str(), run.error_message.c_str());
            last = run;
        }
    }

    Run last;
};

benchmark::BenchmarkReporter::Run runOnce(const rounds::Case &each)
{
    benchmark::ClearRegisteredBenchmarks();
    auto *registered = benchmark::RegisterBenchmark(each.name, each.body);
    registered->Unit(benchmark::kNanosecond);
    if (each.clock == rounds::Clock::Own)
        registered->UseManualTime();
    if (each.iterations > 0)
        registered->Iterations(each.iterations);
    else
        registered->MinTime(CalibrationSeconds);
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector, ".");
    return collector.last;
}

double timeOf(const rounds::Case &each)
{
    const auto run = runOnce(each);
    return each.clock == rounds::Clock::Own ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
}

} // namespace

Measurement rounds::compare(std::vector<Case> cases, const Ratio &ratio)
{
    for (Case &each : cases)
        each.iterations = runOnce(each).iterations; // warms it up, too

    std::vector<double> ratios;
    std::vector<Times> timesOfCase(cases.size());
    for (size_t round = 0; round < Count; ++round) {
        Times times(cases.size());
        for (size_t turn = 0; turn < cases.size(); ++turn) {
            const size_t which = (round + turn) % cases.size();
            times[which] = timeOf(cases[which]);
            timesOfCase[which].push_back(times[which]);
        }
        ratios.push_back(ratio(times));
    }
    Measurement result = summary(std::move(ratios));
    for (size_t which = 0; which < cases.size(); ++which)
        result.timings.push_back({cases[which].name, median(timesOfCase[which])});
    return result;
}

double rounds::firstToSecond(const Times &times)
{
    return times[0] / times[1];
}

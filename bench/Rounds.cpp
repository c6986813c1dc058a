// SPDX-License-Identifier: MIT
#include "bench/Rounds.h"

#include "bench/Producer.h"

#include <QtGlobal>

namespace {

constexpr double CalibrationSeconds = 0.02;

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

/// A round of one case.
struct Round
{
    benchmark::IterationCount iterations;
    double nanoseconds; ///< of one iteration
};

Round run(const rounds::Case &each)
{
    const auto *once = std::get_if<rounds::Case::Once>(&each.work);
    std::vector<double> seconds;
    // The case itself is called, not a copy of it: what it counts goes on from round to round.
    const auto body = [&](benchmark::State &state) {
        if (!once)
            return std::get<rounds::Case::Body>(each.work)(state);
        seconds.clear();
        for (auto _ : state)
            state.SetIterationTime(seconds.emplace_back((*once)()));
    };
    benchmark::ClearRegisteredBenchmarks();
    auto *registered = benchmark::RegisterBenchmark(each.name, body);
    registered->Unit(benchmark::kNanosecond);
    if (once)
        registered->UseManualTime();
    if (each.iterations > 0)
        registered->Iterations(each.iterations);
    else
        registered->MinTime(CalibrationSeconds);
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector, ".");
    return {collector.last.iterations,
            once ? 1e9 * median(seconds) : collector.last.GetAdjustedCPUTime()};
}

} // namespace

Measurement rounds::compare(std::vector<Case> cases, const Ratio &ratio)
{
    for (Case &each : cases)
        each.iterations = run(each).iterations; // warms it up, too

    std::vector<double> ratios;
    std::vector<Times> timesOfCase(cases.size());
    for (size_t round = 0; round < Count; ++round) {
        Times times(cases.size());
        for (size_t turn = 0; turn < cases.size(); ++turn) {
            const size_t which = (round + turn) % cases.size();
            times[which] = run(cases[which]).nanoseconds;
            timesOfCase[which].push_back(times[which]);
        }
        ratios.push_back(ratio(times));
    }
    Measurement result = summary(std::move(ratios));
    for (size_t which = 0; which < cases.size(); ++which)
        result.timings.push_back({cases[which].name, median(timesOfCase[which])});
    return result;
}

rounds::Case::Once rounds::worked(std::function<void()> step)
{
    return [step = std::move(step)] {
        const double start = threadSeconds();
        step();
        return threadSeconds() - start;
    };
}

double rounds::firstToSecond(const Times &times)
{
    return times[0] / times[1];
}

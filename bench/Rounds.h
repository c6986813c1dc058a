// SPDX-License-Identifier: MIT
#pragma once

#include "bench/Measurement.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <variant>

/// Compares cases with each other inside one run. The speed of a machine drifts by more than what is
/// to be seen, so every round runs all cases right after one another, each round beginning with
/// another one, and yields one ratio; the median of these is the result.
namespace rounds {

/// An odd number, so that one ratio is in the middle.
constexpr int Count = 31;

/// What is done over and over, and how its time is taken.
struct Case
{
    /// Work too short to be timed alone: the body repeats it. The processor time of the thread counts,
    /// divided by the iterations.
    using Body = std::function<void(benchmark::State &)>;
    /// Does the work once and returns its seconds. The median of a round counts: whatever else the
    /// machine does meanwhile makes some of the times long, not all.
    using Once = std::function<double()>;

    const char *name;
    std::variant<Body, Once> work;
    /// Iterations per round; 0: as many as take some hundredths of a second.
    benchmark::IterationCount iterations = 0;
};

/// Once: the processor time of this thread for `step`.
Case::Once worked(std::function<void()> step);

/// The time per iteration in one round, in the order of the cases.
using Times = std::vector<double>;
using Ratio = std::function<double(const Times &)>;

Measurement compare(std::vector<Case> cases, const Ratio &ratio);

/// The first case to the second.
double firstToSecond(const Times &times);

} // namespace rounds

// SPDX-License-Identifier: MIT
#pragma once

#include "bench/Measurement.h"

#include <benchmark/benchmark.h>

#include <functional>

/// Compares cases with each other inside one run. The speed of a machine drifts by more than what is
/// to be seen, so every round runs all cases right after one another, each round beginning with
/// another one, and yields one ratio; the median of these is the result.
namespace rounds {

/// An odd number, so that one ratio is in the middle.
constexpr int Count = 31;

/// What counts as the time of a case.
enum class Clock {
    Thread, ///< processor time of the measuring thread: for work that stays on it
    Own,    ///< what the case itself reports with State::SetIterationTime()
};

struct Case
{
    const char *name;
    std::function<void(benchmark::State &)> body;
    Clock clock = Clock::Thread;
    /// Iterations per round; 0: as many as take about ten milliseconds.
    benchmark::IterationCount iterations = 0;
};

/// The times per iteration in one round, in the order of the cases.
using Times = std::vector<double>;
using Ratio = std::function<double(const Times &)>;

Measurement compare(std::vector<Case> cases, const Ratio &ratio);

/// The first case to the second.
double firstToSecond(const Times &times);

} // namespace rounds

// SPDX-License-Identifier: MIT
#include "widgets/graphs/DynamicsLaw.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace {

/// As the console has them, to these very decimals.
constexpr double factors[] = {
    1.0,         0.869565217, 0.769230769, 0.666666666666666,
    0.588235294, 0.5,         0.4,         0.333333333333333,
    0.285714285, 0.25,        0.2,         0.166666666666666,
    0.125,       0.1,         0.05,        0.0,
};

/// What an expander takes for a factor of 0.
constexpr double LeastExpanderFactor = 0.01;

/// The ratio codes whose factors set how a compander expands.
constexpr int HardExpansion = 10;
constexpr int SoftExpansion = 3;

/// The knee of a compander's upper part.
constexpr int CompanderKnee = 2;

constexpr int LeastMakeUp = -18;
constexpr int GreatestMakeUp = 6;
constexpr int LowestOutput = -128;
constexpr int HighestOutput = 127;

struct KneeStep
{
    int knee;
    int closerThan;
    int allowance;
};

/// The first step that fits counts.
constexpr KneeStep kneeSteps[] = {
    {1, 3, 2},  {2, 5, 2}, {3, 1, 4}, {3, 7, 2},  {4, 3, 4},
    {4, 11, 2}, {5, 1, 6}, {5, 5, 4}, {5, 15, 2},
};

struct Renaming
{
    int group;
    int type;
    int kind;
};

constexpr Renaming renamings[] = {
    {54, 2, 0}, {54, 3, 1}, {57, 2, 0},  {57, 4, 2},  {57, 5, 3},  {57, 6, 0},
    {81, 2, 0}, {81, 3, 1}, {81, 4, 2},  {81, 5, 3},  {98, 2, 0},  {98, 3, 1},
    {98, 4, 2}, {98, 5, 3}, {112, 2, 0}, {112, 3, 1}, {112, 4, 2}, {112, 5, 3},
};

int truncated(double decibels)
{
    return static_cast<int>(decibels);
}

int rounded(int output, int input, double factor, int threshold, int knee)
{
    const int allowance = DynamicsLaw::kneeAllowance(factor, std::abs(input - threshold), knee);
    return truncated(output - (1 - factor) * allowance);
}

} // namespace

int DynamicsLaw::kindOf(int group, int type)
{
    const auto *found = std::ranges::find_if(
        renamings, [=](const Renaming &each) { return each.group == group && each.type == type; });
    return found == std::end(renamings) ? type : found->kind;
}

double DynamicsLaw::factorOf(int ratio)
{
    return factors[std::clamp(ratio, 0, static_cast<int>(std::size(factors)) - 1)];
}

int DynamicsLaw::kneeAllowance(double factor, int distance, int knee)
{
    if (factor == 1.0)
        return 0;
    const auto *found = std::ranges::find_if(kneeSteps, [=](const KneeStep &step) {
        return step.knee == knee && distance < step.closerThan;
    });
    return found == std::end(kneeSteps) ? 0 : found->allowance;
}

int DynamicsLaw::compressor(int input, double factor, int threshold, int knee)
{
    const int output =
        input < threshold ? input : truncated((input - threshold) * factor + threshold);
    return rounded(output, input, factor, threshold, knee);
}

int DynamicsLaw::expander(int input, double factor, int threshold, int knee)
{
    if (factor == 0.0)
        factor = LeastExpanderFactor;
    const int output =
        input < threshold ? truncated((input - threshold) / factor + threshold) : input;
    return rounded(output, input, factor, threshold, knee);
}

int DynamicsLaw::compander(int input, double factor, int threshold, double lowerFactor, int width,
                           int makeUp)
{
    const int upper = std::min(compressor(input, factor, threshold, CompanderKnee) - makeUp, 0);
    const int below = threshold - width - input;
    return below > 0 ? truncated(upper - (1 / lowerFactor - 1) * below) : upper;
}

bool DynamicsLaw::hasCurve() const
{
    return m_settings.kind >= Compressor && m_settings.kind <= SoftCompander;
}

int DynamicsLaw::output(int input) const
{
    const double factor = factorOf(m_settings.ratio);
    const int threshold = m_settings.threshold / 10;
    const int gain = m_settings.gain / 10;
    switch (m_settings.kind) {
    case Compressor: return compressor(input, factor, threshold, m_settings.knee) + gain;
    case Expander:
        return std::clamp(expander(input, factor, threshold, m_settings.knee) + gain, LowestOutput,
                          HighestOutput);
    case HardCompander: return companderOutput(input, factorOf(HardExpansion));
    case SoftCompander: return companderOutput(input, factorOf(SoftExpansion));
    default: return 0;
    }
}

int DynamicsLaw::companderOutput(int input, double lowerFactor) const
{
    const double factor = factorOf(m_settings.ratio);
    const int threshold = m_settings.threshold / 10;
    const int atZero = compressor(0, factor, threshold, CompanderKnee);
    const int reserve = (m_settings.gainMaximum - m_settings.gain) / 10;
    const int makeUp = std::min(std::max(atZero, LeastMakeUp) + reserve, GreatestMakeUp);
    return std::clamp(compander(input, factor, threshold, lowerFactor, m_settings.knee + 1, makeUp),
                      LowestOutput, HighestOutput);
}

// SPDX-License-Identifier: MIT
#include "console/GainComputer.h"

#include <algorithm>

namespace {

constexpr double LeastExpanderSlope = 0.01;
constexpr double HardExpansion = 5;
constexpr double SoftExpansion = 1.5;

/// Companders have one knee for all.
constexpr double CompanderKneeWidth = 10;

constexpr double LeastMakeUp = -18;
constexpr double GreatestMakeUp = 6;

/// How far a level is past a corner: `over` where the corner is hard, or far away; between, a parabola
/// joins both straight lines.
double past(double over, double kneeWidth)
{
    const double half = kneeWidth / 2;
    if (over <= -half)
        return 0;
    return over >= half ? over : (over + half) * (over + half) / (2 * kneeWidth);
}

} // namespace

double GainComputer::reduction(double level) const
{
    switch (m_settings.law) {
    case Law::Gate: return isTriggeredBy(level) ? 0 : m_settings.range;
    case Law::Ducking: return isTriggeredBy(level) ? m_settings.range : 0;
    case Law::Compressor: return compressed(level, m_settings.kneeWidth);
    case Law::Expander: return expanded(level);
    case Law::HardCompander:
    case Law::SoftCompander: return companded(level);
    }
    return 0;
}

double GainComputer::compressed(double level, double kneeWidth) const
{
    return -(1 - m_settings.slope) * past(level - m_settings.threshold, kneeWidth);
}

double GainComputer::expanded(double level) const
{
    const double steepness = 1 / std::max(m_settings.slope, LeastExpanderSlope) - 1;
    return -steepness * past(m_settings.threshold - level, m_settings.kneeWidth);
}

double GainComputer::companded(double level) const
{
    const double expansion = law() == Law::HardCompander ? HardExpansion : SoftExpansion;
    const double below = std::max(0.0, m_settings.threshold - m_settings.width - level);
    return compressed(level, CompanderKneeWidth) - (expansion - 1) * below;
}

double GainComputer::makeUp() const
{
    if (isSwitch())
        return 0;
    if (law() == Law::Compressor || law() == Law::Expander)
        return m_settings.gain;
    // A compander brings full scale back to full scale, less what its gain is turned down.
    const double atFullScale = std::max(compressed(0, CompanderKneeWidth), LeastMakeUp);
    const double turnedDown = m_settings.gainMaximum - m_settings.gain;
    return -std::min(atFullScale + turnedDown, GreatestMakeUp);
}

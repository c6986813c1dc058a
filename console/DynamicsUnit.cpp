// SPDX-License-Identifier: MIT
#include "console/DynamicsUnit.h"

#include "companions/memory/ParameterMemory.h"

#include <algorithm>
#include <cmath>

namespace {

using Law = GainComputer::Law;

constexpr std::array Ratios{1.0, 1.15, 1.3, 1.5, 1.7, 2.0, 2.5,  3.0,
                            3.5, 4.0,  5.0, 6.0, 8.0, 10., 20.0, HUGE_VAL};
constexpr std::array KneeWidths{0.0, 6.0, 10.0, 14.0, 22.0, 30.0};

/// By the codes of the types. A channel's second block has a compander in the expander's place, and a
/// de-esser, which compresses what is sharp.
constexpr std::array Laws{Law::Gate,          Law::Ducking,       Law::Compressor, Law::Expander,
                          Law::HardCompander, Law::SoftCompander, Law::Compressor};
constexpr int ExpanderCode = 3;
constexpr char BlockWithCompander[] = "kInputDynamics2";

/// Values whose codes stand at equal ratios.
struct Logarithmic
{
    double first;
    double last;
    int steps;

    double at(int code) const { return first * std::pow(last / first, code / (steps - 1.0)); }
};
constexpr Logarithmic HoldMilliseconds{0.02, 1960, 216};
constexpr Logarithmic DecayMilliseconds{5, 42300, 160};

template<class Table>
auto entry(const Table &table, int code)
{
    return table[std::clamp(code, 0, static_cast<int>(table.size()) - 1)];
}

double tenths(int value)
{
    return value / 10.0;
}

} // namespace

DynamicsUnit::DynamicsUnit(const ParameterMemory &memory, const QString &block, int element)
    : m_memory(memory), m_element(element),
      m_hasCompander(block == QLatin1String(BlockWithCompander))
{
    constexpr std::array Names{"kOn",    "kType", "kThreshold", "kRange", "kAttack",  "kHold",
                               "kRatio", "kGain", "kKnee",      "kDecay", "kRelease", "kKeySource"};
    static_assert(Names.size() == SettingCount);
    m_whole = true;
    for (std::size_t setting = 0; setting < Names.size(); ++setting) {
        IMemAPI::TSingleBaseAddress at;
        m_whole =
            m_whole && memory.resolve(block + u'/' + QLatin1String(Names[setting]), element, at);
        m_group = at.group;
        m_indices[setting] = at.index;
    }
    if (m_whole)
        m_gainMaximum = tenths(memory.readMaximum(m_group, m_indices[Gain], element, 0));
}

int DynamicsUnit::read(Setting setting) const
{
    return m_memory.readValue(m_group, m_indices[setting], m_element, 0, 0);
}

int DynamicsUnit::keySource() const
{
    return m_whole ? read(KeySource) : 0;
}

GainComputer DynamicsUnit::computer() const
{
    const int type = read(Type);
    const int knee = read(Knee);
    GainComputer::Settings settings;
    settings.law = m_hasCompander && type == ExpanderCode ? Law::SoftCompander : entry(Laws, type);
    settings.threshold = tenths(read(Threshold));
    settings.range = read(Range);
    settings.slope = 1 / entry(Ratios, read(Ratio));
    settings.kneeWidth = entry(KneeWidths, knee);
    settings.width = knee + 1;
    settings.gain = tenths(read(Gain));
    settings.gainMaximum = m_gainMaximum;
    return GainComputer(settings);
}

void DynamicsUnit::advance(double level, double seconds)
{
    if (!m_whole || read(On) == 0) {
        m_reduction = 0;
        m_gain = 0;
        return;
    }
    const GainComputer now = computer();
    m_gain = now.makeUp();
    if (now.isSwitch())
        open(now, level, seconds);
    else
        follow(now, level, seconds);
}

/// Gates open by the attack, ducking closes by it; both go back by the decay, after the hold.
void DynamicsUnit::open(const GainComputer &computer, double level, double seconds)
{
    if (computer.isTriggeredBy(level)) {
        m_holdLeft = HoldMilliseconds.at(read(Hold)) / 1000;
        approach(computer.reduction(level), read(Attack) / 1000.0, seconds);
        return;
    }
    m_holdLeft -= seconds;
    if (m_holdLeft <= 0)
        approach(computer.reduction(level), DecayMilliseconds.at(read(Decay)) / 1000, seconds);
}

/// An expander attacks when the level rises out of its range, the others when it rises into it.
void DynamicsUnit::follow(const GainComputer &computer, double level, double seconds)
{
    const double wanted = computer.reduction(level);
    const bool attacks = (wanted > m_reduction) == (computer.law() == Law::Expander);
    const double milliseconds = attacks ? read(Attack) : DecayMilliseconds.at(read(Release));
    approach(wanted, milliseconds / 1000, seconds);
}

/// Covers 63 % of the way within the time constant.
void DynamicsUnit::approach(double wanted, double timeConstant, double seconds)
{
    const double share = timeConstant > 0 ? 1 - std::exp(-seconds / timeConstant) : 1;
    m_reduction += (wanted - m_reduction) * share;
}

// SPDX-License-Identifier: MIT
#include "console/MeterModel.h"

#include "companions/memory/ConsoleModel.h"
#include "companions/memory/ParameterMemory.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int FullScaleCode = 127;
constexpr double DecibelsPerCode = 0.75;
constexpr double HoldSeconds = 1.5;

constexpr char MeterBlock[] = "Meter"; // how the names of blocks of meters end

} // namespace

MeterModel::MeterModel(const ParameterMemory &memory, std::uint32_t seed)
    : m_memory(memory), m_dice(seed)
{
    const ConsoleModel &model = memory.model();
    for (const ConsoleModel::Parameter &parameter : model.parameters()) {
        const ConsoleModel::Block &block = model.blockOf(parameter);
        if (!block.name.endsWith(QLatin1String(MeterBlock)))
            continue;
        for (int element = 0; element < parameter.elements; ++element) {
            m_readings.push_back({block.group, parameter.index, element, 0, 0});
            m_meters.push_back({sourceOf(parameter.name),
                                channelFor(block.name, block.group, element), Programme::Floor, 0});
        }
    }
}

void MeterModel::advance(int milliseconds)
{
    const double seconds = milliseconds / 1000.0;
    for (Channel &channel : m_channels)
        channel.programme.advance(m_dice, seconds);
    for (Channel &channel : m_channels)
        advance(channel, seconds);
    for (std::size_t i = 0; i < m_readings.size(); ++i)
        read(m_readings[i], m_meters[i], seconds);
}

int MeterModel::code(double decibels)
{
    const auto code = static_cast<int>(std::lround(FullScaleCode + decibels / DecibelsPerCode));
    return std::clamp(code, 0, FullScaleCode);
}

MeterModel::Source MeterModel::sourceOf(const QString &parameterName)
{
    if (parameterName.contains(QLatin1String("GateReduction")))
        return Source::GateReduction;
    if (parameterName.contains(QLatin1String("Reduction")))
        return Source::CompressorReduction;
    if (parameterName.contains(QLatin1String("CompOut")))
        return Source::CompressorOutput;
    return Source::Level;
}

std::size_t MeterModel::channelFor(const QString &block, int group, int element)
{
    const auto same = [group, element](const Channel &channel) {
        return channel.group == group && channel.element == element;
    };
    const auto known = std::find_if(m_channels.cbegin(), m_channels.cend(), same);
    const auto place = static_cast<std::size_t>(known - m_channels.cbegin());
    if (known == m_channels.cend()) {
        const QString dynamics = block.chopped(qstrlen(MeterBlock)) + QLatin1String("Dynamics");
        DynamicsUnit gate(m_memory, dynamics + u'1', element);
        const bool hasTwo = gate.exists();
        m_channels.push_back(
            {group, element, Programme(m_dice), gate,
             DynamicsUnit(m_memory, hasTwo ? dynamics + u'2' : dynamics, element)});
    }
    return place;
}

void MeterModel::read(Reading &reading, Meter &meter, double seconds) const
{
    const double now = m_channels[meter.channel].of(meter.source);
    meter.holdLeft -= seconds;
    if (now >= meter.held || meter.holdLeft <= 0) {
        meter.held = now;
        meter.holdLeft = HoldSeconds;
    }
    const bool reduction =
        meter.source == Source::GateReduction || meter.source == Source::CompressorReduction;
    reading.level = code(now);
    reading.peak = reduction ? 0 : code(meter.held);
}

/// Channels are counted in the order of their meters, which is that of the key sources.
double MeterModel::heardBy(const DynamicsUnit &dynamics, double own) const
{
    const int source = dynamics.keySource();
    const bool other = source > 0 && source <= static_cast<int>(m_channels.size());
    return other ? m_channels[static_cast<std::size_t>(source) - 1].programme.level() : own;
}

void MeterModel::advance(Channel &channel, double seconds) const
{
    const double level = channel.programme.level();
    channel.gate.advance(heardBy(channel.gate, level), seconds);
    const double gated = level + channel.gate.reduction() + channel.gate.gain();
    channel.compressor.advance(heardBy(channel.compressor, gated), seconds);
}

double MeterModel::Channel::output() const
{
    return programme.level() + gate.reduction() + gate.gain() + compressor.reduction()
           + compressor.gain();
}

double MeterModel::Channel::of(Source source) const
{
    switch (source) {
    case Source::GateReduction: return gate.reduction();
    case Source::CompressorReduction: return compressor.reduction();
    case Source::CompressorOutput: return output();
    case Source::Level: break;
    }
    return programme.level();
}

// SPDX-License-Identifier: MIT
#include "console/MeterModel.h"

#include "companions/memory/ConsoleModel.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int FullScaleCode = 127;
constexpr double DecibelsPerCode = 0.75;
constexpr double HoldSeconds = 1.5;

constexpr double GateThreshold = -48;
constexpr double GateRange = -40;
constexpr double GateOpens = 2500; // decibels per second
constexpr double GateCloses = 60;

constexpr double CompressorThreshold = -22;
constexpr double CompressorSlope = 1 - 1 / 3.0; // 3:1
constexpr double CompressorReleases = 18;       // decibels per second
constexpr double CompressorGain = 4;

} // namespace

MeterModel::MeterModel(const ConsoleModel &model, std::uint32_t seed) : m_dice(seed)
{
    for (const ConsoleModel::Parameter &parameter : model.parameters()) {
        const ConsoleModel::Block &block = model.blockOf(parameter);
        if (!block.name.endsWith(QLatin1String("Meter")))
            continue;
        for (int element = 0; element < parameter.elements; ++element) {
            m_readings.push_back({block.group, parameter.index, element, 0, 0});
            m_meters.push_back(
                {sourceOf(parameter.name), channelFor(block.group, element), Programme::Floor, 0});
        }
    }
}

void MeterModel::advance(int milliseconds)
{
    const double seconds = milliseconds / 1000.0;
    for (Channel &channel : m_channels)
        channel.advance(m_dice, seconds);
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

std::size_t MeterModel::channelFor(int group, int element)
{
    const auto same = [group, element](const Channel &channel) {
        return channel.group == group && channel.element == element;
    };
    const auto known = std::find_if(m_channels.cbegin(), m_channels.cend(), same);
    const auto place = static_cast<std::size_t>(known - m_channels.cbegin());
    if (known == m_channels.cend())
        m_channels.push_back({group, element, Programme(m_dice)});
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

void MeterModel::Channel::advance(Dice &dice, double seconds)
{
    programme.advance(dice, seconds);
    const double level = programme.level();
    gate = level > GateThreshold ? std::min(0.0, gate + GateOpens * seconds)
                                 : std::max(GateRange, gate - GateCloses * seconds);
    const double wanted = -std::max(0.0, level - CompressorThreshold) * CompressorSlope;
    compressor = std::min(wanted, compressor + CompressorReleases * seconds);
}

double MeterModel::Channel::of(Source source) const
{
    switch (source) {
    case Source::GateReduction: return gate;
    case Source::CompressorReduction: return compressor;
    case Source::CompressorOutput: return programme.level() + compressor + CompressorGain;
    case Source::Level: break;
    }
    return programme.level();
}

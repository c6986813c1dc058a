// SPDX-License-Identifier: MIT
#pragma once

#include "console/Dice.h"
#include "console/DynamicsUnit.h"
#include "console/Programme.h"

#include <vector>

class ParameterMemory;
class QString;

/// The readings of all meters of a console: the parameters of the model's blocks whose names end in
/// "Meter". The meters of one element belong to one channel: its level, what its gate and its
/// compressor take away by their present settings, and the compressor's output.
///
/// A reading is a code of 14 bits, of which the console uses 0 to 127: 127 is full scale, or no
/// reduction, and a code less is 0.75 dB less. Not thread-safe.
class MeterModel
{
public:
    struct Reading
    {
        int group;
        int index;
        int element;
        int level; ///< 0 to 127
        int peak;  ///< 0 to 127: the highest level of the last seconds; a reduction has none
    };

    /// `memory` has its model, and outlives this.
    MeterModel(const ParameterMemory &memory, std::uint32_t seed);

    void advance(int milliseconds);

    /// One per meter, always in the same order.
    const std::vector<Reading> &readings() const { return m_readings; }

    static int code(double decibels);

private:
    enum class Source { Level, GateReduction, CompressorReduction, CompressorOutput };

    struct Channel
    {
        int group;
        int element;
        Programme programme;
        DynamicsUnit gate;
        DynamicsUnit compressor; ///< also the only dynamics of a channel that has but one

        double output() const;
        double of(Source source) const;
    };

    /// What belongs to the reading of the same place in m_readings.
    struct Meter
    {
        Source source;
        std::size_t channel;
        double held;
        double holdLeft; // seconds
    };

    static Source sourceOf(const QString &parameterName);
    std::size_t channelFor(const QString &block, int group, int element);
    double heardBy(const DynamicsUnit &dynamics, double own) const;
    void advance(Channel &channel, double seconds) const;
    void read(Reading &reading, Meter &meter, double seconds) const;

    const ParameterMemory &m_memory;
    Dice m_dice;
    std::vector<Channel> m_channels;
    std::vector<Meter> m_meters;
    std::vector<Reading> m_readings;
};

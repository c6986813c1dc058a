// SPDX-License-Identifier: MIT
#pragma once

#include "console/GainComputer.h"

#include <array>

class ParameterMemory;
class QString;

/// The dynamics of one channel: what they take away from its level, by the settings that the parameter
/// memory has at the moment. Settings are read without a lock, in every step anew. Not thread-safe.
class DynamicsUnit
{
public:
    /// Where a channel's settings are; `block` is its name in addresses ("kInputDynamics2"). `memory`
    /// has its model, and outlives this. A block that is not there, or not whole, is never on.
    DynamicsUnit(const ParameterMemory &memory, const QString &block, int element);

    bool exists() const { return m_whole; }

    /// Lets time pass at an input level, in decibels, which the detector hears.
    void advance(double level, double seconds);

    /// What is taken away, 0 or below, and what is added after that; both 0 while it is off.
    double reduction() const { return m_reduction; }
    double gain() const { return m_gain; }
    /// The number of the channel whose level the detector should hear, from 1; 0 for its own.
    int keySource() const;

private:
    enum Setting {
        On,
        Type,
        Threshold,
        Range,
        Attack,
        Hold,
        Ratio,
        Gain,
        Knee,
        Decay,
        Release,
        KeySource,
        SettingCount
    };

    int read(Setting setting) const;
    GainComputer computer() const;
    void follow(const GainComputer &computer, double level, double seconds);
    void open(const GainComputer &computer, double level, double seconds);
    void approach(double wanted, double timeConstant, double seconds);

    const ParameterMemory &m_memory;
    int m_group = 0;
    int m_element = 0;
    std::array<int, SettingCount> m_indices{};
    bool m_whole = false;        ///< all settings are there
    bool m_hasCompander = false; ///< where most blocks have an expander
    double m_gainMaximum = 0;

    double m_reduction = 0;
    double m_gain = 0;
    double m_holdLeft = 0; // seconds
};

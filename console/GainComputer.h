// SPDX-License-Identifier: MIT
#pragma once

/// What a dynamics processor does to a level that does not change. All levels are in decibels; what it
/// takes away is 0 or below.
class GainComputer
{
public:
    enum class Law {
        Gate,    ///< takes the range away from what is not above the threshold
        Ducking, ///< takes it away from what is
        Compressor,
        Expander,
        HardCompander, ///< a compressor that expands what is far below the threshold, 5:1
        SoftCompander, ///< the same, 1.5:1
    };

    struct Settings
    {
        Law law = Law::Compressor;
        double threshold = 0;
        double range = 0;     ///< of gates and ducking, 0 or below
        double slope = 1;     ///< one divided by the ratio: 0 (∞:1) to 1
        double kneeWidth = 0; ///< over how much the corner of the curve is rounded
        double width = 0;     ///< of companders: from the threshold down to where they expand
        double gain = 0;
        double gainMaximum = 0; ///< the highest gain there is
    };

    explicit GainComputer(const Settings &settings) : m_settings(settings) {}

    double reduction(double level) const;
    /// What is added to the result: the gain, or what a compander makes of it.
    double makeUp() const;

    /// Whether it opens and closes, rather than following the level; and whether a level makes it.
    bool isSwitch() const { return law() == Law::Gate || law() == Law::Ducking; }
    bool isTriggeredBy(double level) const { return level > m_settings.threshold; }
    Law law() const { return m_settings.law; }

private:
    double compressed(double level, double kneeWidth) const;
    double expanded(double level) const;
    double companded(double level) const;

    Settings m_settings;
};

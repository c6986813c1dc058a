// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

#include <QtGlobal>

/// The static transfer curve of a dynamics processor of the compressor family: output level over input
/// level, both in whole decibels, as the console's display computes it. Every step from a fraction to
/// a whole number truncates towards zero.
class CONSOLEWIDGETS_EXPORT DynamicsLaw
{
public:
    /// Which law.
    enum Kind {
        Compressor = 0,
        Expander = 1,
        HardCompander = 2,
        SoftCompander = 3, ///< differs from the hard one in the steepness below the threshold
    };

    /// A block's parameters.
    struct Settings
    {
        int kind = Compressor; ///< of Kind; others have no curve
        int threshold = 0;     ///< tenths of a dB
        int ratio = 0;         ///< code 0 (1:1) to 15 (∞:1); others count as the nearest
        int knee = 0;          ///< code 0 (hard) to 5; for companders the width
        int gain = 0;          ///< tenths of a dB
        int gainMaximum = 0;   ///< tenths of a dB
    };

    /// Keeps a copy of the settings.
    explicit DynamicsLaw(const Settings &settings) : m_settings(settings) {}

    /// False for a kind that is no law of this family: there is no curve.
    bool hasCurve() const;
    /// The output level at an input level; 0 without a curve.
    int output(int input) const;

    /// The law that a block's type parameter means, by the group of its address; a type that the group
    /// does not rename stays as it is.
    static int kindOf(int group, int type);
    /// The slope above the threshold: one divided by the ratio.
    static double factorOf(int ratio);
    /// How far the knee rounds the curve off at a distance from the threshold, before the slope is
    /// taken into account. In dB.
    static int kneeAllowance(double factor, int distance, int knee);

    /// The three laws: the output level for an input level. `threshold` is in dB, `factor` as from
    /// factorOf(), `knee` a code.
    static int compressor(int input, double factor, int threshold, int knee);
    static int expander(int input, double factor, int threshold, int knee);
    /// Expands by 1/`lowerFactor` further than `width` below the threshold; lowered by `makeUp` and
    /// never above 0.
    static int compander(int input, double factor, int threshold, double lowerFactor, int width,
                         int makeUp);

private:
    int companderOutput(int input, double lowerFactor) const;

    Settings m_settings;
};

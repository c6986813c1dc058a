// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"
#include "widgets/graphs/SectionMagnitude.h"

#include <array>
#include <complex>
#include <span>

class ResponseGrid;

/// One parametric band of an equaliser: 1 + (V − 1)·Hbp, where Hbp = bp·(1 − z²)/(1 + c0·z + c1·z²) is
/// a band-pass filter with gain 1 at the centre, made by the bilinear transform with the centre
/// frequency pre-warped, and V is the gain at the centre. A cut is the inverse of the boost by as
/// much, so that the two undo each other.
///
/// Close to half the sample rate the transform narrows a band; the console makes up for it by a lower
/// Q, and so does this. Frequencies and sample rates are in Hz, gains in dB. What is not a number is
/// shown as the floor, -100 dB. Evaluating allocates nothing. Not bound to a thread.
class CONSOLEWIDGETS_EXPORT PeakingBand
{
public:
    /// What the gain of the last design makes of the band.
    enum Kind { Cut = 1, Boost = 2, Flat = 3 };

    /// Replaces the coefficients; the memory stays. `q` is centre frequency over width.
    void designPeaking(double frequency, double sampleRate, double q, double gain);

    /// 2, or 0 for a band that is switched off and shows the floor.
    int order() const { return m_order; }
    void setOrder(int order) { m_order = order; }

    /// Flat before a design, and for a gain of 0 dB.
    Kind kind() const { return m_kind; }
    /// As in the equation of this class.
    double c0() const { return m_c0; }
    /// As in the equation of this class.
    double c1() const { return m_c1; }
    /// bp of the equation.
    double bandPassGain() const { return m_bandPass; }
    /// V - 1, of the boost.
    double gainMinusOne() const { return m_gainMinusOne; }
    /// Band-pass gain times gainMinusOne().
    double scaledBandPass() const { return m_scaledBandPass; }

    /// Hbp at `frequency`; 1 for a band that is switched off, 0 where Hbp is not a number.
    std::complex<double> bandPassResponse(double frequency, double sampleRate) const;

    /// The magnitude of the boost and of the cut that this band would make, in dB; the caller picks by
    /// kind(). The forms for many frequencies leave alone what the spans do not share in length.
    double boostResponseDb(double frequency, double sampleRate) const;
    double cutResponseDb(double frequency, double sampleRate) const;
    void boostResponseDb(std::span<const double> frequencies, double sampleRate,
                         std::span<double> decibels) const;
    /// See the form for one frequency.
    void cutResponseDb(std::span<const double> frequencies, double sampleRate,
                       std::span<double> decibels) const;
    /// The same at the points of a grid, which has worked out what depends on frequencies alone.
    void boostResponseDb(const ResponseGrid &grid, std::span<double> decibels) const;
    void cutResponseDb(const ResponseGrid &grid, std::span<double> decibels) const;

    /// One sample through the band, as the console runs it; a band that is switched off is silent.
    double filter(double sample);

private:
    SectionMagnitude boostMagnitude() const;
    SectionMagnitude cutMagnitude() const;

    double m_c0 = 0;
    double m_c1 = 0;
    double m_bandPass = 0;
    double m_gainMinusOne = 0;
    double m_scaledBandPass = 0;
    std::array<double, 4> m_memory{}; ///< the last two samples in, the last two out
    int m_order = 2;
    Kind m_kind = Flat;
};

// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"
#include "widgets/graphs/SectionMagnitude.h"

#include <array>
#include <span>
#include <vector>

class ResponseGrid;

/// A filter of the console's processing: second-order sections in series and, for odd orders, one of
/// first order; designed from physical parameters, evaluated as magnitude in dB.
///
/// Shelves and Butterworth filters are analogue prototypes carried over by the bilinear transform with
/// the corner frequency pre-warped; the one-pole filters match the impulse response at low
/// frequencies. Frequencies and sample rates are in Hz, gains in dB. Designing for a frequency outside
/// 0 < f < sampleRate/2 gives what the formulas give; nothing throws, and what is not a number is
/// shown as the floor, -100 dB.
///
/// A new filter has order 2 and no output. A design keeps the filter's memory unless it changes the
/// order. Evaluating allocates nothing. Not bound to a thread, and not shared by several.
class CONSOLEWIDGETS_EXPORT FilterCascade
{
public:
    /// Orders beyond it are held there; negative ones count as 0.
    static constexpr int MaximumOrder = 1024;

    /// y = b0·x0 + b1·x1 + b2·x2 + a1·y1 + a2·y2: the feedback is added.
    struct Section
    {
        double b0 = 0; ///< of the sample
        double b1 = 0; ///< of the sample before
        double b2 = 0; ///< of the one before that
        double a1 = 0; ///< of the last output
        double a2 = 0; ///< of the output before
    };
    /// y = b0·x0 + b1·x1 + a1·y1.
    struct FirstOrder
    {
        double b0 = 0; ///< of the sample
        double b1 = 0; ///< of the sample before
        double a1 = 0; ///< of the last output
    };

    FilterCascade();

    /// Makes order/2 sections, and one of first order if it is odd, all zero.
    void setOrder(int order);
    /// Zeroes coefficients and memory.
    void clearState();

    /// Even for sections of second order alone.
    int order() const { return m_order; }
    /// Whether the order is odd.
    bool hasFirstOrder() const { return m_order % 2 != 0; }
    /// order() / 2 of them.
    std::span<const Section> sections() const { return m_sections; }
    /// Without effect unless hasFirstOrder().
    const FirstOrder &firstOrder() const { return m_firstOrder; }

    /// Shelves of first order; a cut is the exact inverse of the boost by as much. `frequency` is the
    /// lower corner of the step, with Upper the upper one.
    void designLowShelf1(double frequency, double gain, double sampleRate);
    void designLowShelf1Upper(double frequency, double gain, double sampleRate);
    void designHighShelf1(double frequency, double gain, double sampleRate);
    /// Shelves of second order, with the poles of a Butterworth filter.
    void designLowShelf2(double frequency, double gain, double sampleRate);
    void designHighShelf2(double frequency, double gain, double sampleRate);
    /// Butterworth filters: -3 dB at `frequency`, 6 dB per octave and order beyond it.
    void designHighPass(int order, double frequency, double sampleRate);
    void designLowPass(int order, double frequency, double sampleRate);
    /// Smoothers of order 1.
    void designOnePoleLowPass(double frequency, double sampleRate);
    void designOnePoleHighPass(double frequency, double sampleRate);

    /// The magnitude at `frequency`, in dB; -100 where nothing comes out.
    double responseDb(double frequency, double sampleRate) const;
    /// The same for many frequencies; what the spans do not share in length is left alone.
    void responseDb(std::span<const double> frequencies, double sampleRate,
                    std::span<double> decibels) const;
    void responseDb(const ResponseGrid &grid, std::span<double> decibels) const;

    /// One sample through the filter, as the console runs it.
    double filter(double sample);

private:
    void force(int order);
    void setSection(std::size_t number, const Section &section);
    void setFirstOrder(const FirstOrder &section);
    void designStep1(double zeroCorner, double poleCorner, double gain);
    void designStep2(double zeroCorner, double poleCorner, double gain);

    int m_order = 0;
    std::vector<Section> m_sections;
    std::vector<std::array<double, 2>> m_memory; ///< of each section
    FirstOrder m_firstOrder;
    double m_firstOrderMemory = 0;
    std::vector<SectionMagnitude> m_magnitudes; ///< of all sections, the one of first order last
};

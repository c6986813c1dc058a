// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"
#include "widgets/graphs/ResponseGrid.h"

#include <cstddef>
#include <span>
#include <vector>

class FilterCascade;
class PeakingBand;

/// The response of an equaliser as a graph shows it: the sum, in dB, of the responses of its bands.
/// A band that changes is evaluated alone, and turning one knob for a while costs one addition per
/// point more. Setting bands and reading the sum allocate nothing.
class CONSOLEWIDGETS_EXPORT ResponseCurve
{
public:
    /// All bands begin flat, with 0 dB.
    ResponseCurve(const ResponseGrid &grid, std::size_t bands);

    /// The frequencies of all responses.
    const ResponseGrid &grid() const { return m_grid; }
    /// How many there are, flat ones included.
    std::size_t bands() const { return m_bands.size(); }

    /// Evaluates a band anew; a number without a band is ignored. Of a peaking band it is the boost or
    /// the cut, as its gain says.
    void setBand(std::size_t number, const FilterCascade &filter);
    void setBand(std::size_t number, const PeakingBand &filter);
    /// Gives a band 0 dB everywhere; a number without a band is ignored.
    void setFlat(std::size_t number);

    /// One band's response, and the sum of all, at the grid's frequencies.
    std::span<const double> band(std::size_t number) const { return m_bands.at(number); }
    /// See band().
    std::span<const double> sum() const { return m_sum; }

private:
    void changing(std::size_t number);
    void changed(std::size_t number);

    ResponseGrid m_grid;
    std::vector<std::vector<double>> m_bands;
    std::vector<double> m_others; ///< the sum of all bands but the one that changed last
    std::vector<double> m_sum;
    std::size_t m_lastChanged;
};

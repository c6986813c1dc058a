// SPDX-License-Identifier: MIT
#include "widgets/graphs/ResponseCurve.h"

#include "widgets/graphs/FilterCascade.h"
#include "widgets/graphs/PeakingBand.h"

#include <algorithm>
#include <functional>

namespace {

void add(std::span<const double> augend, std::span<const double> addend, std::span<double> sum)
{
    std::ranges::transform(augend, addend, sum.begin(), std::plus<>());
}

} // namespace

ResponseCurve::ResponseCurve(const ResponseGrid &grid, std::size_t bands)
    : m_grid(grid), m_bands(bands, std::vector<double>(grid.size())), m_others(grid.size()),
      m_sum(grid.size()), m_lastChanged(bands)
{
}

void ResponseCurve::setBand(std::size_t number, const FilterCascade &filter)
{
    if (number >= bands())
        return;
    changing(number);
    filter.responseDb(m_grid, m_bands[number]);
    changed(number);
}

void ResponseCurve::setBand(std::size_t number, const PeakingBand &filter)
{
    if (number >= bands())
        return;
    changing(number);
    if (filter.kind() == PeakingBand::Cut)
        filter.cutResponseDb(m_grid, m_bands[number]);
    else
        filter.boostResponseDb(m_grid, m_bands[number]);
    changed(number);
}

void ResponseCurve::setFlat(std::size_t number)
{
    if (number >= bands())
        return;
    changing(number);
    std::ranges::fill(m_bands[number], 0.0);
    changed(number);
}

void ResponseCurve::changing(std::size_t number)
{
    if (number == m_lastChanged)
        return;
    m_lastChanged = number;
    std::ranges::fill(m_others, 0.0);
    for (std::size_t other = 0; other < bands(); ++other) {
        if (other != number)
            add(m_others, m_bands[other], m_others);
    }
}

void ResponseCurve::changed(std::size_t number)
{
    add(m_others, m_bands[number], m_sum);
}

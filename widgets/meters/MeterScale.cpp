// SPDX-License-Identifier: MIT
#include "widgets/meters/MeterScale.h"

#include <algorithm>
#include <utility>

namespace {

// The columns of the scales as the console's makers drew them, row 0 and the last row left out: the
// lowest level codes of the rows, and the pixels from each row to the next.

constexpr unsigned short ChannelLevels[] = {
    47,  48,  49,  50,  51,  53,  55,  56,  57,  58,  59,  61,  63,  64,  65,  66,
    67,  69,  71,  72,  73,  74,  75,  77,  79,  80,  81,  82,  83,  85,  87,  88,
    89,  90,  91,  93,  95,  96,  97,  98,  99,  101, 103, 104, 105, 106, 107, 109,
    111, 112, 113, 114, 115, 117, 119, 120, 121, 122, 123, 125, 126, 127};

constexpr unsigned short NormalSteps[] = {
    1, 1, 1, 1, 1, 2, 2, 1, 1, 1, 1, 1, 1, 1, 1, 2, 2, 1, 1, 1, 1, 1, 1, 1, 1, 2, 2, 1, 1, 1, 1,
    2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 6, 6, 0, 3};

constexpr unsigned short LayerSteps[] = {
    1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1,
    0, 0, 0, 0, 1, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 0, 1};

constexpr unsigned short SelectedChannelSteps[] = {
    1, 1, 1, 1, 1, 1, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 0, 1, 1, 1, 1,
    1, 2, 2, 2, 1, 1, 1, 2, 2, 2, 1, 1, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 5, 4, 0, 3};

constexpr unsigned short CompressorOutLevels[] = {33, 34, 35, 37, 39, 40, 41, 42, 43, 45};

constexpr unsigned short CompressorOutSteps[] = {
    1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0,
    1, 0, 1, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 2, 2, 2, 2, 2, 2,
    2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 1, 1, 0, 3};

constexpr unsigned short ReductionLevels[] = {73,  74,  75,  77,  79,  80,  81,  82,  83,  85,  87,
                                              88,  89,  90,  91,  93,  95,  96,  97,  98,  99,  101,
                                              103, 104, 105, 106, 107, 109, 111, 112, 113, 114, 115,
                                              117, 119, 120, 121, 122, 123, 124, 125, 126, 127};

constexpr unsigned short ReductionSteps[] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 3, 3, 3,
                                             3, 1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3, 3, 3,
                                             3, 3, 6, 6, 6, 6, 6, 6, 6, 6, 3, 0, 0};

constexpr unsigned short ReductionSelectedChannelLevels[] = {
    87,  88,  89,  90,  91,  93,  95,  96,  97,  98,  99,  101, 103, 104, 105, 106, 107,
    109, 111, 112, 113, 114, 115, 117, 119, 120, 121, 122, 123, 124, 125, 126, 127};

constexpr unsigned short ReductionSelectedChannelSteps[] = {0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,
                                                            2, 2, 2, 3, 3, 3, 3, 3, 2, 3, 3,
                                                            3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 0};

constexpr unsigned short ReductionEffectLevels[] = {
    66,  67,  69,  71,  72,  73,  74,  75,  77,  79,  80,  81,  82,  83,  85,  87,
    88,  89,  90,  91,  93,  95,  96,  97,  98,  99,  101, 103, 104, 105, 106, 107,
    109, 111, 112, 113, 114, 115, 117, 119, 120, 121, 122, 123, 125, 126, 127};

constexpr unsigned short ReductionEffectSteps[] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,
                                                   2, 2, 2, 1, 1, 1, 2, 2, 2, 1, 1, 1, 3, 3, 3, 3,
                                                   3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 0};

using Column = std::span<const unsigned short>;

/// What begins every scale but one, and what ends it.
constexpr TMeterMapping FirstRow{0, 0};
constexpr TMeterMapping LastRow{65535, 0};

std::vector<unsigned short> joined(Column first, Column second)
{
    std::vector<unsigned short> all(first.begin(), first.end());
    all.insert(all.end(), second.begin(), second.end());
    return all;
}

std::vector<TMeterMapping> framed(Column levels, Column steps)
{
    std::vector<TMeterMapping> rows{FirstRow};
    for (std::size_t row = 0; row < std::min(levels.size(), steps.size()); ++row)
        rows.emplace_back(levels[row], steps[row]);
    rows.push_back(LastRow);
    return rows;
}

} // namespace

MeterScale MeterScale::normal()
{
    return MeterScale(framed(ChannelLevels, NormalSteps));
}

MeterScale MeterScale::sigma()
{
    return MeterScale({FirstRow, {127, 3}, {8191, 0}, LastRow});
}

MeterScale MeterScale::layer()
{
    return MeterScale(framed(ChannelLevels, LayerSteps));
}

MeterScale MeterScale::selectedChannel()
{
    return MeterScale(framed(ChannelLevels, SelectedChannelSteps));
}

MeterScale MeterScale::compressorOut()
{
    return MeterScale(framed(joined(CompressorOutLevels, ChannelLevels), CompressorOutSteps));
}

MeterScale MeterScale::reduction()
{
    return MeterScale(framed(ReductionLevels, ReductionSteps));
}

MeterScale MeterScale::compressorReduction()
{
    return MeterScale(
        {{87, 5}, {99, 5}, {113, 5}, {119, 5}, {122, 5}, {126, 5}, {127, 0}, LastRow});
}

MeterScale MeterScale::reductionSelectedChannel()
{
    return MeterScale(framed(ReductionSelectedChannelLevels, ReductionSelectedChannelSteps));
}

MeterScale MeterScale::reductionEffect()
{
    return MeterScale(framed(ReductionEffectLevels, ReductionEffectSteps));
}

void MeterScale::sumUp()
{
    unsigned short length = 0;
    for (TMeterMapping &row : m_rows)
        row.pixelOffset =
            std::exchange(length, static_cast<unsigned short>(length + row.pixelOffset));
}

int MeterScale::indexOf(unsigned short code) const
{
    const auto reached = std::upper_bound(
        m_rows.begin(), m_rows.end() - 1, code,
        [](unsigned short wanted, const TMeterMapping &row) { return wanted < row.level; });
    return static_cast<int>(reached - m_rows.begin());
}

int MeterScale::offset(int index) const
{
    return m_rows[static_cast<std::size_t>(std::clamp(index, 0, rowCount() - 1))].pixelOffset;
}

int MeterScale::stepBelow(int index) const
{
    const int length = offset(index);
    for (int row = std::min(index, rowCount()) - 1; row >= 0; --row) {
        if (offset(row) < length)
            return length - offset(row);
    }
    return 0;
}

// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

#include <span>
#include <vector>

/// One row of a meter's scale.
struct TMeterMapping
{
    /// `lowestLevel` is a 14-bit code; `pixels` is what the row adds to the length.
    constexpr TMeterMapping(unsigned short lowestLevel, unsigned short pixels)
        : level(lowestLevel), pixelOffset(pixels)
    {
    }

    unsigned short level;       ///< lowest 14-bit level code that reaches this row
    unsigned short pixelOffset; ///< as written the step to the next row, summed up the bar's length
};

/// How a meter turns level codes into lengths: a table of rows, of which a level reaches one and
/// which tells how many pixels are lit there. Reading a scale is allowed on any thread.
class CONSOLEWIDGETS_EXPORT MeterScale
{
public:
    /// The scales that there are, with their steps as written.
    static MeterScale normal();
    static MeterScale sigma(); ///< a lamp that is lit at full scale
    static MeterScale layer();
    static MeterScale selectedChannel(); ///< serves the effects' meters, too
    static MeterScale compressorOut();
    static MeterScale reduction();
    static MeterScale compressorReduction();
    static MeterScale reductionSelectedChannel();
    static MeterScale reductionEffect();

    /// Turns the steps into lengths: each row gets the sum of the steps before it. Once per scale.
    void sumUp();

    /// From the lowest level up.
    std::span<const TMeterMapping> rows() const { return m_rows; }
    /// At least 1.
    int rowCount() const { return static_cast<int>(m_rows.size()); }

    /// How many rows but the last are at or below that code: the row which it reaches, where the
    /// scale begins with a row of level 0.
    int indexOf(unsigned short code) const;
    /// The length at a row; what is below the first row or beyond the last is held there.
    int offset(int index) const;
    /// The length at the last row.
    int fullScale() const { return offset(rowCount() - 1); }
    /// How much longer a row is than the nearest row below it that is shorter; 0 when there is none.
    int stepBelow(int index) const;

private:
    /// At least one row.
    explicit MeterScale(std::vector<TMeterMapping> rows) : m_rows(std::move(rows)) {}

    std::vector<TMeterMapping> m_rows;
};

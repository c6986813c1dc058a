// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/TestedExport.h"

#include <QPoint>
#include <QSize>

#include <functional>

/// Plots static transfer curves as the console's display does: a segment for every decibel of input,
/// dot by dot, without smoothing. Both axes begin at -72 dB, in the lower left corner; levels above
/// +18 dB are not shown.
class CONSOLEWIDGETS_TESTED SegmentPlotter
{
public:
    static constexpr int LowestLevel = -72;
    static constexpr int HighestLevel = 18;
    static constexpr int Span = HighestLevel - LowestLevel;

    /// The output level at an input level, both in dB.
    using Curve = std::function<int(int)>;
    /// Called once or more for every pixel of the curve.
    using Dot = std::function<void(QPoint)>;

    explicit SegmentPlotter(const Dot &dot) : m_dot(dot) {}

    /// Spreads 90 dB over the width and over the height of `size`.
    void plotToFit(QSize size, const Curve &curve) const;
    /// So many pixels per decibel, upwards from the lower left corner of `size`.
    void plotPixelsPerDecibel(double pixels, QSize size, const Curve &curve) const;
    /// Every pixel along the longer axis.
    void plotSegment(QPoint from, QPoint to) const;

private:
    struct Step
    {
        int column, level;
        int endColumn, endLevel;
    };
    template<class Row>
    void plotStep(Step step, Row rowOf) const;

    Dot m_dot;
};

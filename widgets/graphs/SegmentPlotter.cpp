// SPDX-License-Identifier: MIT
#include "widgets/graphs/SegmentPlotter.h"

#include <algorithm>
#include <cstdlib>

namespace {

bool isShown(int level)
{
    return level >= SegmentPlotter::LowestLevel && level <= SegmentPlotter::HighestLevel;
}

int limited(int level)
{
    return std::clamp(level, SegmentPlotter::LowestLevel, SegmentPlotter::HighestLevel);
}

} // namespace

void SegmentPlotter::plotToFit(QSize size, const Curve &curve) const
{
    const int width = size.width() - 1;
    const int height = size.height() - 1;
    if (width < 0 || height < 0)
        return;
    const auto columnOf = [=](int step) { return step * width / Span; };
    const auto rowOf = [=](int level) { return (LowestLevel - level) * height / Span + height; };
    int drawnTo = 0;
    for (int step = 0; step < Span; ++step) {
        const int column = columnOf(step);
        if (column < drawnTo)
            continue;
        while (step + 1 < Span && columnOf(step + 1) == column)
            ++step;
        const int input = LowestLevel + step;
        drawnTo = columnOf(step + 1);
        plotStep({column, curve(input), drawnTo, curve(input + 1)}, rowOf);
    }
}

void SegmentPlotter::plotPixelsPerDecibel(double pixels, QSize size, const Curve &curve) const
{
    const int bottom = size.height() - 1;
    const auto rowOf = [=](int level) { return bottom + qRound((LowestLevel - level) * pixels); };
    const auto columnOf = [=](int step) { return qRound(step * pixels); };
    for (int step = 0; columnOf(step + 1) < size.width(); ++step) {
        const int input = LowestLevel + step;
        plotStep({columnOf(step), curve(input), columnOf(step + 1), curve(input + 1)}, rowOf);
    }
}

/// A step that leaves the visible levels stays in its first column; one between two invisible levels
/// is not drawn, though it may cross what is visible.
template<class Row>
void SegmentPlotter::plotStep(Step step, Row rowOf) const
{
    const bool starts = isShown(step.level);
    const bool ends = isShown(step.endLevel);
    if (!starts && !ends)
        return;
    if (!ends)
        step.endColumn = step.column;
    plotSegment({step.column, rowOf(limited(step.level))},
                {step.endColumn, rowOf(limited(step.endLevel))});
}

void SegmentPlotter::plotSegment(QPoint from, QPoint to) const
{
    const QPoint delta = to - from;
    const int length = std::max(std::abs(delta.x()), std::abs(delta.y()));
    m_dot(from);
    for (int step = 1; step <= length; ++step)
        m_dot({from.x() + step * delta.x() / length, from.y() + step * delta.y() / length});
}

// SPDX-License-Identifier: MIT
#include "images/KnobGeometry.h"

namespace artwork {

const KnobGeometry largeKnob{
    .cell = {56, 56},
    .ringRadius = 23.0,
    .ringWidth = 3.0,
    .markInner = 25.6,
    .markOuter = 28.6,
    .bodyRadius = 18.4,
    .capRadius = 14.2,
    .pointerFrom = 6.5,
    .pointerTo = 16.6,
    .pointerWidth = 2.1,
    .gripCount = 36,
};

const KnobGeometry smallKnob{
    .cell = {36, 36},
    .ringRadius = 14.9,
    .ringWidth = 2.4,
    .markInner = 16.9,
    .markOuter = 19.0,
    .bodyRadius = 11.3,
    .capRadius = 8.6,
    .pointerFrom = 3.4,
    .pointerTo = 10.3,
    .pointerWidth = 1.7,
    .gripCount = 24,
};

double angleAt(double position)
{
    return firstAngle + position * (lastAngle - firstAngle);
}

double positionOfRow(int row, int rows)
{
    return rows > 1 ? static_cast<double>(row) / (rows - 1) : 0.0;
}

} // namespace artwork

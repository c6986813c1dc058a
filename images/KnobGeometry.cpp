// SPDX-License-Identifier: MIT
#include "images/KnobGeometry.h"

namespace artwork {

const KnobGeometry largeKnob{
    .cell = {56, 56},
    .ringRadius = 22.8,
    .ringWidth = 2.8,
    .markInner = 25.0,
    .markOuter = 28.4,
    .bodyRadius = 18.8,
    .capRadius = 14.6,
    .pointerFrom = 6.6,
    .pointerTo = 17.0,
    .pointerWidth = 2.1,
    .gripCount = 32,
};

const KnobGeometry smallKnob{
    .cell = {36, 36},
    .ringRadius = 14.3,
    .ringWidth = 2.2,
    .markInner = 15.9,
    .markOuter = 18.2,
    .bodyRadius = 11.7,
    .capRadius = 9.0,
    .pointerFrom = 3.4,
    .pointerTo = 10.6,
    .pointerWidth = 1.8,
    .gripCount = 20,
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

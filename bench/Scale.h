// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

class ParameterMemory;

/// One value in the memory that a control can be bound to.
struct ScaleParameter
{
    QString name; ///< "block/parameter"
    int group;
    int index;
    int element;
    int minimum;
};

/// The parameters that the rows use: those of the built-in console whose values can take `Steps`
/// steps from the minimum.
namespace scale {

constexpr int Steps = 100;

/// Reads the built-in console; ends the program when that fails.
void load(ParameterMemory &memory);

/// The first `count` of them; ends the program when there are less.
std::vector<ScaleParameter> parameters(const ParameterMemory &memory, size_t count);

} // namespace scale

// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

class ParameterMemory;

/// What a soak is to be.
struct SoakPlan
{
    double minutes = 10;
    std::uint32_t seed = 1;
    QStringList forms;
    double rate = 0;  ///< of the simulated console, changes per second
    QString pictures; ///< folder for pictures of differences; empty: none are kept
};

/// Hard use of the editor without anybody at it: a window for each screen and one with all of them, a
/// console at full rate, an operator who does anything to anything, and windows that come and go. All
/// the while it is checked that every control shows what the memory holds.
namespace soak {

/// Prints what it finds. False when a control has shown something else than the memory held, when Qt or a
/// control has warned of something, when memory has grown after the first minute, or when the editor has
/// let an event wait for too long by itself.
bool run(ParameterMemory &memory, const SoakPlan &plan);

/// The most that an event may wait, in milliseconds, without what others that keep the machine busy take
/// from the GUI thread meanwhile. Opening a window is not counted.
constexpr double LongestStall = 50;
/// Changes per second of the simulated console, unless told otherwise.
constexpr double FullRate = 10000;
/// What allocated memory may grow by after the first minute, in bytes, by the line through all samples:
/// they differ by some megabytes, by what is shown and which controls have been off.
constexpr qint64 MostGrowth = 8 * 1024 * 1024;
/// The same of resident memory. Windows that come and go leave gaps between what is used: 10 to 20 MB,
/// which are there early in one soak and late in another.
constexpr qint64 MostResidentGrowth = 24 * 1024 * 1024;

} // namespace soak

// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>

class QWidget;

/// One widget of a class as a program would set it up: its picture in the reference is taken of it, and
/// its code is the example there.
struct Specimen
{
    /// A reading of the console: level and held peak as 14-bit codes.
    struct Reading
    {
        int level;
        int peak;
    };

    const char *className;
    QWidget *(*make)(QWidget *parent);
    std::optional<int> value = {};       ///< what its parameter holds in the picture
    std::optional<Reading> reading = {}; ///< what a meter shows there

    /// One for each class of the registry.
    static std::span<const Specimen> all();
    /// Null when there is none.
    static const Specimen *find(const char *className);
};

// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <random>

/// Chance that repeats: the same seed gives the same throws on every platform, which the standard
/// library's distributions do not promise. Not thread-safe.
class Dice
{
public:
    explicit Dice(std::uint32_t seed) : m_engine(seed) {}

    /// 0 to 1, 1 excluded.
    double unit() { return m_engine() / 4294967296.0; }
    double between(double low, double high) { return low + (high - low) * unit(); }
    /// 0 to `count` - 1; `count` is at least 1.
    int below(int count) { return static_cast<int>(unit() * count); }

private:
    std::mt19937 m_engine;
};

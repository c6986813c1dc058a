// SPDX-License-Identifier: MIT
#pragma once

#include "console/Dice.h"
#include "console/OperatorTargets.h"

#include <vector>

class ParameterMemory;

/// The other operator, and the hands on the hardware: moves faders, gains and frequencies smoothly to
/// new places within 0.3 to 3 seconds, switches keys, chooses types and sources, and now and then
/// selects another channel or patches an input elsewhere.
///
/// A move is a change at every step of the time, and down to 10 a second at low rates.
///
/// Writes to the memory without undo, as changes that come from the console. Who takes hold of a
/// control that moves wins: the move ends. Not thread-safe; works on whatever thread calls it.
class OperatorModel
{
public:
    /// `memory` has its model, and outlives this.
    OperatorModel(ParameterMemory &memory, std::uint32_t seed);

    /// See OperatorTargets. Moves in progress end.
    void setBlocks(const QStringList &names);

    /// Does what falls into that time: in the long run `rate` changes of values per second; at 0 or
    /// less nothing, and moves in progress end. Returns how many values were changed.
    int advance(int milliseconds, double rate);

private:
    struct Motion
    {
        OperatorTarget target;
        int element;
        int from;
        int to;
        int written;
        double duration; // milliseconds
        double elapsed = 0;
        bool over = false;
    };

    /// What follows returns how many values were changed.
    int advanceMotions(int milliseconds, double period);
    int advanceMotion(Motion &motion, int milliseconds, double period);
    int begin();
    int jump(const OperatorTarget &target, int element);
    int write(const OperatorTarget &target, int element, int value);
    int read(const OperatorTarget &target, int element) const;
    int newPlace(const OperatorTarget &target);

    ParameterMemory &m_memory;
    Dice m_dice;
    OperatorTargets m_targets;
    std::vector<Motion> m_motions;
    double m_credit = 0; // changes that are due; below 0 after a busy moment
};

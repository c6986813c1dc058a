// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <array>
#include <vector>

class ConsoleModel;
class Dice;

/// A parameter that another operator would touch, and how.
struct OperatorTarget
{
    enum Action {
        Move,   ///< a fader, a gain, a frequency: goes smoothly to its new place
        Switch, ///< an on/off key
        Choose, ///< a type or a source: jumps
        Select, ///< the selected channel: jumps
        Patch,  ///< the port of a channel: jumps
        ActionCount
    };

    Action action;
    int group;
    int index;
    int elements;
    int minimum;
    int maximum;
};

/// What another operator would touch on a console, and how often.
class OperatorTargets
{
public:
    /// With `blocks` only what is in the blocks of these names; with an empty list everything except
    /// the setup of the console. Meters and bit masks are never among them.
    OperatorTargets(const ConsoleModel &model, const QStringList &blocks);

    /// Throws for the next one to touch; null when there is none.
    const OperatorTarget *pick(Dice &dice) const;

private:
    using Block = std::vector<OperatorTarget>;

    const std::vector<Block> *pickAction(Dice &dice) const;

    /// By action, then by block: a block is thrown for first, so that one with many parameters does
    /// not get all the attention.
    std::array<std::vector<Block>, OperatorTarget::ActionCount> m_blocks;
};

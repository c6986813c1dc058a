// SPDX-License-Identifier: MIT
#include "console/OperatorTargets.h"

#include "companions/memory/ConsoleModel.h"
#include "console/Dice.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace {

using Action = OperatorTarget::Action;

/// How often what happens, in the order of OperatorTarget::Action.
constexpr std::array<double, OperatorTarget::ActionCount> Weights{60, 24, 8, 5, 3};

/// The most values that a parameter has which is chosen rather than moved.
constexpr int MostChoices = 24;

bool isSetup(const QString &block)
{
    static const QStringList beginnings{"kSetup", "kHX612", "kBackup", "kGroupID"};
    const auto begins = [&block](const QString &beginning) { return block.startsWith(beginning); };
    return block.endsWith(QLatin1String("Pair"))
           || std::any_of(beginnings.cbegin(), beginnings.cend(), begins);
}

std::optional<Action> actionFor(const QString &block, const ConsoleModel::Parameter &parameter)
{
    const bool isMask = parameter.minimum == std::numeric_limits<int>::min();
    if (isMask || parameter.minimum == parameter.maximum || block.endsWith(QLatin1String("Meter")))
        return std::nullopt;
    if (block == QLatin1String("kSelectedChannel"))
        return Action::Select;
    if (block.startsWith(QLatin1String("kPatch")))
        return Action::Patch;
    const int range = parameter.maximum - parameter.minimum;
    if (range == 1)
        return Action::Switch;
    const bool isList = parameter.name.endsWith(QLatin1String("Source"))
                        || parameter.name.endsWith(QLatin1String("Icon"));
    return isList || range < MostChoices ? Action::Choose : Action::Move;
}

} // namespace

OperatorTargets::OperatorTargets(const ConsoleModel &model, const QStringList &blocks)
{
    std::array<int, OperatorTarget::ActionCount> lastBlock;
    lastBlock.fill(-1);
    for (const ConsoleModel::Parameter &parameter : model.parameters()) {
        const ConsoleModel::Block &block = model.blockOf(parameter);
        const bool wanted = blocks.isEmpty() ? !isSetup(block.name) : blocks.contains(block.name);
        const auto action = wanted ? actionFor(block.name, parameter) : std::nullopt;
        if (!action)
            continue;
        if (lastBlock[*action] != parameter.block)
            m_blocks[*action].emplace_back();
        lastBlock[*action] = parameter.block;
        m_blocks[*action].back().push_back({*action, block.group, parameter.index,
                                            parameter.elements, parameter.minimum,
                                            parameter.maximum});
    }
}

const OperatorTarget *OperatorTargets::pick(Dice &dice) const
{
    const std::vector<Block> *blocks = pickAction(dice);
    if (!blocks)
        return nullptr;
    const Block &block = (*blocks)[dice.below(static_cast<int>(blocks->size()))];
    return &block[dice.below(static_cast<int>(block.size()))];
}

const std::vector<OperatorTargets::Block> *OperatorTargets::pickAction(Dice &dice) const
{
    double sum = 0;
    for (std::size_t action = 0; action < m_blocks.size(); ++action)
        sum += m_blocks[action].empty() ? 0 : Weights[action];
    double throwLeft = dice.unit() * sum;
    const std::vector<Block> *last = nullptr;
    for (std::size_t action = 0; action < m_blocks.size(); ++action) {
        if (m_blocks[action].empty())
            continue;
        last = &m_blocks[action];
        throwLeft -= Weights[action];
        if (throwLeft < 0)
            break;
    }
    return last;
}

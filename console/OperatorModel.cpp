// SPDX-License-Identifier: MIT
#include "console/OperatorModel.h"

#include "companions/memory/ConsoleModel.h"
#include "companions/memory/ParameterMemory.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double ShortestMove = 300; // milliseconds
constexpr double LongestMove = 3000;
constexpr double LongestPeriod = 100; // from step to step of a move, milliseconds

/// A parameter that reaches as low as this is a level in tenths of a decibel: faders live near the
/// top of their scale.
constexpr int LowestOfALevel = -900;
constexpr double UsedPartOfALevel = 0.35;

/// Slow at both ends, as a hand moves; 0 to 1.
double eased(double part)
{
    return part * part * (3 - 2 * part);
}

} // namespace

OperatorModel::OperatorModel(ParameterMemory &memory, std::uint32_t seed)
    : m_memory(memory), m_dice(seed), m_targets(memory.model(), {})
{
}

void OperatorModel::setBlocks(const QStringList &names)
{
    m_targets = OperatorTargets(m_memory.model(), names);
    m_motions.clear();
}

int OperatorModel::advance(int milliseconds, double rate)
{
    if (rate <= 0) {
        m_motions.clear();
        m_credit = 0;
        return 0;
    }
    // What was not used within a second is forgotten, so that a quiet moment ends without a burst.
    const double most = std::max(1.0, rate);
    m_credit = std::min(m_credit + rate * milliseconds / 1000, most);
    // At low rates one move would else use up what is due for a long time.
    int changes = advanceMotions(milliseconds, std::min(1000 / rate, LongestPeriod));
    m_credit -= changes;
    // A move costs nothing yet when it begins; the count of beginnings is therefore bounded too.
    for (double beginnings = m_credit; beginnings >= 1 && m_credit >= 1; --beginnings) {
        const int begun = begin();
        changes += begun;
        m_credit -= begun;
    }
    return changes;
}

int OperatorModel::advanceMotions(int milliseconds, double period)
{
    int changes = 0;
    for (Motion &motion : m_motions)
        changes += advanceMotion(motion, milliseconds, period);
    std::erase_if(m_motions, [](const Motion &motion) { return motion.over; });
    return changes;
}

int OperatorModel::advanceMotion(Motion &motion, int milliseconds, double period)
{
    const bool taken = read(motion.target, motion.element) != motion.written;
    const double before = motion.elapsed;
    motion.elapsed = std::min(before + milliseconds, motion.duration);
    motion.over = taken || motion.elapsed == motion.duration;
    const bool due = std::floor(motion.elapsed / period) > std::floor(before / period);
    if (taken || !(due || motion.over))
        return 0;
    const double way =
        (static_cast<double>(motion.to) - motion.from) * eased(motion.elapsed / motion.duration);
    motion.written = motion.from + static_cast<int>(std::lround(way));
    return write(motion.target, motion.element, motion.written);
}

int OperatorModel::begin()
{
    const OperatorTarget *target = m_targets.pick(m_dice);
    if (!target)
        return 0;
    const int element = m_dice.below(target->elements);
    if (target->action != OperatorTarget::Move)
        return jump(*target, element);
    const int now = read(*target, element);
    m_motions.push_back(
        {*target, element, now, newPlace(*target), now, m_dice.between(ShortestMove, LongestMove)});
    return 0;
}

int OperatorModel::jump(const OperatorTarget &target, int element)
{
    // Any value but the present one.
    const int others = target.maximum - target.minimum;
    const int value = target.minimum + m_dice.below(others);
    return write(target, element, value + (value >= read(target, element) ? 1 : 0));
}

int OperatorModel::write(const OperatorTarget &target, int element, int value)
{
    if (read(target, element) == value)
        return 0;
    return m_memory.writeValue(target.group, target.index, element, value, 0) >= 0 ? 1 : 0;
}

int OperatorModel::read(const OperatorTarget &target, int element) const
{
    return m_memory.readValue(target.group, target.index, element, 0, 0);
}

int OperatorModel::newPlace(const OperatorTarget &target)
{
    const double range = static_cast<double>(target.maximum) - target.minimum;
    double part = m_dice.unit();
    if (target.minimum <= LowestOfALevel && target.maximum >= 0)
        part = 1 - UsedPartOfALevel * part;
    else if (target.minimum < 0 && target.maximum > 0)
        part = (part + m_dice.unit()) / 2; // mostly near the middle
    return target.minimum + static_cast<int>(std::lround(range * part));
}

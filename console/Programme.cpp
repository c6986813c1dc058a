// SPDX-License-Identifier: MIT
#include "console/Programme.h"

#include "console/Dice.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double AttackSeconds = 0.008;
constexpr double NeedleFall = 26; // decibels per second
constexpr double SilenceFade = 60;

} // namespace

Programme::Programme(Dice &dice)
    : m_fade(dice.between(12, 70)), m_hitSpacing(dice.between(0.12, 0.6)),
      m_phraseLeft(dice.between(0, 3))
{
}

void Programme::advance(Dice &dice, double seconds)
{
    m_phraseLeft -= seconds;
    if (m_phraseLeft <= 0)
        changePhrase(dice);
    m_source = std::max(Floor, m_source - (m_playing ? m_fade : SilenceFade) * seconds);
    m_untilHit -= seconds;
    if (m_playing && m_untilHit <= 0)
        hit(dice);

    if (m_source > m_level)
        m_level += (m_source - m_level) * (1 - std::exp(-seconds / AttackSeconds));
    else
        m_level = std::max(m_source, m_level - NeedleFall * seconds);
}

void Programme::changePhrase(Dice &dice)
{
    m_playing = !m_playing;
    m_phraseLeft = m_playing ? dice.between(2, 9) : dice.between(0.4, 2.5);
    m_nominal = dice.between(-27, -11);
}

void Programme::hit(Dice &dice)
{
    m_untilHit = m_hitSpacing * dice.between(0.5, 1.6);
    // The sum of throws makes the loud accents rare, and overloads rarer.
    const double accent = dice.between(-5, 5) + dice.between(-4, 6);
    m_source = std::max(m_source, m_nominal + accent);
}

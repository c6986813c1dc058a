// SPDX-License-Identifier: MIT
#pragma once

class Dice;

/// What plays on one channel, as a meter in front of it shows it: phrases of hits (syllables, notes,
/// beats) with pauses between. The needle rises within milliseconds and falls at a steady pace.
/// Levels are in decibels relative to full scale.
class Programme
{
public:
    /// What a silent channel shows.
    static constexpr double Floor = -96.0;

    /// Every channel gets a character of its own: how fast its notes fade, how busy it is.
    explicit Programme(Dice &dice);

    void advance(Dice &dice, double seconds);

    /// Floor to somewhat above 0.
    double level() const { return m_level; }

private:
    void changePhrase(Dice &dice);
    void hit(Dice &dice);

    double m_fade;       // decibels per second that a note loses
    double m_hitSpacing; // seconds from note to note, on average
    double m_phraseLeft = 0;
    double m_untilHit = 0;
    double m_nominal = 0; // of the present phrase
    double m_source = Floor;
    double m_level = Floor;
    bool m_playing = false;
};

// SPDX-License-Identifier: MIT
#include "editor/soak/Growth.h"

double Growth::perMinute() const
{
    double minutes = 0;
    double value = 0;
    for (const Sample &each : m_samples) {
        minutes += each.minutes / samples();
        value += each.value / samples();
    }
    double together = 0;
    double square = 0;
    for (const Sample &each : m_samples) {
        together += (each.minutes - minutes) * (each.value - value);
        square += (each.minutes - minutes) * (each.minutes - minutes);
    }
    return square > 0 ? together / square : 0;
}

double Growth::overall() const
{
    return m_samples.empty() ? 0
                             : perMinute() * (m_samples.back().minutes - m_samples.front().minutes);
}

// SPDX-License-Identifier: MIT
#include "console/TransportClock.h"

namespace {

constexpr qint64 MillisecondsPerDay = 24 * 60 * 60 * 1000;

} // namespace

bool TransportClock::advance(int milliseconds)
{
    const qint64 before = frame();
    m_milliseconds = (m_milliseconds + milliseconds) % MillisecondsPerDay;
    return frame() != before;
}

TransportClock::Time TransportClock::time() const
{
    const qint64 seconds = frame() / FramesPerSecond;
    return {static_cast<int>(seconds / 3600), static_cast<int>(seconds / 60 % 60),
            static_cast<int>(seconds % 60), static_cast<int>(frame() % FramesPerSecond)};
}

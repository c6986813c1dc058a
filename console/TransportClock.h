// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// The console's time counter while the transport runs: hours to frames, 30 frames a second, from
/// 00:00:00.00 around to 23:59:59.29. Not thread-safe.
class TransportClock
{
public:
    static constexpr int FramesPerSecond = 30;

    struct Time
    {
        int hours;
        int minutes;
        int seconds;
        int frames;
    };

    /// True when the counter shows another frame now.
    bool advance(int milliseconds);
    Time time() const;

private:
    qint64 frame() const { return m_milliseconds * FramesPerSecond / 1000; }

    qint64 m_milliseconds = 0;
};

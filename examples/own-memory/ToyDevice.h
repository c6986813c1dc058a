// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <array>

/// Stands for a mixer at the other end of a wire: it lives on a thread of its own, takes new values and
/// tells its changes. Its eight levels stand in steps of five.
class ToyDevice : public QObject
{
    Q_OBJECT

public:
    static constexpr int Channels = 8;
    enum Parameter { Level, Mute, ParameterCount };

public Q_SLOTS:
    void set(int parameter, int channel, int value)
    {
        int &stored = m_values[parameter][channel];
        stored = parameter == Level ? (value + (value < 0 ? -2 : 2)) / 5 * 5 : value;
        Q_EMIT changed(parameter, channel, stored);
    }

Q_SIGNALS:
    /// On the device's thread.
    void changed(int parameter, int channel, int value);

private:
    std::array<std::array<int, Channels>, ParameterCount> m_values{};
};

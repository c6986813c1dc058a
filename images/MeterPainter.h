// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

class MeterScale;
class QPainter;

namespace artwork {

/// A standing meter's bar, lit or not. The colours change where the console's scale reaches the
/// levels that operators watch for, whatever the bar's height.
struct MeterBar
{
    enum class Family { Level, Reduction };

    MeterScale (*scale)();
    QSize size;
    Family family = Family::Level;
    bool lit = true;
};

/// Fills the bar's size; every pixel is opaque.
void paintMeterBar(QPainter &painter, const MeterBar &bar);

/// A round lamp with a letter in it for what it belongs to, in all its states one below the other:
/// dark, idle, then from "works" to "works hard".
struct LampStrip
{
    static constexpr int Side = 14;

    enum class Letter { Gate, Compressor };

    Letter letter;
    int states = 5;
};

QSize sizeOf(const LampStrip &strip);
void paintLampStrip(QPainter &painter, const LampStrip &strip);

/// A small round lamp for a signal: dark, green in three steps, amber in two, red in two.
struct SignalLamp
{
    static constexpr int Side = 10;
    static constexpr int States = 8;
};

QSize sizeOf(const SignalLamp &lamp);
void paintSignalLamp(QPainter &painter, const SignalLamp &lamp);

} // namespace artwork

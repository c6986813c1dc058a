// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/meters/CMeter.h"
#include "widgets/meters/MeterPicture.h"
#include "widgets/painting/BatchedPicture.h"
#include "widgets/painting/ErasePixmap.h"

#include <atomic>

struct CMeter::Private : BatchedPicture
{
    explicit Private(CMeter &owner) : BatchedPicture(owner, typeid(CMeter)), meter(owner) {}

    void describe(Picture &picture) const override;
    bool isAll() const override { return meter.value() >= 0; }

    CMeter &meter;

    /// The last reading, replaced as a whole: by the thread that delivers, and by a reset.
    struct Reading
    {
        quint16 level = 0; ///< row of the scale
        quint16 peak = 0;  ///< row of the peak
        quint16 peakCode = 0;
        quint16 levelCode = 0;
    };

    /// What of the readings is shown, for the delivering thread to compare with.
    struct Shown
    {
        int level = 0;
        int peak = 0;

        bool shows(const Reading &reading) const
        {
            return level == reading.level && peak == reading.peak;
        }
    };
    static_assert(std::atomic<Reading>::is_always_lock_free);
    static_assert(std::atomic<Shown>::is_always_lock_free);

    // Of all threads. The order of the stores and loads of `reading` and `shown` is what keeps a
    // reading from being lost: the deliverer stores its reading and then looks what is shown, the
    // main thread stores what it shows and then looks for another reading.
    std::atomic<Reading> reading;
    std::atomic<Shown> shown;
    std::atomic<const MeterScale *> scale{&s_meterLevels};
    std::atomic<EMeterSelector> selector{eMtr_Normal};
    std::atomic<bool> peakHoldEnabled{true};

    // Of the main thread.
    MeterPicture scaling;
    MeterBands shownBands;
    QPixmap lit;
    QPixmap unlit;
    ErasePixmap erase;
    int shownPeak = 0;
    bool repaintPending : 1 = true;
    bool pictureStale : 1 = true;
    bool online : 1 = false;
    bool hidesAll : 1 = false; ///< neither picture lets anything through

    MeterBands bands() const
    {
        return scaling.bands(meter.size(), meter.value(), peakHoldEnabled ? shownPeak : -1);
    }
};

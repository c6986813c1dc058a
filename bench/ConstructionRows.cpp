// SPDX-License-Identifier: MIT
// What it costs to make a control that is ready to be shown.
#include "bench/KnobStrip.h"
#include "bench/Producer.h"
#include "bench/references/IdealKnob.h"
#include "bench/Rounds.h"
#include "bench/Rows.h"
#include "widgets/controls/CDial.h"

namespace {

constexpr int StripRows = 121;
/// As many as a panel of a page has.
constexpr int Siblings = 50;

/// A panel of controls is made; the time is that of all, their destruction apart.
rounds::Case panelOf(const char *name, const std::function<void(QWidget &, const QRect &)> &make)
{
    return {name, [make] {
                QWidget panel;
                const double start = threadSeconds();
                for (int place = 0; place < Siblings; ++place)
                    make(panel, {place * knobstrip::CellSize, 0, knobstrip::CellSize,
                                 knobstrip::CellSize});
                return threadSeconds() - start;
            }};
}

} // namespace

Measurement dialConstruction()
{
    const QPixmap strip = knobstrip::opaque(StripRows);
    const auto dial = [&strip](QWidget &panel, const QRect &place) {
        auto *made = new CDial(&panel);
        made->setGeometry(place);
        made->setCombinedImage(strip);
        made->setnSubImages(StripRows);
    };
    const auto knob = [&strip](QWidget &panel, const QRect &place) {
        auto *made = new IdealKnob(strip, StripRows, &panel);
        made->setGeometry(place);
    };
    return rounds::compare({panelOf("50 dials", dial), panelOf("50 ideal knobs", knob)},
                           rounds::firstToSecond);
}

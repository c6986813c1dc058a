// SPDX-License-Identifier: MIT
#include "bench/Rows.h"

const std::vector<Row> &rows()
{
    static const std::vector<Row> all{
        {"dial-refresh", "a dial shows a new value, to an empty child's frame and a blit", 1.30,
         1.20, dialRefresh},
        {"dial-alpha", "the same with a translucent strip, to the ideal alpha knob", 1.15, 1.0,
         dialAlpha},
        {"dial-unchanged", "a refresh without a change, to the same as dial-refresh", 0.06, 0.03,
         dialUnchanged},
        {"dial-same-row", "paints per change that leaves the picture as it is", 0, 0, dialSameRow},
        {"meter-reading", "a reading decoded and shown, to the ideal meter", 1.12, 1.05, meterReading},
        {"meters-500", "500 meters jump in a frame, to 500 ideal meters", 1.10, 0.3, metersPage},
        {"meters-500-fifth", "a fifth of 500 meters changing, to all changing", 0.25, 0.2, metersFifth},
        {"meters-500-none", "500 readings that change nothing, to all changing", 0.02, 0.01, metersNone},
        {"page", "500 meters and 500 dials change in a frame, to the ideal page", 0.70, 0.15,
         controlsPage},
        {"construct", "making a dial, to making an ideal knob", 1.7, 1.3, dialConstruction},
        {"memory", "resident memory of a shown dial, to that of a shown QWidget", 1.7, 1.4,
         dialMemory},
        {"memory-growth", "bytes per dial after ten changes, divided by 200", 1.0, 0,
         dialMemoryGrowth},
        {"cross-thread-producer", "a change where it is made, dials listening, to the dirty list",
         1.5, 1.1, producerCost},
        {"cross-thread-producer-bare", "the same with receivers that only read their value", 1.5,
         1.1, bareProducerCost},
        {"cross-thread-gui", "a change where hidden dials take it, to the dirty list", 2.0, 1.2,
         deliveryCost},
        {"cross-thread-gui-bare", "the same with receivers that only read their value", 2.0, 1.2,
         bareDeliveryCost},
        {"cross-thread-flood", "a million changes from 4 threads to 1000 dials, to the dirty list",
         1.5, 1.1, floodTime},
        {"cross-thread-lost", "dials left on an old value by 20 floods", 0, 0, floodLosses},
        {"response-curve", "1024 points of 8 sections, to the filter reference", 1.25, 0.6,
         responseCurve},
        {"response-call", "one frequency of 8 sections, to the complex product", 1.1, 0.8,
         responseCall},
        {"response-one-band", "a knob of one of 8 bands turned, to a whole evaluation", 0.9, 0.6,
         responseOneBand},
    };
    return all;
}

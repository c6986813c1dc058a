// SPDX-License-Identifier: MIT
#include "images/Catalogue.h"

#include "images/IconPainter.h"
#include "images/KnobGeometry.h"
#include "images/KnobStrip.h"
#include "images/PanelPainter.h"

#include <QPainter>

namespace artwork {

namespace {

using Origin = KnobStyle::Origin;

KnobStyle unipolar(const KnobGeometry &geometry, const QColor &colour)
{
    return {.geometry = geometry, .accent = colour};
}

// The third mark shows twelve o'clock, from where the ring is lit.
KnobStyle bipolar(const KnobGeometry &geometry, const QColor &colour)
{
    return {.geometry = geometry, .accent = colour, .origin = Origin::Centre, .marks = 3};
}

KnobStyle attenuator()
{
    return {.geometry = largeKnob, .accent = accent::amber, .marks = 7};
}

KnobStyle stepper()
{
    return {.geometry = largeKnob, .accent = accent::grey, .marks = 0, .detents = 24};
}

std::vector<KnobStyle> categories()
{
    return {unipolar(largeKnob, accent::grey), unipolar(largeKnob, accent::amber),
            unipolar(largeKnob, accent::blue), unipolar(largeKnob, accent::green)};
}

struct NamedStrip
{
    const char *name;
    KnobStrip strip;
};

std::vector<NamedStrip> strips()
{
    return {
        {"knob-amber", {{unipolar(largeKnob, accent::amber)}}},
        {"knob-blue", {{unipolar(largeKnob, accent::blue)}}},
        {"knob-green", {{unipolar(largeKnob, accent::green)}}},
        {"knob-grey", {{unipolar(largeKnob, accent::grey)}}},
        {"knob-red", {{unipolar(largeKnob, accent::red)}}},
        {"knob-pan", {{bipolar(largeKnob, accent::teal)}}},
        {"knob-eq", {{bipolar(largeKnob, accent::blue)}}},
        {"knob-small-grey", {{unipolar(smallKnob, accent::grey)}}},
        {"knob-small-amber", {{unipolar(smallKnob, accent::amber)}}},
        {"knob-small-blue", {{unipolar(smallKnob, accent::blue)}}},
        {"knob-small-red", {{unipolar(smallKnob, accent::red)}}},
        {"knob-small-pan", {{bipolar(smallKnob, accent::teal)}}},
        {"knob-att", {{attenuator()}, 31}},
        {"knob-stepper", {{stepper()}, 24}},
        {"knob-amber-d", {{unipolar(largeKnob, accent::amber)}, 121, true}},
        {"knob-colours", {categories(), 61}},
    };
}

struct NamedPicture
{
    const char *name;
    QSize size;
    void (*paint)(QPainter &, QSize);
};

constexpr QSize toolIcon(toolIconSide, toolIconSide);

const NamedPicture pictures[] = {
    {"panel", {128, 128}, paintBrushedPanel},
    {"strip-header", {64, 24}, paintStripHeader},
    {"separator-vertical", {2, 64}, paintSeparator},
    {"separator-horizontal", {64, 2}, paintSeparator},
    {"icon-64", {64, 64}, paintApplicationIcon},
    {"icon-256", {256, 256}, paintApplicationIcon},
    {"undo", toolIcon, paintUndo},
    {"redo", toolIcon, paintRedo},
    {"online", toolIcon, paintOnline},
    {"offline", toolIcon, paintOffline},
};

} // namespace

std::vector<Artwork> catalogue()
{
    std::vector<Artwork> all;
    for (const NamedStrip &named : strips()) {
        all.push_back({named.name, sizeOf(named.strip),
                       [strip = named.strip](QPainter &painter) { paintStrip(painter, strip); }});
    }
    for (const NamedPicture &picture : pictures) {
        all.push_back({picture.name, picture.size,
                       [&picture](QPainter &painter) { picture.paint(painter, picture.size); }});
    }
    return all;
}

} // namespace artwork

// SPDX-License-Identifier: MIT
#include "images/Catalogue.h"

#include "images/BallPainter.h"
#include "images/ClassIconPainter.h"
#include "images/GraphPainter.h"
#include "images/IconPainter.h"
#include "images/KeyPainter.h"
#include "images/KnobGeometry.h"
#include "images/KnobStrip.h"
#include "images/LampPainter.h"
#include "images/MeterPainter.h"
#include "images/PanelPainter.h"
#include "widgets/meters/MeterScale.h"

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

struct NamedBar
{
    const char *name;
    MeterBar bar;
};

// Bars as high as their scale is long look best; where there is no room for that, it is scaled.
const NamedBar bars[] = {
    {"meter-level", {MeterScale::normal, {8, 136}}},
    {"meter-bridge", {MeterScale::normal, {12, 186}}},
    {"meter-strip", {MeterScale::selectedChannel, {6, 56}}},
    {"meter-channel", {MeterScale::selectedChannel, {10, 103}}},
    {"meter-comp-out", {MeterScale::compressorOut, {10, 82}}},
    {"meter-gr", {MeterScale::reductionSelectedChannel, {10, 69}, MeterBar::Family::Reduction}},
    {"meter-bridge-gr", {MeterScale::reduction, {6, 186}, MeterBar::Family::Reduction}},
    {"meter-strip-gr",
     {MeterScale::reductionSelectedChannel, {6, 56}, MeterBar::Family::Reduction}},
};

struct NamedKey
{
    const char *name;
    KeyStrip strip;
};

constexpr QSize sceneKey(104, 36);

// A key that the console never disables has no picture for it; nor one of its own for being held.
const NamedKey keys[] = {
    {"key-on", {{34, 22}, "ON", accent::green}},
    {"key-select", {{34, 22}, "SEL", accent::amber}},
    {"key-48v", {{40, 17}, "+48V", accent::red}},
    {"key-pair", {{33, 17}, "PAIR", accent::blue, 2}},
    {"key-store", {sceneKey, "STORE", accent::red}},
    {"key-recall", {sceneKey, "RECALL", accent::green}},
    {"key-clear", {sceneKey, "CLEAR", accent::amber}},
    {"key-undo", {sceneKey, "UNDO", accent::blue}},
    {"key-protect", {sceneKey, "PROTECT", accent::teal}},
};

struct NamedPicture
{
    const char *name;
    QSize size;
    void (*paint)(QPainter &, QSize);
};

constexpr QSize toolIcon(toolIconSide, toolIconSide);

// Three pixels per decibel, and one: -72 to +18 dB and the pixel of the end.
constexpr int fittedSide = 271;
constexpr int pixelPerDecibelSide = 91;

const NamedPicture pictures[] = {
    {"panel", {128, 128}, paintBrushedPanel},
    {"strip-header", {64, 24}, paintStripHeader},
    {"separator-vertical", {2, 64}, paintSeparator},
    {"separator-horizontal", {64, 2}, paintSeparator},
    {"graph-dynamics", {fittedSide, fittedSide}, paintDynamicsGround},
    {"graph-gate", {pixelPerDecibelSide, pixelPerDecibelSide}, paintDynamicsGround},
    {"scale-dynamics", DynamicsScale::around(fittedSide), paintDynamicsScale},
    {"scale-gate", DynamicsScale::around(pixelPerDecibelSide), paintDynamicsScale},
    {"ball-amber", {ballSide, ballSide}, paintAmberBall},
    {"ball-blue", {ballSide, ballSide}, paintBlueBall},
    {"ball-green", {ballSide, ballSide}, paintGreenBall},
    {"lamps-group-lit", groupLamps, paintGroupLampsLit},
    {"lamps-group-dark", groupLamps, paintGroupLampsDark},
    {"lamps-port-lit", portLamps, paintPortLampsLit},
    {"lamps-port-dark", portLamps, paintPortLampsDark},
    {"state-pair", pairStates, paintPairStates},
    {"roll-closed", rollPanel, paintRollClosed},
    {"roll-moving", rollPanel, paintRollMoving},
    {"roll-open", rollPanel, paintRollOpen},
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
    for (const NamedBar &named : bars) {
        for (const bool lit : {true, false}) {
            MeterBar bar = named.bar;
            bar.lit = lit;
            all.push_back({QLatin1String(named.name) + QLatin1String(lit ? "" : "-unlit"), bar.size,
                           [bar](QPainter &painter) { paintMeterBar(painter, bar); }});
        }
    }
    for (const auto &[name, letter] : {std::pair{"lamp-gate", LampStrip::Letter::Gate},
                                       std::pair{"lamp-comp", LampStrip::Letter::Compressor}}) {
        const LampStrip lamp{letter};
        all.push_back(
            {name, sizeOf(lamp), [lamp](QPainter &painter) { paintLampStrip(painter, lamp); }});
    }
    all.push_back({"lamp-signal", sizeOf(SignalLamp()),
                   [](QPainter &painter) { paintSignalLamp(painter, {}); }});
    for (const NamedKey &named : keys) {
        all.push_back({named.name, sizeOf(named.strip),
                       [strip = named.strip](QPainter &painter) { paintStrip(painter, strip); }});
    }
    for (const NamedPicture &picture : pictures) {
        all.push_back({picture.name, picture.size,
                       [&picture](QPainter &painter) { picture.paint(painter, picture.size); }});
    }
    for (const ClassIcon &icon : classIcons()) {
        constexpr QSize size(classIconSide, classIconSide);
        all.push_back(
            {icon.name, size, [&icon, size](QPainter &painter) { icon.paint(painter, size); }});
    }
    return all;
}

} // namespace artwork

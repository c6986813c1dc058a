// SPDX-License-Identifier: MIT
#include "widgets/forms/WidgetRegistry.h"

#include "widgets/buttons/C48V.h"
#include "widgets/buttons/CAnimMenu.h"
#include "widgets/buttons/COnOffButton.h"
#include "widgets/buttons/CPullDownMenu.h"
#include "widgets/buttons/CSelectButton.h"
#include "widgets/buttons/StateDisplayBit.h"
#include "widgets/buttons/StateDisplayWidget.h"
#include "widgets/controls/C48VDial.h"
#include "widgets/controls/CDial.h"
#include "widgets/controls/CHADial.h"
#include "widgets/forms/FormRepeater.h"
#include "widgets/graphs/CCompCurve.h"
#include "widgets/graphs/CGateCurve.h"
#include "widgets/lists/CGrid.h"
#include "widgets/lists/CListWidge.h"
#include "widgets/lists/GridPanel.h"
#include "widgets/meters/CMeter.h"
#include "widgets/meters/CPixmapMeter.h"
#include "widgets/meters/CThresholdMeter.h"
#include "widgets/meters/CTimeDisplay.h"

#include <algorithm>

namespace {

template<class Widget>
constexpr WidgetRegistry::Entry entry(const char *group, const char *toolTip)
{
    return {&Widget::staticMetaObject, group, toolTip,
            [](QWidget *parent) -> QWidget * { return new Widget(parent); }};
}

const WidgetRegistry::Entry all[] = {
    entry<CDial>("Continuous controls", "A rotary knob for one parameter"),
    entry<CHADial>("Continuous controls", "The gain of an input's head amp, shown while there is one"),
    entry<C48VDial>("Continuous controls", "Phantom power of an input as a knob"),
    entry<COnOffButton>("Keys and menus", "A key that switches one parameter on and off"),
    entry<CSelectButton>("Keys and menus", "A channel's select key"),
    entry<C48V>("Keys and menus", "Phantom power of an input, following its patch"),
    entry<CPullDownMenu>("Keys and menus", "A drop-down list of values for one parameter"),
    entry<CAnimMenu>("Keys and menus", "A panel that rolls open over another picture"),
    entry<StateDisplayBit>("Keys and menus", "A column of lamps for the bits of a parameter"),
    entry<StateDisplayWidget>("Keys and menus", "A picture of a parameter's state; reports clicks"),
    entry<CMeter>("Meters and readouts", "A bar meter for a level or a gain reduction"),
    entry<CPixmapMeter>("Meters and readouts", "A meter of pictures: a lamp that lights in steps"),
    entry<CThresholdMeter>("Meters and readouts", "A lamp for a channel that passes a threshold"),
    entry<CTimeDisplay>("Meters and readouts", "The console's time code"),
    entry<CCompCurve>("Processing graphs", "The curve of a compressor, expander or compander"),
    entry<CGateCurve>("Processing graphs", "The curve of a gate or of ducking"),
    entry<CGrid>("Lists and grids", "A matrix that connects channels with fields"),
    entry<CListWidge>("Lists and grids", "A library of stored settings, with its commands"),
    entry<GridPanel>("Containers", "The titles and caption around a grid"),
    entry<FormRepeater>("Containers", "One form, placed once per channel"),
};

} // namespace

const char *WidgetRegistry::Entry::className() const
{
    return metaObject->className();
}

std::span<const WidgetRegistry::Entry> WidgetRegistry::entries()
{
    return all;
}

const WidgetRegistry::Entry *WidgetRegistry::find(const QString &className)
{
    const auto found = std::ranges::find_if(
        all, [&](const Entry &each) { return className == QLatin1StringView(each.className()); });
    return found == std::end(all) ? nullptr : found;
}

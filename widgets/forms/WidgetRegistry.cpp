// SPDX-License-Identifier: MIT
#include "widgets/forms/WidgetRegistry.h"

#include "widgets/controls/CDial.h"
#include "widgets/forms/FormRepeater.h"
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
    entry<CMeter>("Meters and readouts", "A bar meter for a level or a gain reduction"),
    entry<CPixmapMeter>("Meters and readouts", "A meter of pictures: a lamp that lights in steps"),
    entry<CThresholdMeter>("Meters and readouts", "A lamp for a channel that passes a threshold"),
    entry<CTimeDisplay>("Meters and readouts", "The console's time code"),
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

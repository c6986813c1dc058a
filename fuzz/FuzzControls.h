// SPDX-License-Identifier: MIT
#pragma once

#include "fuzz/FuzzMemory.h"
#include "widgets/forms/WidgetRegistry.h"

#include <QWidget>

#include <map>
#include <memory>

namespace fuzz {

/// The class that a choice stands for.
inline const WidgetRegistry::Entry &widgetClass(unsigned choice)
{
    const auto entries = WidgetRegistry::entries();
    return entries[choice % entries.size()];
}

/// The widget of a class that all inputs share, bound to a fader; a new one in its place if so asked.
inline QWidget &boundWidget(const WidgetRegistry::Entry &entry, bool fresh = false)
{
    ParameterMemory &console = memory(); // with it comes the application
    static auto &widgets = *new std::map<const WidgetRegistry::Entry *, std::unique_ptr<QWidget>>;
    std::unique_ptr<QWidget> &widget = widgets[&entry];
    if (!widget || fresh) {
        widget.reset(entry.make(nullptr));
        widget->setProperty("namedAddress", "kInputFader/kFader");
        console.bind(widget.get());
    }
    return *widget;
}

} // namespace fuzz

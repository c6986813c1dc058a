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

#include <QFileInfo>
#include <QXmlStreamWriter>

#include <algorithm>
#include <memory>

namespace {

using Property = WidgetRegistry::Property;

/// What an entry says beyond group and tool tip.
struct Details
{
    const char *folder;
    QSize size;
    const char *whatsThis;
    std::span<const Property> start = {};
    bool isContainer = false;
};

template<class Widget>
constexpr WidgetRegistry::Entry entry(const char *group, const char *toolTip,
                                      const Details &details)
{
    return {&Widget::staticMetaObject,
            group,
            toolTip,
            [](QWidget *parent) -> QWidget * { return new Widget(parent); },
            details.folder,
            details.whatsThis,
            details.size,
            details.start,
            details.isContainer};
}

constexpr Property knob[] = {{"nSubImages", "number", "121"},
                             {"transparent", "bool", "true"},
                             {"combinedImage", "pixmap", ":/images/knob-amber.png"}};
constexpr Property redKnob[] = {{"nSubImages", "number", "121"},
                                {"transparent", "bool", "true"},
                                {"combinedImage", "pixmap", ":/images/knob-red.png"}};
constexpr Property onKey[] = {{"nSubImages", "number", "4"},
                              {"combinedImage", "pixmap", ":/images/key-on.png"}};
constexpr Property selectKey[] = {{"undoEnable", "bool", "false"},
                                  {"nSubImages", "number", "4"},
                                  {"combinedImage", "pixmap", ":/images/key-select.png"}};
constexpr Property phantomKey[] = {{"nSubImages", "number", "4"},
                                   {"combinedImage", "pixmap", ":/images/key-48v.png"}};
constexpr Property menu[] = {{"menuItemList", "string", "ONE;TWO;THREE"},
                             {"wantCheck", "bool", "true"}};
constexpr Property blind[] = {{"openImage", "pixmap", ":/images/roll-open.png"},
                              {"moveImage", "pixmap", ":/images/roll-moving.png"},
                              {"closeImage", "pixmap", ":/images/roll-closed.png"}};
constexpr Property lamps[] = {{"nSubImages", "number", "8"},
                              {"combinedOnImage", "pixmap", ":/images/lamps-group-lit.png"},
                              {"combinedOffImage", "pixmap", ":/images/lamps-group-dark.png"}};
constexpr Property states[] = {{"nSubImages", "number", "2"},
                               {"combinedImage", "pixmap", ":/images/state-pair.png"}};
constexpr Property levelMeter[] = {{"meterBgndImage", "pixmap", ":/images/meter-level-unlit.png"},
                                   {"meterImage", "pixmap", ":/images/meter-level.png"}};
constexpr Property signalLamp[] = {{"meterTableId", "number", "1"},
                                   {"nSubImages", "number", "8"},
                                   {"combinedImage", "pixmap", ":/images/lamp-signal.png"}};
constexpr Property gateLamp[] = {{"meterThresholdTableId", "number", "2"},
                                 {"nSubImages", "number", "5"},
                                 {"combinedImage", "pixmap", ":/images/lamp-gate.png"}};
constexpr Property compressorGround[] = {
    {"paletteBackgroundPixmap", "pixmap", ":/images/graph-dynamics.png"}};
constexpr Property gateGround[] = {{"pixmap", "pixmap", ":/images/graph-gate.png"}};
constexpr Property patch[] = {{"horCount", "number", "8"},
                              {"verCount", "number", "8"},
                              {"ballImg", "pixmap", ":/images/ball-amber.png"}};
constexpr Property caption[] = {{"caption", "string", "PATCH"}};

const WidgetRegistry::Entry all[] = {
    entry<CDial>(
        "Continuous controls", "A rotary knob for one parameter",
        {"controls",
         {56, 56},
         "Turn it by a drag around its centre, with the wheel or the arrow keys, or type a "
         "number.",
         knob}),
    entry<CHADial>(
        "Continuous controls", "The gain of an input's head amp, shown while there is one",
        {"controls",
         {56, 56},
         "A knob that follows the patch of its input: it is there while the input is patched "
         "to a head amp.",
         redKnob}),
    entry<C48VDial>("Continuous controls", "Phantom power of an input as a knob",
                    {"controls",
                     {56, 56},
                     "A knob for the phantom power of the head amp to which its input is patched.",
                     redKnob}),
    entry<COnOffButton>(
        "Keys and menus", "A key that switches one parameter on and off",
        {"buttons",
         {34, 22},
         "Click it, or press Space. With a bool clip value it chooses one value of the "
         "parameter.",
         onKey}),
    entry<CSelectButton>(
        "Keys and menus", "A channel's select key",
        {"buttons",
         {34, 22},
         "Click it to select its channel. It blinks while its channel is linked to "
         "the selected one.",
         selectKey}),
    entry<C48V>("Keys and menus", "Phantom power of an input, following its patch",
                {"buttons",
                 {40, 17},
                 "Switches phantom power at the head amp to which its input is patched.",
                 phantomKey}),
    entry<CPullDownMenu>("Keys and menus", "A drop-down list of values for one parameter",
                         {"buttons",
                          {96, 24},
                          "Click it, or press Space, and choose. The first item stands for the "
                          "parameter's lowest value.",
                          menu}),
    entry<CAnimMenu>(
        "Keys and menus", "A panel that rolls open over another picture",
        {"buttons",
         {152, 96},
         "Rolls open and shut like a blind; what belongs on it shows while it is open.",
         blind,
         true}),
    entry<StateDisplayBit>("Keys and menus", "A column of lamps for the bits of a parameter",
                           {"buttons",
                            {20, 96},
                            "Each lamp shows one bit of a value, or one of a run of parameters.",
                            lamps}),
    entry<StateDisplayWidget>(
        "Keys and menus", "A picture of a parameter's state; reports clicks",
        {"buttons",
         {56, 28},
         "Shows one picture per value. A click changes nothing by itself: the "
         "form's owner decides.",
         states}),
    entry<CMeter>(
        "Meters and readouts", "A bar meter for a level or a gain reduction",
        {"meters",
         {8, 136},
         "A lit picture over a dark one, as far as the level reaches, with a mark for the held "
         "peak.",
         levelMeter}),
    entry<CPixmapMeter>(
        "Meters and readouts", "A meter of pictures: a lamp that lights in steps",
        {"meters",
         {10, 10},
         "One picture per band of levels, from the console's meter table or a list of "
         "bounds.",
         signalLamp}),
    entry<CThresholdMeter>(
        "Meters and readouts", "A lamp for a channel that passes a threshold",
        {"meters",
         {14, 14},
         "Lights while a reading passes its threshold and the block is switched on.",
         gateLamp}),
    entry<CTimeDisplay>("Meters and readouts", "The console's time code",
                        {"meters",
                         {140, 28},
                         "Hours, minutes, seconds and frames, in the widget's font. It needs no "
                         "address."}),
    entry<CCompCurve>(
        "Processing graphs", "The curve of a compressor, expander or compander",
        {"graphs",
         {271, 271},
         "Output level over input level. Its address is the threshold of the block; it "
         "finds the other parameters.",
         compressorGround}),
    entry<CGateCurve>(
        "Processing graphs", "The curve of a gate or of ducking",
        {"graphs",
         {91, 91},
         "Output level over input level. Its address is the threshold of the block; it "
         "finds the other parameters.",
         gateGround}),
    entry<CGrid>(
        "Lists and grids", "A matrix that connects channels with fields",
        {"lists",
         {116, 120},
         "Click a cell, or move with the arrow keys and press Space, to connect its channel with "
         "its field.",
         patch}),
    entry<CListWidge>(
        "Lists and grids", "A library of stored settings, with its commands",
        {"lists",
         {360, 200},
         "Store, recall, clear, protect and undo work on the selected rows, by keys that "
         "the list is told by name."}),
    entry<GridPanel>(
        "Containers", "The titles and caption around a grid",
        {"lists",
         {220, 200},
         "Place one grid inside: the panel draws its titles and says the pair under the "
         "cursor in words.",
         caption,
         true}),
    entry<FormRepeater>(
        "Containers", "One form, placed once per channel",
        {"forms",
         {320, 200},
         "Names the form of one strip and the channels that it is placed for; filled "
         "when the form is loaded."}),
};

/// What stands for the widget where there is little room.
QPixmap thumbnail(const WidgetRegistry::Entry &entry)
{
    constexpr int side = 24;
    const std::unique_ptr<QWidget> sample(entry.makeSample());
    return sample->grab().scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

QVariant valueOf(const Property &property)
{
    const QString text = QString::fromUtf8(property.value);
    if (qstrcmp(property.kind, "pixmap") == 0)
        return QFileInfo::exists(text) ? QVariant::fromValue(QPixmap(text)) : QVariant();
    return text;
}

} // namespace

const char *WidgetRegistry::Entry::className() const
{
    return metaObject->className();
}

QString WidgetRegistry::Entry::header() const
{
    return QString("widgets/%1/%2.h").arg(QLatin1String(folder), QLatin1String(className()));
}

QIcon WidgetRegistry::Entry::icon() const
{
    const QString drawn = QString(":/images/class-%1.png").arg(QLatin1String(className()));
    return QFileInfo::exists(drawn) ? QIcon(drawn) : QIcon(thumbnail(*this));
}

const char *WidgetRegistry::Entry::baseClass() const
{
    return metaObject->superClass()->className();
}

void WidgetRegistry::Entry::writeWidget(QXmlStreamWriter &xml) const
{
    QString name = QLatin1String(className());
    name[0] = name[0].toLower();
    xml.writeStartElement("widget");
    xml.writeAttribute("class", QLatin1String(className()));
    xml.writeAttribute("name", name);
    xml.writeStartElement("property");
    xml.writeAttribute("name", "geometry");
    xml.writeStartElement("rect");
    xml.writeTextElement("x", "0");
    xml.writeTextElement("y", "0");
    xml.writeTextElement("width", QString::number(size.width()));
    xml.writeTextElement("height", QString::number(size.height()));
    xml.writeEndElement();
    xml.writeEndElement();
    for (const Property &each : start) {
        xml.writeStartElement("property");
        xml.writeAttribute("name", QLatin1String(each.name));
        xml.writeTextElement(QLatin1String(each.kind), QString::fromUtf8(each.value));
        xml.writeEndElement();
    }
    xml.writeEndElement();
}

QWidget *WidgetRegistry::Entry::makeSample(QWidget *parent) const
{
    QWidget *widget = make(parent);
    widget->resize(size);
    for (const Property &property : start) {
        if (const QVariant value = valueOf(property); value.isValid())
            widget->setProperty(property.name, value);
    }
    return widget;
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

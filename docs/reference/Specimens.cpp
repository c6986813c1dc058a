// SPDX-License-Identifier: MIT
#include "Specimens.h"

#include "ExampleSlot.h"

#include "interfaces/utilities/NS_Utilities.h"
#include "widgets/buttons/C48V.h"
#include "widgets/buttons/CAnimMenu.h"
#include "widgets/buttons/CPullDownMenu.h"
#include "widgets/buttons/CSelectButton.h"
#include "widgets/buttons/StateDisplayBit.h"
#include "widgets/buttons/StateDisplayWidget.h"
#include "widgets/controls/C48VDial.h"
#include "widgets/controls/CHADial.h"
#include "widgets/forms/FormLoader.h"
#include "widgets/forms/FormRepeater.h"
#include "widgets/graphs/CCompCurve.h"
#include "widgets/graphs/CGateCurve.h"
#include "widgets/lists/CGrid.h"
#include "widgets/lists/GridPanel.h"
#include "widgets/meters/CMeter.h"
#include "widgets/meters/CPixmapMeter.h"
#include "widgets/meters/CThresholdMeter.h"
#include "widgets/meters/CTimeDisplay.h"

#include <algorithm>
#include <cstring>

using NS_Utilities::loadPixmap;

namespace {

QWidget *dial(QWidget *parent)
{
    //! [CDial]
    auto *gain = new CDial(parent);
    gain->setCombinedImage(
        loadPixmap(":/images/knob-amber.png")); // 121 pictures, one below the other
    gain->setnSubImages(121);
    gain->setTransparent(true);
    gain->setNamedAddress("kInputEQ/kLowGain");
    gain->setAccessibleName("Low gain");
    //! [CDial]
    return gain;
}

QWidget *headAmpDial(QWidget *parent)
{
    //! [CHADial]
    auto *gain = new CHADial(parent);
    gain->setCombinedImage(loadPixmap(":/images/knob-amber.png"));
    gain->setnSubImages(121);
    gain->setTransparent(true);
    gain->setNamedAddress("kInputHA/kGain");
    //! [CHADial]
    return gain;
}

QWidget *phantomDial(QWidget *parent)
{
    //! [C48VDial]
    auto *phantom = new C48VDial(parent);
    phantom->setCombinedImage(loadPixmap(":/images/knob-red.png"));
    phantom->setnSubImages(121);
    phantom->setTransparent(true);
    phantom->setNamedAddress("kInputHA/k48V");
    //! [C48VDial]
    return phantom;
}

QWidget *key(QWidget *parent)
{
    //! [COnOffButton]
    auto *on = new COnOffButton(parent);
    on->setCombinedImage(loadPixmap(":/images/key-on.png")); // on, off, held down, disabled
    on->setnSubImages(4);
    on->setNamedAddress("kInputOn/kOn");
    on->setAccessibleName("On");
    //! [COnOffButton]
    return on;
}

QWidget *selectKey(QWidget *parent)
{
    //! [CSelectButton]
    auto *select = new CSelectButton(parent);
    select->setCombinedImage(loadPixmap(":/images/key-select.png"));
    select->setnSubImages(4);
    select->setNamedAddress("kSelectedChannel/kChannel");
    select->setUndoEnable(false);
    //! [CSelectButton]
    return select;
}

QWidget *phantomKey(QWidget *parent)
{
    //! [C48V]
    auto *phantom = new C48V(parent);
    phantom->setCombinedImage(loadPixmap(":/images/key-48v.png"));
    phantom->setnSubImages(4);
    phantom->setNamedAddress("kInputHA/k48V");
    //! [C48V]
    return phantom;
}

QWidget *menu(QWidget *parent)
{
    //! [CPullDownMenu]
    auto *type = new CPullDownMenu(parent);
    type->setMenuItemList("GATE;DUCKING;COMPRESSOR;EXPANDER"); // for the values from the lowest on
    type->setWantCheck(true);
    type->setNamedAddress("kInputDynamics1/kType");
    //! [CPullDownMenu]
    type->setFixedSize(118, 22);
    return type;
}

QWidget *rollingPanel(QWidget *parent)
{
    //! [CAnimMenu]
    auto *tools = new CAnimMenu(parent);
    tools->setCloseImage(loadPixmap(":/images/roll-closed.png"));
    tools->setMoveImage(loadPixmap(":/images/roll-moving.png"));
    tools->setOpenImage(loadPixmap(":/images/roll-open.png"));
    auto *contents = new QWidget(tools);
    QObject::connect(tools, &CAnimMenu::showMenu, contents, &QWidget::setVisible);
    //! [CAnimMenu]
    return tools;
}

QWidget *lamps(QWidget *parent)
{
    //! [StateDisplayBit]
    auto *groups = new StateDisplayBit(parent);
    groups->setCombinedOnImage(loadPixmap(":/images/lamps-group-lit.png"));
    groups->setCombinedOffImage(loadPixmap(":/images/lamps-group-dark.png"));
    groups->setnSubImages(8);
    groups->setMultiMode(true); // kGroup1 and the seven parameters behind it
    groups->setNamedAddress("kInputMuteGroup/kGroup1");
    //! [StateDisplayBit]
    groups->setFixedSize(20, 96);
    return groups;
}

QWidget *state(QWidget *parent)
{
    //! [StateDisplayWidget]
    auto *pair = new StateDisplayWidget(parent);
    pair->setCombinedImage(loadPixmap(":/images/state-pair.png"));
    pair->setnSubImages(2);
    pair->setNamedAddress("kInputPair/kPair");
    QObject::connect(pair, &StateDisplayWidget::clicked, pair,
                     [pair] { pair->setValueFromData(1 - pair->value()); });
    //! [StateDisplayWidget]
    pair->setFixedSize(56, 28);
    return pair;
}

QWidget *meter(QWidget *parent)
{
    //! [CMeter]
    auto *level = new CMeter(parent);
    level->setMeterSelector(CMeter::eMtr_Normal);
    level->setMeterImage(loadPixmap(":/images/meter-level.png"));
    level->setMeterBgndImage(loadPixmap(":/images/meter-level-unlit.png"));
    level->setNamedAddress("kInputMeter/kLevel");
    //! [CMeter]
    return level;
}

QWidget *pictureMeter(QWidget *parent)
{
    //! [CPixmapMeter]
    auto *signal = new CPixmapMeter(parent);
    signal->setCombinedImage(loadPixmap(":/images/lamp-signal.png"));
    signal->setnSubImages(8);
    signal->setMeterTableId(1); // the console model's thresholds
    signal->setNamedAddress("kHeadAmpMeter/kLevel");
    //! [CPixmapMeter]
    return signal;
}

QWidget *thresholdLamp(QWidget *parent)
{
    //! [CThresholdMeter]
    auto *gate = new CThresholdMeter(parent);
    gate->setCombinedImage(loadPixmap(":/images/lamp-gate.png"));
    gate->setnSubImages(5);
    gate->setMeterThresholdTableId(2);
    gate->setNamedAddress("kInputMeter/kGateReduction");
    gate->setThresholdNamedAddress("kInputDynamics1/kThreshold");
    gate->setStateNamedAddress("kInputDynamics1/kOn");
    //! [CThresholdMeter]
    return gate;
}

QWidget *timeCode(QWidget *parent)
{
    //! [CTimeDisplay]
    auto *time = new CTimeDisplay(parent);
    time->setUpdateFrequency(25);
    //! [CTimeDisplay]
    QFont large = time->font();
    large.setPointSize(20);
    time->setFont(large);
    return time;
}

QWidget *compressorCurve(QWidget *parent)
{
    //! [CCompCurve]
    auto *curve = new CCompCurve(parent);
    curve->setFixedSize(271, 271); // three pixels per decibel
    curve->setPaletteBackgroundPixmap(loadPixmap(":/images/graph-dynamics.png"));
    curve->setNamedAddress("kInputDynamics2/kThreshold");
    //! [CCompCurve]
    return curve;
}

QWidget *gateCurve(QWidget *parent)
{
    //! [CGateCurve]
    auto *curve = new CGateCurve(parent);
    curve->setFixedSize(91, 91);
    curve->setPixmap(loadPixmap(":/images/graph-gate.png"));
    curve->setNamedAddress("kInputDynamics1/kThreshold");
    //! [CGateCurve]
    return curve;
}

//! [CGrid]
CGrid *mixAssign(QWidget *parent)
{
    auto *grid = new CGrid(parent);
    grid->setOrientation(CGrid::ChannelsAcross);
    grid->setHorCount(8);
    grid->setVerCount(16);
    grid->setValueAsBitMask(true); // bit n: the channel feeds mix n
    grid->setChannelTitles("CH 1..16");
    grid->setFieldTitles("MIX 1..8");
    grid->setBallImg(loadPixmap(":/images/ball-blue.png"));
    grid->setNamedAddress("kInputAssign/kMixMask");
    return grid;
}
//! [CGrid]

QWidget *grid(QWidget *parent)
{
    return mixAssign(parent);
}

QWidget *panel(QWidget *parent)
{
    //! [GridPanel]
    auto *panel = new GridPanel(parent);
    panel->setCaption("MIX ASSIGN");
    panel->setAccentColor(QColor(92, 167, 255));
    mixAssign(panel); // a CGrid, as in its own example
    //! [GridPanel]
    return panel;
}

QWidget *library(QWidget *parent)
{
    //! [CListWidge]
    auto *scenes = new CListWidge(parent);
    auto *store = new COnOffButton(parent);
    scenes->setStore(store); // enabled while something can be stored
    const QStringList titles{"Sound check", "Opening", "Act 1", "", "Interval", ""};
    for (int i = 0; i < titles.size(); ++i)
        new ExampleSlot(scenes, i + 1, titles[i]);
    //! [CListWidge]
    store->hide();
    scenes->setFixedSize(420, 150);
    return scenes;
}

QWidget *repeater(QWidget *parent)
{
    //! [FormRepeater]
    auto *ports = new FormRepeater(parent);
    ports->setForm(":/forms/head-amp-port.ui");
    ports->setFirstChannel(1);
    ports->setChannels(8);
    FormLoader loader; // a form that holds a repeater is filled by its own loader
    ports->fill(loader, QString());
    //! [FormRepeater]
    return ports;
}

constexpr Specimen specimens[] = {
    {"CDial", dial, 60},
    {"CHADial", headAmpDial, -30},
    {"C48VDial", phantomDial, 1},
    {"COnOffButton", key, 1},
    {"CSelectButton", selectKey, 0},
    {"C48V", phantomKey, 1},
    {"CPullDownMenu", menu, 2},
    {"CAnimMenu", rollingPanel},
    {"StateDisplayBit", lamps, 1},
    {"StateDisplayWidget", state, 1},
    {"CMeter", meter, {}, Specimen::Reading{101, 114}},
    {"CPixmapMeter", pictureMeter, {}, Specimen::Reading{105, 0}},
    {"CThresholdMeter", thresholdLamp, {}, Specimen::Reading{100, 0}},
    {"CTimeDisplay", timeCode},
    {"CCompCurve", compressorCurve, -300},
    {"CGateCurve", gateCurve, -400},
    {"CGrid", grid, 0x35},
    {"GridPanel", panel},
    {"CListWidge", library},
    {"FormRepeater", repeater},
};

} // namespace

std::span<const Specimen> Specimen::all()
{
    return specimens;
}

const Specimen *Specimen::find(const char *className)
{
    const auto found = std::ranges::find_if(specimens, [&](const Specimen &each) {
        return std::strcmp(each.className, className) == 0;
    });
    return found == std::end(specimens) ? nullptr : found;
}

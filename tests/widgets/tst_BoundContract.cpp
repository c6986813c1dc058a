// SPDX-License-Identifier: MIT
// The common contract, over every bound class of the registry and both memories.
#include "companions/memory/ParameterMemory.h"
#include "interfaces/TMemProxy.h"
#include "testkit/BoundContract.h"
#include "testkit/RecordingMemory.h"
#include "widgets/buttons/CPullDownMenu.h"
#include "widgets/forms/WidgetRegistry.h"

#include <QApplication>
#include <QTest>

namespace {

constexpr BoundContract::Exceptions Display = BoundContract::NoFocus | BoundContract::NoCopy;
constexpr BoundContract::Exceptions Meter = Display | BoundContract::NoValueSignals
                                            | BoundContract::ReadsLater
                                            | BoundContract::AttachesElsewhere;

struct Difference
{
    const char *className;
    BoundContract::Exceptions exceptions;
};

const Difference differences[] = {
    {"COnOffButton", BoundContract::ReadsLater},
    // These stand at addresses of their own: the selection's first element, a head amp's port.
    {"CSelectButton", BoundContract::ReadsLater | BoundContract::AttachesElsewhere},
    {"C48V", BoundContract::ReadsLater | BoundContract::AttachesElsewhere},
    {"C48VDial", BoundContract::ReadsLater | BoundContract::AttachesElsewhere},
    {"StateDisplayBit", Display | BoundContract::ForgetsBlocked},
    {"StateDisplayWidget", Display | BoundContract::ForgetsBlocked},
    {"CMeter", Meter | BoundContract::AsksWhenNew},
    {"CPixmapMeter", Meter | BoundContract::AsksWhenNew},
    {"CThresholdMeter", Meter},
    {"CTimeDisplay", Meter | BoundContract::OwnName},
    {"CCompCurve", BoundContract::ReadsLater | Display},
    {"CGateCurve", BoundContract::ReadsLater | Display},
    {"CGrid", BoundContract::NoValueSignals | BoundContract::ReadsLater},
};

/// As the registry makes it; a menu shows only the values that it has items for.
QWidget *make(const WidgetRegistry::Entry &entry)
{
    QWidget *widget = entry.make(nullptr);
    if (auto *menu = qobject_cast<CPullDownMenu *>(widget))
        menu->setMenuItemList(QStringLiteral("item;").repeated(101));
    return widget;
}

std::unique_ptr<IMemAPI> embeddedMemory()
{
    auto memory = std::make_unique<ParameterMemory>();
    memory->load(ParameterMemory::builtInModel());
    return memory;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    BoundContract contract;
    for (const WidgetRegistry::Entry &entry : WidgetRegistry::entries()) {
        const std::unique_ptr<QWidget> widget(entry.make(nullptr));
        if (dynamic_cast<TMemProxy *>(widget.get()))
            contract.add(entry.className(), [&entry] { return make(entry); });
    }
    for (const Difference &difference : differences)
        contract.except(difference.className, difference.exceptions);

    IMemAPI::TSingleBaseAddress gain;
    ParameterMemory model;
    if (!model.load(ParameterMemory::builtInModel()) || !model.resolve("kInputHA/kGain", 2, gain))
        return EXIT_FAILURE;
    contract.addMemory("recording memory", {3, 2, 7},
                       [] { return std::make_unique<RecordingMemory>(); });
    contract.addMemory("embedded memory", gain, embeddedMemory);
    return QTest::qExec(&contract, argc, argv);
}

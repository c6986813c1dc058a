// SPDX-License-Identifier: MIT
// The device's memory does what controls rely on, and they keep their contract on it.
#include "DeviceMemory.h"

#include "testkit/BoundContract.h"
#include "testkit/MemoryContract.h"
#include "widgets/buttons/COnOffButton.h"
#include "widgets/controls/CDial.h"

#include <QApplication>
#include <QTest>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    constexpr IMemAPI::TSingleBaseAddress mute{0, 3, ToyDevice::Mute};
    const auto make = [] { return std::make_unique<DeviceMemory>(); };
    MemoryContract memory(mute, make);

    BoundContract controls;
    controls.add<CDial>();
    controls.add<COnOffButton>();
    controls.except("COnOffButton", BoundContract::ReadsLater);
    controls.addMemory("device", mute, make);
    return QTest::qExec(&memory, argc, argv) | QTest::qExec(&controls, argc, argv);
}

// SPDX-License-Identifier: MIT
// Controls keep their contract on the device's memory, too.
#include "DeviceMemory.h"

#include "testkit/BoundContract.h"
#include "widgets/buttons/COnOffButton.h"
#include "widgets/controls/CDial.h"

#include <QApplication>
#include <QTest>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    BoundContract contract;
    contract.add<CDial>();
    contract.add<COnOffButton>();
    contract.except("COnOffButton", BoundContract::ReadsLater);
    contract.addMemory("device", {0, 3, ToyDevice::Mute},
                       [] { return std::make_unique<DeviceMemory>(); });
    return QTest::qExec(&contract, argc, argv);
}

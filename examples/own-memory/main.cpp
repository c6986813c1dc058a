// SPDX-License-Identifier: MIT
// Dials and keys on a memory of one's own: they show, and set, what a device on another thread holds.
#include "DeviceMemory.h"

#include "interfaces/utilities/NS_Utilities.h"
#include "widgets/buttons/COnOffButton.h"
#include "widgets/controls/CDial.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QThread>
#include <QTimer>

#include <cstdio>

/// A dial with its value as text, and a key, for one channel of the device.
static void addChannel(QGridLayout &grid, DeviceMemory &memory, int channel)
{
    auto *level = new CDial;
    level->setCombinedImage(NS_Utilities::loadPixmap(QStringLiteral(":/images/knob-grey.png")));
    level->setnSubImages(121);
    level->setTransparent(true);
    level->setAccessibleName(QStringLiteral("Level %1").arg(channel + 1));
    auto *decibels = new QLabel;
    decibels->setAlignment(Qt::AlignCenter);
    QObject::connect(level, &CDial::textualValueChange, decibels, &QLabel::setText);
    auto *mute = new COnOffButton;
    mute->setText(QStringLiteral("M"));
    mute->setAccessibleName(QStringLiteral("Mute %1").arg(channel + 1));
    grid.addWidget(level, 0, channel);
    grid.addWidget(decibels, 1, channel);
    grid.addWidget(mute, 2, channel);
    memory.bind(*level, ToyDevice::Level, channel);
    memory.bind(*mute, ToyDevice::Mute, channel);
}

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QThread thread;
    ToyDevice device;
    device.moveToThread(&thread);
    thread.start();
    DeviceMemory memory(&device);

    QWidget window;
    QGridLayout grid(&window);
    for (int channel = 0; channel < ToyDevice::Channels; ++channel)
        addChannel(grid, memory, channel);
    window.show();

    if (app.arguments().contains(QStringLiteral("--once"))) {
        // The operator asks for -17 dB; the device has -15, and the dial shows that.
        auto *first = window.findChild<CDial *>();
        first->setValue(-17);
        QObject::connect(first, &CDial::memoryAPIValueChange, &app, [&](int value) {
            if (value == -15)
                std::puts("-15"), app.quit();
        });
    }
    const int status = app.exec();
    thread.quit();
    thread.wait();
    return status;
}

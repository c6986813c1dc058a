// SPDX-License-Identifier: MIT
#include "SpecimenPicture.h"

#include "Specimens.h"

#include "companions/memory/ParameterMemory.h"
#include "interfaces/TMemProxy.h"

#include <QApplication>
#include <QVBoxLayout>
#include <QWidget>

namespace {

constexpr int Margin = 12;

void writeValue(ParameterMemory &memory, const TMemProxy &proxy, int value)
{
    const IMemAPI::TSingleBaseAddress at = proxy.valueAddress();
    memory.writeValue(at.group, at.index, at.element, value, 0);
}

/// Lamps of a block are lit while it is on.
void switchOn(ParameterMemory &memory, const QString &address)
{
    IMemAPI::TSingleBaseAddress at;
    if (memory.resolve(address, 0, at))
        memory.writeValue(at.group, at.index, at.element, 1, 0);
}

/// Grids show a few connections.
void connectSome(ParameterMemory &memory, const TMemProxy &proxy)
{
    constexpr int channels = 16;
    for (const IMemAPI::TSingleAddress &range : proxy.addresses()) {
        for (int i = 0; i < qMin<int>(channels, range.channelCount); ++i)
            memory.writeValue(range.group, range.index, range.element + i, 1 << i % 7 | 1 << i % 3,
                              0);
    }
}

void liven(ParameterMemory &memory, QWidget &widget, const Specimen &specimen)
{
    auto *proxy = dynamic_cast<TMemProxy *>(&widget);
    if (proxy && specimen.value)
        writeValue(memory, *proxy, *specimen.value);
    if (proxy && specimen.reading)
        memory.deliverMeter(proxy->group, proxy->index, proxy->element, specimen.reading->level,
                            specimen.reading->peak);
    for (QWidget *each : QList<QWidget *>{&widget} + widget.findChildren<QWidget *>()) {
        auto *inner = dynamic_cast<TMemProxy *>(each);
        if (inner && inner->servesChannels())
            connectSome(memory, *inner);
    }
    // 1:23:45 and 12 frames.
    memory.deliverTimecode(1, 23, 45, 12);
}

} // namespace

QPixmap pictureOf(const Specimen &specimen)
{
    ParameterMemory memory;
    if (QString error; !memory.load(ParameterMemory::builtInModel(), &error))
        qFatal("%s", qPrintable(error));
    memory.setConnectionState(IMemAPI::Online);
    switchOn(memory, "kInputDynamics1/kOn");
    QWidget ground;
    QVBoxLayout layout(&ground);
    layout.setContentsMargins(Margin, Margin, Margin, Margin);
    layout.setSizeConstraint(QLayout::SetFixedSize);
    QWidget *widget = specimen.make(&ground);
    layout.addWidget(widget);
    memory.bind(&ground);
    ground.show();
    QApplication::processEvents();
    liven(memory, *widget, specimen);
    if (QWidget *focused = ground.focusWidget())
        focused->clearFocus();
    QApplication::processEvents();
    return ground.grab();
}

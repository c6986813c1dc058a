// SPDX-License-Identifier: MIT
#include "bench/BridgeLoad.h"

#include "bench/LiveShare.h"
#include "bench/Scale.h"
#include "bench/Stage.h"
#include "companions/memory/ParameterMemory.h"
#include "console/SimulatedConsole.h"
#include "editor/soak/WindowPicture.h"
#include "widgets/forms/FormLoader.h"

namespace {

std::unique_ptr<QWidget> makeBridge(ParameterMemory &memory)
{
    FormLoader loader;
    std::unique_ptr<QWidget> bridge(loader.load(QStringLiteral(":/forms/meter-bridge.ui")));
    if (!bridge || !loader.problems().isEmpty())
        qFatal("the meter bridge: %s", qPrintable(loader.problems().join(u'\n')));
    memory.bind(bridge.get(), 0);
    bridge->resize(bridge->sizeHint());
    Stage::show(*bridge);
    return bridge;
}

} // namespace

double bridgeload::measure()
{
    ParameterMemory memory;
    scale::load(memory);
    const std::unique_ptr<QWidget> bridge = makeBridge(memory);
    const QImage silent = windowpicture::present(*bridge);
    const liveshare::Share taken = liveshare::during([&memory](liveshare::Ticks &ticks) {
        SimulatedConsole console(memory);
        while (ticks.next())
            console.step(liveshare::Tick.count());
    });
    Stage::frame(); // delivers the last
    Stage::frame();
    const QImage shown = windowpicture::present(*bridge);
    if (shown == silent || shown != windowpicture::repainted(*bridge))
        qFatal("the meter bridge does not show what it must");
    return taken.all;
}

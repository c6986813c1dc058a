// SPDX-License-Identifier: MIT
#include "bench/LiveLoad.h"

#include "bench/FreshProcess.h"
#include "bench/LiveShare.h"
#include "bench/MeterPage.h"
#include "console/MeterModel.h"

using liveshare::Ticks;
using meterpage::OwnPage;

liveload::Shares liveload::measure()
{
    OwnPage page(meterpage::Plan{});
    MeterModel programme(page.memory(), 1);
    const auto play = [&](Ticks &ticks) {
        while (ticks.next()) {
            programme.advance(liveshare::Tick.count());
            for (const MeterModel::Reading &each : programme.readings())
                page.memory().deliverMeter(each.group, each.index, each.element, each.level,
                                           each.peak);
        }
    };
    const auto jump = [&page](Ticks &ticks) {
        for (int frame = 1; ticks.next(); ++frame)
            page.deliver(frame, meterpage::Changing::All);
    };
    return {liveshare::during(play).gui, liveshare::during(jump).gui};
}

liveload::Shares liveload::measuredOn(const QString &platform)
{
    const QList<QByteArray> numbers =
        freshprocess::outputOf({Option}, {.platform = platform}).trimmed().split(' ');
    return {numbers.value(0).toDouble(), numbers.value(1).toDouble()};
}

std::string liveload::toText(const Shares &shares)
{
    return std::to_string(shares.programme) + ' ' + std::to_string(shares.jumps);
}

// SPDX-License-Identifier: MIT
// What meters cost from a reading to the end of the paint, one by one and as pages.
#include "bench/FreshProcess.h"
#include "bench/MeterPage.h"
#include "bench/Rounds.h"
#include "bench/Rows.h"
#include "bench/Stage.h"

using namespace meterpage;

namespace {

rounds::Case frames(const char *name, const std::function<double(int)> &frame)
{
    return {name, [frame, number = 0]() mutable { return frame(++number); }};
}

rounds::Case frames(const char *name, OwnPage &page, Changing changing)
{
    return frames(name, [&page, changing](int number) { return page.frame(number, changing); });
}

rounds::Case frames(const char *name, IdealPage &page)
{
    return frames(name, [&page](int number) { return page.frame(number); });
}

/// Ends the program unless both pages look the same after a frame.
void requireSamePictures(OwnPage &own, IdealPage &ideal)
{
    for (int number = 0; number < 4; ++number) {
        own.frame(number, Changing::All);
        ideal.frame(number);
        if (own.window().grab().toImage() != ideal.window().grab().toImage())
            qFatal("frame %d is not painted as it must be", number);
    }
}

Measurement comparePages(const Plan &plan)
{
    const OneProcessor here;
    OwnPage own(plan);
    IdealPage ideal(plan);
    requireSamePictures(own, ideal);
    return rounds::compare({frames("page", own, Changing::All), frames("ideal page", ideal)},
                           rounds::firstToSecond);
}

Measurement compareWithAll(Changing changing)
{
    const OneProcessor here;
    OwnPage page(Plan{});
    OwnPage all(Plan{});
    return rounds::compare(
        {frames("500 meters", page, changing), frames("all changing", all, Changing::All)},
        rounds::firstToSecond);
}

} // namespace

Measurement meterReading()
{
    Stage stage;
    CMeter meter(&stage.window());
    meter.setMeterBgndImage(opaquePictures().unlit);
    meter.setMeterImage(opaquePictures().lit);
    meter.move(400, 300);
    meter.show();
    Stage other;
    IdealMeter ideal(opaquePictures().unlit, opaquePictures().lit, &other.window());
    ideal.setGeometry(meter.geometry());
    ideal.show();
    Stage::frame();
    const auto changes = [](const char *name, const std::function<void(int)> &show) {
        return rounds::Case{name, [show, number = 0](benchmark::State &state) mutable {
                                for (auto _ : state) {
                                    ++number;
                                    show(codeAt(number, number));
                                    Stage::frame();
                                }
                            }};
    };
    const auto read = [&meter](int code) {
        const Q_UINT8 bytes[] = {0, static_cast<Q_UINT8>(code), 0, 0};
        meter.process(bytes, CMeter::Refresh, 0);
    };
    read(codeAt(1, 1));
    ideal.setLength(lengthAt(codeAt(1, 1)));
    Stage::frame();
    if (onScreen(meter) != onScreen(ideal))
        qFatal("the meter is not painted as it must be");
    return rounds::compare(
        {changes("meter", read),
         changes("ideal meter", [&ideal](int code) { ideal.setLength(lengthAt(code)); })},
        rounds::firstToSecond);
}

Measurement metersPage()
{
    return comparePages({.with = With::MetersAlone});
}

Measurement metersFifth()
{
    return compareWithAll(Changing::AFifth);
}

Measurement metersNone()
{
    return compareWithAll(Changing::None);
}

Measurement controlsPage()
{
    return comparePages({.with = With::MetersAndDials});
}

Measurement controlsPageUnderX()
{
    const QStringList pageAlone{MeasureOption, QStringLiteral("page")};
    return fromText(
        freshprocess::outputOf(pageAlone, {.platform = QStringLiteral("xcb")}).toStdString());
}

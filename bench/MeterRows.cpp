// SPDX-License-Identifier: MIT
// What meters cost from a reading to the end of the paint, one by one and as pages.
#include "bench/BridgeLoad.h"
#include "bench/FreshProcess.h"
#include "bench/MeterPage.h"
#include "bench/references/PageFloor.h"
#include "bench/Rounds.h"
#include "bench/Rows.h"
#include "bench/Stage.h"
#include "editor/soak/WindowPicture.h"

using namespace meterpage;

namespace {

rounds::Case frames(const char *name, OwnPage &page, Changing changing = Changing::All,
                    Clock clock = threadSeconds)
{
    return {name, [&page, changing, clock, number = 0]() mutable {
                return page.frame(++number, changing, clock);
            }};
}

/// Ends the program unless frames bring to the page's window what they bring to the other, and what a
/// paint of everything would.
template<typename Other>
void requireSamePictures(OwnPage &own, Other &other)
{
    for (int number = 0; number < 4; ++number) {
        own.frame(number);
        other.frame(number);
        if (windowpicture::present(own.window()) != windowpicture::present(other.window()))
            qFatal("frame %d is not painted as it must be", number);
    }
    if (windowpicture::present(own.window()) != windowpicture::repainted(own.window()))
        qFatal("the window does not show what a paint shows");
}

template<typename Reference>
Measurement comparePages(const Plan &plan, const char *reference, Clock clock)
{
    const OneProcessor here;
    OwnPage own(plan);
    Reference other(plan);
    requireSamePictures(own, other);
    const auto frame = [&other, number = 0]() mutable { return other.frame(++number); };
    return rounds::compare({frames("page", own, Changing::All, clock), {reference, frame}},
                           rounds::firstToSecond);
}

Measurement compareWithIdeal(const Plan &plan)
{
    return comparePages<IdealPage>(plan, "ideal page", threadSeconds);
}

Measurement compareWithAll(Changing changing)
{
    const OneProcessor here;
    OwnPage page(Plan{});
    OwnPage all(Plan{});
    return rounds::compare({frames("500 meters", page, changing), frames("all changing", all)},
                           rounds::firstToSecond);
}

/// The row whose name has the percentage in it: in a process of its own, if this one's screen is not
/// scaled so.
Measurement compareScaled(const QString &row, int percent, const Plan &plan)
{
    const QString scale = QString::number(percent / 100.0);
    if (!freshprocess::isScaled(scale)) {
        const QStringList rowAlone{MeasureOption, row.arg(percent)};
        return fromText(freshprocess::outputOf(rowAlone, {.scale = scale}).toStdString());
    }
    return comparePages<PageFloor>(plan, "its cells", processSeconds);
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
    return compareWithIdeal({.with = With::MetersAlone});
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
    return compareWithIdeal({.with = With::MetersAndDials});
}

Measurement controlsPageUnderX()
{
    const QStringList pageAlone{MeasureOption, QStringLiteral("page")};
    return fromText(
        freshprocess::outputOf(pageAlone, {.platform = QStringLiteral("xcb")}).toStdString());
}

Measurement controlsPageAt(int percent)
{
    return compareScaled(QStringLiteral("page-%1"), percent,
                         {.with = With::MetersAndDials, .gap = 1});
}

Measurement translucentPageAt(int percent)
{
    return compareScaled(QStringLiteral("page-%1-alpha"), percent,
                         {.with = With::MetersAndDials, .translucent = true, .gap = 1});
}

Measurement dialSiblings()
{
    const OneProcessor here;
    Plan plan{.with = With::DialsAlone, .panels = {5, 4}, .stripsInPanel = {10, 5}};
    OwnPage panels(plan);
    plan.oneParent = true;
    OwnPage alone(plan);
    requireSamePictures(alone, panels);
    return rounds::compare({frames("one parent", alone), frames("panels of 50", panels)},
                           rounds::firstToSecond);
}

Measurement bridgeAt150()
{
    constexpr int Rounds = 5;
    const auto shareAt = [](const QString &scale) {
        return freshprocess::outputOf({bridgeload::Option}, {.scale = scale}).toDouble();
    };
    std::vector<double> ratios;
    for (int round = 0; round < Rounds; ++round) {
        const double scaled = shareAt(QStringLiteral("1.5"));
        ratios.push_back(scaled / shareAt(QStringLiteral("1")));
    }
    return summary(std::move(ratios));
}

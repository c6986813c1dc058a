// SPDX-License-Identifier: MIT
// Measures the rows of the speed table and says which limits hold.
#include "bench/BridgeLoad.h"
#include "bench/Footprint.h"
#include "bench/LiveLoad.h"
#include "bench/Report.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <optional>

namespace {

enum ExitStatus { Held, NotHeld, BadUse };

/// Not a row, but chosen like one.
constexpr char LiveLoad[] = "live-load";

struct Options
{
    QString json;
    std::vector<const Row *> rows;
    bool liveLoad = true;
    bool details = false;
};

int usage()
{
    std::fputs("usage: ./bench.sh [--json FILE] [--details] [--only NAME...]\n"
               "  --json FILE     also writes names, ratios and limits there\n"
               "  --details       also prints quartiles and times\n"
               "  --only NAME...  measures these alone:\n",
               stderr);
    for (const Row &row : rows())
        std::fprintf(stderr, "    %-27s %s\n", row.name, row.what);
    std::fprintf(stderr, "    %-27s %s\n", LiveLoad, "what live meters take of the GUI thread");
    return BadUse;
}

/// Null when there is no such row.
const Row *rowNamed(const QString &name)
{
    const auto named = [&name](const Row &row) { return name == QLatin1String(row.name); };
    const auto found = std::find_if(rows().begin(), rows().end(), named);
    return found == rows().end() ? nullptr : &*found;
}

bool choose(const QString &name, Options &options)
{
    if (name == QLatin1String(LiveLoad)) {
        options.liveLoad = true;
        return true;
    }
    const Row *row = rowNamed(name);
    if (row)
        options.rows.push_back(row);
    return row;
}

/// False when the arguments are not understood.
bool parse(QStringList arguments, Options &options)
{
    for (const Row &row : rows())
        options.rows.push_back(&row);
    bool names = false;
    while (!arguments.isEmpty()) {
        const QString argument = arguments.takeFirst();
        if (argument == QLatin1String("--json") && !arguments.isEmpty()) {
            options.json = arguments.takeFirst();
        } else if (argument == QLatin1String("--details")) {
            options.details = true;
        } else if (argument == QLatin1String("--only") && !arguments.isEmpty()) {
            names = true;
            options.rows.clear();
            options.liveLoad = false;
        } else if (!names || !choose(argument, options)) {
            return false;
        }
    }
    return options.liveLoad || !options.rows.empty();
}

int measure(const Options &options)
{
    report::printSetting();
    report::printHead();
    std::vector<Result> results;
    for (const Row *row : options.rows) {
        results.push_back({row, row->measure()});
        report::print(results.back());
        if (options.details)
            report::printDetails(results.back());
    }
    if (options.liveLoad)
        report::printLiveLoad();
    if (!options.json.isEmpty() && !report::writeJson(options.json, results))
        return BadUse;
    const bool allHold = std::all_of(results.begin(), results.end(), std::mem_fn(&Result::holds));
    return allHold ? Held : NotHeld;
}

/// What this process was started for by another one of this program; nothing when it was not.
std::optional<std::string> answer(const QStringList &arguments)
{
    const QString option = arguments.value(0);
    if (option == footprint::Option)
        return std::to_string(footprint::weigh(arguments.value(1)));
    if (option == bridgeload::Option)
        return std::to_string(bridgeload::measure());
    if (option == liveload::Option)
        return toText(liveload::measure());
    const Row *row = option == MeasureOption ? rowNamed(arguments.value(1)) : nullptr;
    return row ? std::optional(toText(row->measure())) : std::nullopt;
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = application.arguments().mid(1);
    if (const auto text = answer(arguments)) {
        std::puts(text->c_str());
        return Held;
    }
    Options options;
    return parse(arguments, options) ? measure(options) : usage();
}

// SPDX-License-Identifier: MIT
// Measures the rows of the speed table and says which limits hold.
#include "bench/Footprint.h"
#include "bench/Report.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace {

enum ExitStatus { Held, NotHeld, BadUse };

struct Options
{
    QString json;
    std::vector<const Row *> chosen; ///< empty: all
    bool details = false;
};

int usage()
{
    std::fputs("usage: ./bench.sh [--json FILE] [--details] [--only NAME...]\n"
               "  --json FILE     also writes names, ratios and limits there\n"
               "  --details       also prints quartiles and times\n"
               "  --only NAME...  measures these rows only:\n",
               stderr);
    for (const Row &row : rows())
        std::fprintf(stderr, "    %-27s %s\n", row.name, row.what);
    return BadUse;
}

bool choose(const QString &name, Options &options)
{
    const auto named = [&name](const Row &row) { return name == QLatin1String(row.name); };
    const auto found = std::find_if(rows().begin(), rows().end(), named);
    if (found != rows().end())
        options.chosen.push_back(&*found);
    return found != rows().end();
}

/// False when the arguments are not understood.
bool parse(QStringList arguments, Options &options)
{
    bool names = false;
    while (!arguments.isEmpty()) {
        const QString argument = arguments.takeFirst();
        if (argument == QLatin1String("--json") && !arguments.isEmpty())
            options.json = arguments.takeFirst();
        else if (argument == QLatin1String("--details"))
            options.details = true;
        else if (argument == QLatin1String("--only") && !arguments.isEmpty())
            names = true;
        else if (!names || !choose(argument, options))
            return false;
    }
    return !names || !options.chosen.empty();
}

int measure(const Options &options)
{
    report::printSetting();
    report::printHead();
    std::vector<Result> results;
    for (const Row &row : rows()) {
        const auto &chosen = options.chosen;
        if (!chosen.empty() && std::find(chosen.begin(), chosen.end(), &row) == chosen.end())
            continue;
        results.push_back({&row, row.measure()});
        report::print(results.back());
        if (options.details)
            report::printDetails(results.back());
    }
    if (!options.json.isEmpty() && !report::writeJson(options.json, results))
        return BadUse;
    const bool allHold = std::all_of(results.begin(), results.end(), std::mem_fn(&Result::holds));
    return allHold ? Held : NotHeld;
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = application.arguments().mid(1);
    if (arguments.size() == 2 && arguments.at(0) == footprint::Option) {
        std::printf("%.3f\n", footprint::weigh(arguments.at(1)));
        return Held;
    }
    Options options;
    return parse(arguments, options) ? measure(options) : usage();
}

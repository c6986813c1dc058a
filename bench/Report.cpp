// SPDX-License-Identifier: MIT
#include "bench/Report.h"

#include "bench/LiveLoad.h"

#include <QDate>
#include <QFile>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>
#include <thread>

void report::printSetting()
{
    std::printf("%s, %u processors, %s, Qt %s, platform %s, %s build\n",
                qPrintable(QDate::currentDate().toString(Qt::ISODate)),
                std::thread::hardware_concurrency(), CONSOLEWIDGETS_COMPILER, qVersion(),
                qPrintable(QGuiApplication::platformName()), CONSOLEWIDGETS_BUILD_TYPE);
}

void report::printHead()
{
    std::printf("\n%-27s %8s %7s %6s\n", "name", "ratio", "limit", "aim");
}

void report::print(const Result &result)
{
    std::printf("%-27s %8.3f %7.2f %6.2f  %s\n", result.row->name, result.measured.ratio,
                result.row->limit, result.row->aim, result.holds() ? "held" : "NOT HELD");
    std::fflush(stdout);
}

void report::printDetails(const Result &result)
{
    std::printf("    %s\n    quartiles %.3f and %.3f\n", result.row->what,
                result.measured.lowerQuartile, result.measured.upperQuartile);
    for (const Measurement::Timing &each : result.measured.timings)
        std::printf("    %-28s %14.1f ns\n", each.name.c_str(), each.nanoseconds);
    std::fflush(stdout);
}

void report::printLiveLoad()
{
    std::printf(
        "\n500 live meters, 50 readings a second each: the GUI thread takes, of one core\n");
    for (const char *platform : {"offscreen", "xcb"}) {
        const liveload::Shares shares = liveload::measuredOn(QLatin1String(platform));
        std::printf("    %-9s %5.1f %% with programme, %5.1f %% when every bar jumps\n", platform,
                    100 * shares.programme, 100 * shares.jumps);
        std::fflush(stdout);
    }
}

bool report::writeJson(const QString &fileName, const std::vector<Result> &results)
{
    QJsonArray all;
    for (const Result &each : results)
        all.append(QJsonObject{{QStringLiteral("name"), QLatin1String(each.row->name)},
                               {QStringLiteral("ratio"), each.measured.ratio},
                               {QStringLiteral("limit"), each.row->limit}});
    QFile file(fileName);
    const bool written = file.open(QIODevice::WriteOnly)
                         && file.write(QJsonDocument(all).toJson()) > 0 && file.flush();
    if (!written)
        std::fprintf(stderr, "bench: %s: %s\n", qPrintable(fileName),
                     qPrintable(file.errorString()));
    return written;
}

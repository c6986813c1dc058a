// SPDX-License-Identifier: MIT
// What a control takes of the memory. Each figure comes from a fresh process, so that nothing that
// was there before is used again.
#include "bench/Footprint.h"
#include "bench/Rounds.h"
#include "bench/Rows.h"

#include <QCoreApplication>
#include <QProcess>

namespace {

/// What growth is measured against, in bytes.
constexpr double GrowthUnit = 200;

double inFreshProcess(const QString &kind)
{
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {footprint::Option, kind});
    bool isNumber = false;
    const double bytes = child.waitForFinished(-1) && child.exitCode() == 0
                             ? child.readAllStandardOutput().trimmed().toDouble(&isNumber)
                             : 0;
    if (!isNumber)
        qFatal("no footprint of \"%s\": %s", qPrintable(kind),
               child.readAllStandardError().constData());
    return bytes;
}

} // namespace

Measurement dialMemory()
{
    std::vector<double> ratios;
    for (int round = 0; round < rounds::Count; ++round) {
        const double dial = inFreshProcess(footprint::Dials);
        ratios.push_back(dial / inFreshProcess(footprint::Widgets));
    }
    return summary(std::move(ratios));
}

Measurement dialMemoryGrowth()
{
    std::vector<double> growths;
    for (int round = 0; round < rounds::Count; ++round)
        growths.push_back(inFreshProcess(footprint::Growth) / GrowthUnit);
    return summary(std::move(growths));
}

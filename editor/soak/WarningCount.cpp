// SPDX-License-Identifier: MIT
#include "editor/soak/WarningCount.h"

#include <QString>

#include <atomic>

namespace {

std::atomic<int> warnings{0};
QtMessageHandler nextHandler = nullptr;

/// A platform tells what it has not got: no controls are at fault.
bool isOfPlatform(const QString &text)
{
    return text.startsWith(QLatin1StringView("This plugin does not support"))
           || text.endsWith(QLatin1StringView("with no wl_seats available"));
}

void handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (isOfPlatform(text))
        return;
    if (type == QtWarningMsg || type == QtCriticalMsg)
        ++warnings;
    nextHandler(type, context, text);
}

} // namespace

WarningCount::WarningCount()
{
    warnings = 0;
    nextHandler = qInstallMessageHandler(handle);
}

WarningCount::~WarningCount()
{
    qInstallMessageHandler(nextHandler);
}

int WarningCount::count() const
{
    return warnings;
}

// SPDX-License-Identifier: MIT
#include "editor/soak/WarningCount.h"

#include <QString>

#include <atomic>

namespace {

std::atomic<int> warnings{0};
QtMessageHandler nextHandler = nullptr;

void handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (text.startsWith(QLatin1StringView("This plugin does not support")))
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

// SPDX-License-Identifier: MIT
#include "editor/soak/MemoryUse.h"

#include <QByteArray>
#include <QFile>
#include <QList>

#ifdef __GLIBC__
#    include <malloc.h>
#endif

namespace {

/// A line of the kernel's account of this process, which counts in kilobytes.
qint64 status(const QByteArray &name)
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(name + ':'))
            return line.simplified().split(' ').value(1).toLongLong() * 1024;
    }
    return 0;
}

} // namespace

MemoryUse MemoryUse::present()
{
    MemoryUse use;
#ifdef __GLIBC__
    malloc_trim(0);
    const struct mallinfo2 heap = mallinfo2();
    use.allocated = static_cast<qint64>(heap.uordblks + heap.hblkhd);
#endif
    use.resident = status("VmRSS");
    return use;
}

qint64 MemoryUse::peak()
{
    return status("VmHWM");
}

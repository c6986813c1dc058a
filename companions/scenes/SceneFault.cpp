// SPDX-License-Identifier: MIT
#include "companions/scenes/SceneFault.h"

#include <QSqlError>

namespace {

/// The database's result codes, without what further bits tell.
enum ResultCode {
    NotPermitted = 3,
    Busy = 5,
    Locked = 6,
    ReadOnly = 8,
    InputOutput = 10,
    Corrupt = 11,
    Full = 13,
    CannotOpen = 14,
    NotADatabase = 26,
};
constexpr int ResultCodeBits = 0xff;

struct Words
{
    int code;
    SceneFault::Kind kind;
    const char *text;
};

constexpr Words known[] = {
    {NotPermitted, SceneFault::CannotWrite, "The scene library %1 cannot be written."},
    {Busy, SceneFault::InUse, "The scene library %1 is in use by another program."},
    {Locked, SceneFault::InUse, "The scene library %1 is in use by another program."},
    {ReadOnly, SceneFault::CannotWrite, "The scene library %1 is read only."},
    {InputOutput, SceneFault::Other,
     "Reading or writing the scene library %1 failed: the disk is full or faulty."},
    {Corrupt, SceneFault::Other, "The scene library %1 is damaged."},
    {Full, SceneFault::Other, "There is no room left on the disk for the scene library %1."},
    {CannotOpen, SceneFault::CannotWrite, "The scene library %1 cannot be opened."},
    {NotADatabase, SceneFault::Other, "The file %1 is no scene library."},
};

} // namespace

SceneFault SceneFault::from(const QSqlError &error, const QString &fileName)
{
    const int code = error.nativeErrorCode().toInt() & ResultCodeBits;
    for (const Words &words : known) {
        if (words.code == code)
            return {QString::fromLatin1(words.text).arg(fileName), words.kind};
    }
    return {QStringLiteral("The scene library %1: %2").arg(fileName, error.databaseText()), Other};
}

// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// This program, started anew: for what must not find anything that was there before, or needs another
/// platform.
namespace freshprocess {

/// What it prints with these arguments, on `platform` (empty: the same as here). Ends the program,
/// with what the other one complained of, when that fails.
QByteArray outputOf(const QStringList &arguments, const QString &platform = {});

} // namespace freshprocess

// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// This program, started anew: for what must not find anything that was there before, or needs another
/// platform.
namespace freshprocess {

/// What is different there; empty: nothing.
struct Setting
{
    QString platform = {};
    QString scale = {}; ///< the device pixels to a device-independent one
};

/// What it prints with these arguments. Ends the program, with what the other one complained of, when
/// that fails.
QByteArray outputOf(const QStringList &arguments, const Setting &setting = {});

/// Whether this process was started with that scale. Ends the program if it was, and the screen is
/// scaled otherwise.
bool isScaled(const QString &scale);

} // namespace freshprocess

// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// What the editor's meter bridge takes while a console plays.
namespace bridgeload {

/// The command line option by which this program measures that alone.
inline const QString Option = QStringLiteral("--measure-bridge");

/// The share of one core, over some seconds, of this process without the console. Ends the program when
/// the window does not show the readings.
double measure();

} // namespace bridgeload

// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>

/// What live meters take of the GUI thread: 500 of them shown, each getting 50 readings a second from
/// another thread.
namespace liveload {

/// The command line option by which this program measures that alone.
inline const QString Option = QStringLiteral("--measure-live-load");

/// The share of one core that the GUI thread takes.
struct Shares
{
    double programme = 0; ///< the readings are those of music and speech
    double jumps = 0;     ///< every reading is another length of every bar
};

/// Measures in this process, for some seconds.
Shares measure();
/// Measures in a fresh process on that platform.
Shares measuredOn(const QString &platform);

/// Shares as text, for another process.
std::string toText(const Shares &shares);

} // namespace liveload

// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// What this process keeps in memory, in bytes; 0 where the system does not say.
namespace residentmemory {

/// Now, after freed memory has been given back.
qint64 present();
/// The most there has been.
qint64 peak();

} // namespace residentmemory

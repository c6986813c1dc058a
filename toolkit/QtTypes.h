// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

// Fixed-width names that appear in the signatures of slots. They are type definitions of their own
// so that moc records the signatures as they are written.
/// 8 bits.
typedef quint8 Q_UINT8;
/// 32 bits.
typedef quint32 Q_UINT32;

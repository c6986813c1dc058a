// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Weighs shown controls in this process, which should have done nothing else before: 5000 of them, in
/// panels of 50.
namespace footprint {

/// The command line option by which this program weighs instead of measuring.
inline const QString Option = QStringLiteral("--weigh");

/// What can be weighed.
inline const QString Widgets = QStringLiteral("widgets"); ///< plain widgets
inline const QString Dials = QStringLiteral("dials");     ///< bound dials with a strip
inline const QString Growth = QStringLiteral("growth");   ///< what changes add to shown dials

/// Resident bytes of one; ends the program for an unknown kind.
double weigh(const QString &kind);

} // namespace footprint

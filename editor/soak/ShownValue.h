// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

class QWidget;

/// What controls say of the value that they show. GUI thread.
namespace shownvalue {

/// A control that shows another value than the memory holds.
struct Difference
{
    int shown;
    int stored;
};

/// Compares the control's value with the memory's. Nothing where both agree, where the control has no
/// value of its own to compare, and while it is not attached.
std::optional<Difference> compare(QWidget &control);

/// The name in the form, and the address: "gain (01kInputHA/kGain)".
QString describe(QWidget &control);

} // namespace shownvalue

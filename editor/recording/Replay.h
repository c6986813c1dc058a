// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class ParameterMemory;
struct Recording;

/// Recorded traffic, done once more to a memory that an editor is bound to.
namespace replay {

/// Opens a window for each form and one with all, gives the memory the recorded values at the recorded
/// times, and looks all the while whether the controls show them; at the end, pixel by pixel. Prints what
/// it finds: the first differences with control and address. False when there are any, and when the
/// recording is of another console (`memory` has its model; the reason is printed).
bool run(ParameterMemory &memory, const Recording &recording, const QStringList &forms);

} // namespace replay

// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>

struct Specimen;

/// A specimen as an operator would see it: bound to the built-in console, with its value or reading, on
/// the editor's ground. GUI thread.
QPixmap pictureOf(const Specimen &specimen);

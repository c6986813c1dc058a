// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QString>

/// The pictures of all loaded forms, each file once. A page of five hundred knobs holds a handful of
/// strips of several megabytes each, more than Qt's pixmap cache keeps: there every knob would end up
/// with a copy of its own. GUI thread.
namespace picturestore {

/// The file that stands for `name` on the present screens: the one with twice the pixels where a
/// screen is scaled and there is one. Empty when neither can be read.
QString fileFor(const QString &name);

/// The picture in a file; null when it holds none.
QPixmap picture(const QString &file);

/// Lets go of the pictures that no widget shows any more.
void dropUnused();

} // namespace picturestore

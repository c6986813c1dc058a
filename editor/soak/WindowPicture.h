// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QRegion>

#include <map>

class QWidget;

/// What windows show, pixel by pixel. GUI thread.
namespace windowpicture {

/// Where a window is looked at.
enum class Where {
    Store, ///< what its backing store holds for the screen
    Screen ///< what the screen shows of it
};
/// The screen where one can be photographed.
Where best();

/// What is seen of the window there; null where nothing is. What waits to be painted is painted first.
QImage present(QWidget &window, Where where = Where::Store);

/// The same after everything in the window has been painted anew.
QImage repainted(QWidget &window, Where where = Where::Store);

/// All pixels that differ; everything where the pictures are not of one size and kind.
QRegion differing(const QImage &one, const QImage &other);

/// The same of two pictures of a window. At scales between whole numbers the pixels of its controls alone
/// count: beside them Qt's own painting of a part differs from that of the whole. Controls that begin left
/// of the window or above it do not count there: Qt rounds their edges the other way.
QRegion differing(QWidget &window, const QImage &one, const QImage &other);

/// The widgets in which they lie, each with a rectangle around its part of them.
std::map<QWidget *, QRect> widgetsAt(QWidget &window, const QRegion &pixels);

} // namespace windowpicture

// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

namespace artwork {

struct Artwork;

/// Device pixels per device-independent pixel of the two versions of every picture.
constexpr int densities[] = {1, 2};

/// The file in which `artwork` is stored for `density`, such as "knob-grey@2x.png".
QString fileName(const Artwork &artwork, int density);

/// `artwork` drawn for `density`; transparent where nothing is drawn.
QImage render(const Artwork &artwork, int density);

/// Draws and stores `artwork` in `folder`; false when the file cannot be written.
bool write(const Artwork &artwork, int density, const QString &folder);

} // namespace artwork

// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QString>

#include <functional>
#include <vector>

class QPainter;

namespace artwork {

/// One picture of the editor, independent of the density it is written in.
struct Artwork
{
    QString name;                          ///< file name without density and ending
    QSize size;                            ///< in device-independent pixels
    std::function<void(QPainter &)> paint; ///< draws it at the painter's origin
};

/// Every picture that the editor shows.
std::vector<Artwork> catalogue();

} // namespace artwork

// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/TestedExport.h"

#include <QImage>
#include <QVarLengthArray>

class QPaintDevice;
class QPixmap;

/// The pixels of a window's backing store between beginPaint() and endPaint(). Pictures that hide what
/// is below them are copied there line by line: setting up a painter takes longer than that. GUI
/// thread.
class CONSOLEWIDGETS_TESTED StorePixels
{
public:
    /// `device` is what the store is painted on.
    explicit StorePixels(QPaintDevice &device);

    /// Copies are placed from here; in the window, device-independent.
    void setOrigin(const QPoint &origin) { m_origin = origin; }

    /// Copies `part` of a picture, in its pixels, to the place `at`, device-independent. False, and
    /// nothing is copied, where a painter would do anything else: the picture has an alpha channel,
    /// another device pixel ratio or another format, a pixel would fall between those of the store or
    /// beside it.
    bool copy(const QPoint &at, const QPixmap &picture, const QRect &part);

    /// Copies a cell of a picture that is a grid of cells to the origin, as drawPartialPixmap() draws
    /// it; false as with copy().
    bool copyCell(const QPoint &cell, const QPixmap &picture, const QSize &grid);

private:
    /// The pixels of a picture that was copied from.
    struct Source
    {
        qint64 key;
        QImage image; ///< shares them
        const uchar *bits;
    };
    static constexpr qsizetype MostSources = 8;

    const Source &source(const QPixmap &picture);

    uchar *m_bits = nullptr; ///< null: nothing can be copied
    qsizetype m_bytesPerLine = 0;
    int m_width = 0;
    int m_height = 0;
    int m_ratio = 1; ///< pixels per device-independent one
    QPoint m_origin;
    QVarLengthArray<Source, MostSources> m_sources;
};

// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/TestedExport.h"

#include <QImage>
#include <QPainter>
#include <QVarLengthArray>

#include <optional>

class Picture;
class QPaintDevice;

/// The pixels of a window's backing store between beginPaint() and endPaint(), for pictures to be drawn
/// into. What hides all that is below it is copied line by line, which takes less time than setting up
/// a painter; one painter serves all the rest. GUI thread.
class CONSOLEWIDGETS_TESTED StorePixels
{
public:
    /// `device` is what the store is painted on.
    explicit StorePixels(QPaintDevice &device);

    /// Draws a control's picture, the control's corner being at `corner` in the window,
    /// device-independent. First comes `ground`, if there is one, of exactly the control's pixels.
    /// Draws the pixels of the control and no others.
    void draw(const Picture &picture, const QPoint &corner, const QImage *ground = nullptr);

private:
    /// The pixels of a picture that was copied from.
    struct Source
    {
        qint64 key;
        QImage image; ///< shares them
    };
    static constexpr qsizetype MostSources = 8;

    const QImage &source(const QPixmap &picture);
    // To `target` in the store; of the image it is what begins at `from`.
    void blit(const QRect &target, const QImage &image, const QPoint &from);
    void drawGround(const QRect &target, const QImage &ground, const QPoint &from);
    void copyLines(QRect target, const QImage &image, QPoint from);
    QPainter &painter();

    uchar *m_bits = nullptr;
    qsizetype m_bytesPerLine = 0;
    QImage m_image; ///< the same pixels, without a ratio
    qreal m_ratio = 1;
    bool m_takesLines = false; ///< an opaque pixel is the bytes that it is in RGB32
    QVarLengthArray<Source, MostSources> m_sources;
    std::optional<QPainter> m_painter;
};

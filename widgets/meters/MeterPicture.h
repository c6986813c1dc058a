// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/TestedExport.h"

#include <QRect>
#include <QVarLengthArray>

class MeterScale;

/// What of a meter is lit, as stretches along it: from its top or its left end, `to` not included.
struct MeterBands
{
    struct Stretch
    {
        int from = 0;
        int to = 0;

        bool isEmpty() const { return from >= to; }
        friend bool operator==(const Stretch &, const Stretch &) = default;
    };

    Stretch bar;
    Stretch mark; ///< of the held peak

    friend bool operator==(const MeterBands &, const MeterBands &) = default;
};

/// How a meter is lit at a row of its scale: arithmetic without a widget.
class CONSOLEWIDGETS_TESTED MeterPicture
{
public:
    enum class Kind {
        Level,     ///< a bar that grows with the level
        Reduction, ///< a bar that grows from the other end as the level falls
        Lamp,      ///< lit as a whole, or not
    };

    /// A part of the widget, drawn from the lit or from the unlit picture at the same place.
    struct Blit
    {
        QRect part;
        bool lit;
    };
    using Blits = QVarLengthArray<Blit, 4>;

    /// The scale outlives this. `height` is that of the widget, which lies or stands.
    void setScale(const MeterScale &scale, int height);
    void setKind(Kind kind) { m_kind = kind; }
    void setVertical(bool vertical) { m_vertical = vertical; }
    bool isVertical() const { return m_vertical; }

    /// The stretches that are lit at a row, with the mark of a held peak (below 0: none).
    MeterBands bands(const QSize &size, int index, int peak) const;

    /// A widget's pixels, each once; four parts at most.
    Blits blits(const QSize &size, const MeterBands &bands) const;
    /// The rectangle of a stretch.
    QRect part(const QSize &size, const MeterBands::Stretch &stretch) const;

private:
    int available(const QSize &size) const { return m_vertical ? size.height() : size.width(); }
    int scaled(int pixels, int available) const;
    MeterBands::Stretch barOf(int bar, int available) const;
    MeterBands::Stretch markOf(int bar, int peak, int available) const;

    const MeterScale *m_scale = nullptr;
    double m_factor = 1;
    Kind m_kind = Kind::Level;
    bool m_scaling = false;
    bool m_vertical = true;
};

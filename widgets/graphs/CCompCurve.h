// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/QtTypes.h"
#include "widgets/binding/BoundParameter.h"
#include "widgets/Export.h"

#include <QPixmap>
#include <QWidget>

#include <memory>

/// The static transfer curve of a compressor, expander or compander: output level over input level,
/// from -72 to +18 dB each way, spread over the widget; 91 pixels a side, or 90 more for every pixel
/// per decibel, suit it best.
///
/// Its address is the threshold of a dynamics block; it follows type, ratio, gain and knee of the same
/// block as well. It shows and never writes: the value signals tell the threshold. GUI thread, except
/// process().
class CONSOLEWIDGETS_EXPORT CCompCurve : public QWidget, public TMemProxy
{
    Q_OBJECT
    BOUND_PARAMETER
    /// What is behind the curve, in the upper left corner: the texture of the background in its
    /// palette. Without one (default) it is the background colour.
    Q_PROPERTY(QPixmap paletteBackgroundPixmap READ paletteBackgroundPixmap WRITE
                   setPaletteBackgroundPixmap)

public:
    explicit CCompCurve(QWidget *parent = nullptr, const char *name = nullptr);
    ~CCompCurve() override;

    QPixmap paletteBackgroundPixmap() const;

    /// Background and curve, at the painter's origin.
    void repaintScreenPrimitive(QPainter &painter);
    /// The picture has changed: it is rendered anew when next asked for. The argument is not used.
    void updateErasePixmap(QPixmap *pixmap);
    /// The present picture.
    QPixmap erasePixmap();

    /// Type, threshold, ratio, knee and gain as their display texts; empty while not bound.
    QString shownText() const;

    void connectMemAPI() override;
    void disconnectMemAPI() override;

    /// The size of the background's texture, else 40 x 30.
    QSize sizeHint() const override;

public Q_SLOTS:
    void process(const Q_UINT8 *data, int operation, Q_UINT32 extra) override;
    void setPaletteBackgroundPixmap(const QPixmap &picture);

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void tell();

    struct Private;
    std::unique_ptr<Private> d;
};

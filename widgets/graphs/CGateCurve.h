// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/QtTypes.h"
#include "widgets/binding/BoundParameter.h"
#include "widgets/Export.h"

#include <QPixmap>
#include <QWidget>

#include <memory>

/// The static transfer curve of a gate or of ducking: output level over input level, one pixel per
/// decibel from -72 dB in the lower left corner. 91 x 91 pixels show all of it.
///
/// Its address is the threshold of a dynamics block; it follows type and range of the same block as
/// well. It shows and never writes: the value signals tell the threshold. GUI thread, except process().
class CONSOLEWIDGETS_EXPORT CGateCurve : public QWidget, public TMemProxy
{
    Q_OBJECT
    BOUND_PARAMETER
    /// What is behind the curve, in the upper left corner; without a picture (default) it is a dark
    /// ground.
    Q_PROPERTY(QPixmap pixmap READ pixmap WRITE setPixmap)

public:
    explicit CGateCurve(QWidget *parent = nullptr, const char *name = nullptr);
    ~CGateCurve() override;

    QPixmap pixmap() const;

    /// Background and curve, at the painter's origin.
    void repaintScreenPrimitive(QPainter &painter);
    /// The picture has changed: it is rendered anew when next asked for. The argument is not used.
    void updateErasePixmap(QPixmap *pixmap);
    /// The present picture.
    QPixmap erasePixmap();

    /// Type, threshold and range as their display texts; empty while not bound.
    QString shownText() const;

    void connectMemAPI() override;
    void disconnectMemAPI() override;

    /// The size of the picture, else 40 x 30.
    QSize sizeHint() const override;

public Q_SLOTS:
    void process(const Q_UINT8 *data, int operation, Q_UINT32 extra) override;
    void setPixmap(const QPixmap &picture);

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void pictureChanged();
    void tell();

    struct Private;
    std::unique_ptr<Private> d;
};

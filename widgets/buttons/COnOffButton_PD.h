// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/binding/TCacheServer.h"
#include "widgets/buttons/COnOffButton.h"

#include <QPixmap>
#include <QPointF>

/// What a key looks like and how it answers: keys of one name inside one cache server share it, so
/// that a page of equal keys holds their pictures once.
class COnOffButton::COnOffButton_PD : public TCachedData
{
public:
    /// The press that a key with auto-repeat is held by.
    struct RememberedPress
    {
        const COnOffButton *by = nullptr;
        QPointF position;
        Qt::KeyboardModifiers modifiers;
    };

    TOnOffStateTrigger onTrigger = buttonRelease;
    TOnOffStateTrigger offTrigger = buttonRelease;
    int boolClipValue = 0;

    QPixmap combinedImage;
    QPixmap onImage;
    QPixmap offImage;
    QPixmap trackingImage;
    QPixmap disabledImage;
    bool hasDisabledCell = false; ///< `disabledImage` was cut from the strip

    bool invertedLogic : 1 = false;
    bool disableAutoHide : 1 = false;
    bool hasDisableImage : 1 = false;
    bool useTrackingImage : 1 = true;
    bool imagesSwapped : 1 = false;
    bool hasOffState : 1 = false;

    quint8 subImages = 0;
    quint8 categories = 1;
    RememberedPress remembered;

    /// What the parameter holds when the key is on.
    int onValue() const { return boolClipValue == 0 ? 1 : boolClipValue - 1; }

    const QPixmap &stateImage(bool on) const { return on != imagesSwapped ? onImage : offImage; }
    /// The same in grey.
    QPixmap greyImage(bool on);

    /// Whether the pictures of an enabled key leave nothing of its background to be seen.
    bool isOpaque() const;

    /// Whether there is something to cut.
    bool canCut() const { return subImages > 0 && categories > 0 && !combinedImage.isNull(); }
    /// The size of one cell, in device-independent pixels.
    QSize cellSize() const;
    /// Cuts the four images, `size` large, from a column of the strip; what is not cut shows `plain`.
    void cut(int category, const QSize &size, const QPixmap &plain);

private:
    QPixmap cutRow(int category, int row, const QPixmap &start) const;

    qint64 m_greyOf[2] = {0, 0}; ///< cache keys of the images that the grey ones were made from
    QPixmap m_grey[2];
};

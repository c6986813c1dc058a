// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/binding/PendingEmissions.h"
#include "widgets/controls/CDial.h"
#include "widgets/controls/CDialTip.h"
#include "widgets/controls/DialGeometry.h"
#include "widgets/painting/BatchedPicture.h"
#include "widgets/painting/ErasePixmap.h"
#include "widgets/painting/ImageStrip.h"

#include <QColor>
#include <QPointer>

struct CDial::Private : BatchedPicture
{
    explicit Private(CDial &owner) : BatchedPicture(owner, typeid(CDial)), dial(owner) {}

    void describe(Picture &picture) const override;
    bool isAll() const override { return !dial.hasFocus(); }
    void drawn() override { dial.shareErasePixmap(); }

    CDial &dial;

    static Private &of(CDial &dial) { return *dial.d; }

    /// The picture as a whole is told by one number: row, and whether it is the disabled one.
    static constexpr int NoPicture = -1;
    int shownPicture = NoPicture;

    int savedIndex = -1;
    int alternativeIndex = -1;
    std::unique_ptr<TranslationTable> translation;
    PendingEmissions pending;

    ImageStrip strip;
    ErasePixmap erase;
    int sharedRow = -1;
    QColor focusColor;
    QPointer<CDialTip> tip;

    std::unique_ptr<DialGeometry> ownGeometry; ///< of dials that were turned with the mouse
    QPoint lastPoint;

    bool alternativeMode : 1 = false;
    bool alternativeModeChanged : 1 = false;
    bool fxValueTransform : 1 = false;
    bool dragging : 1 = false; ///< armed by the press, no move yet
    bool pressed : 1 = false;  ///< the value follows the pointer
    bool inverted : 1 = false;
    bool transparent : 1 = false;

    DialGeometry &geometry()
    {
        if (!ownGeometry)
            ownGeometry = std::make_unique<DialGeometry>();
        return *ownGeometry;
    }
    int toPosition(int value) const { return translated(value, 0); }
    int fromPosition(int position) const { return translated(position, TranslationOffset); }

private:
    int translated(int value, int offset) const
    {
        const bool inTable = translation && value >= 0 && value < TranslationOffset;
        return translateValue(value, inTable ? translation->data() : nullptr, offset);
    }
};

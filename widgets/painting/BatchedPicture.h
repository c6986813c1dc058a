// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/painting/Ground.h"
#include "widgets/TestedExport.h"

#include <typeinfo>

class Picture;
class QPaintEvent;
class QPainter;
class QRegion;
class QWidget;
class StorePixels;

/// A control's picture: what it is, and when it is drawn. New pictures of all controls that changed in
/// the same turn of the event loop are drawn together, straight into the window's backing store with
/// one flush for all (PaintBatch), which takes a fraction of a paint event each. Where that is not
/// possible (the control has the focus, is covered or clipped, has an effect or a mask, is in a window
/// of another kind) the control gets its paint event as usual, and it always does when the window system
/// or a layout asks for one.
///
/// It follows that event filters and overrides of paintEvent() do not see all pictures. A subclass is
/// drawn with paint events until it says that its picture is still that of its base class
/// (drawsLike()); picturebatches::setEnabled(false) brings paint events back for all controls. GUI
/// thread.
class CONSOLEWIDGETS_TESTED BatchedPicture
{
public:
    /// The picture of `widget`, whose part this is, and whose class is exactly `drawn`.
    BatchedPicture(QWidget &widget, const std::type_info &drawn) : m_widget(widget), m_drawn(&drawn)
    {
    }
    Q_DISABLE_COPY_MOVE(BatchedPicture)

    /// The picture has changed: it is drawn before the event loop waits again.
    void changed();
    /// The same where only `part` of the picture has changed, in case that is to be painted.
    void changed(const QRegion &part);

    /// The picture hides all that is behind the control, or not (at first).
    void setOpaque(bool opaque);
    bool isOpaque() const { return m_opaque; }

    /// Draws the picture in the control's paint event, first thing.
    void paint(QPainter &painter, const QPaintEvent &event);
    /// Draws it at the painter's origin.
    void draw(QPainter &painter) const;

    /// Objects of exactly that class are drawn the same way.
    void drawsLike(const std::type_info &drawn) { m_drawn = &drawn; }

protected:
    virtual ~BatchedPicture();

    /// Adds to `picture`, which has the control's size and is empty, what the control looks like now.
    virtual void describe(Picture &picture) const = 0;
    /// Whether that is all there is to be seen of it, without a focus ring for instance.
    virtual bool isAll() const { return true; }
    /// The picture was drawn.
    virtual void drawn() {}

private:
    friend class PaintBatch;

    bool isPossible() const;
    bool joinBatch();
    void followScreen(const QImage *store);
    void drawInto(StorePixels &pixels, const QPoint &corner);

    QWidget &m_widget;
    const std::type_info *m_drawn;
    Ground m_ground;
    int m_turn = -1; ///< place among those that wait
    bool m_opaque = false;
};

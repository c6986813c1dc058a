// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/binding/ClearPlace.h"
#include "widgets/binding/Ground.h"
#include "widgets/Export.h"

#include <typeinfo>

class QPaintEvent;
class QPainter;
class QWidget;
class StorePixels;

/// A control's picture, drawn together with all others that changed in the same turn of the event loop:
/// straight into the window's backing store, one painter and one flush for all. That takes a fraction
/// of a paint event each. Where it is not possible (the control has the focus, is covered or clipped,
/// has an effect or a mask, is in a window of another kind) the control gets its
/// paint event as usual, and it always does when the window system or a layout asks for one.
///
/// It follows that event filters and overrides of paintEvent() do not see all pictures. A subclass is
/// drawn with paint events until it says that its picture is still that of its base class
/// (drawsLike()); setEnabled(false) brings paint events back for all controls. GUI thread.
class CONSOLEWIDGETS_EXPORT BatchedPicture
{
public:
    /// How the controls of a class are drawn.
    struct Manner
    {
        /// Whether the control's present picture can be drawn so.
        bool (*isPossible)(const QWidget &);
        /// Copies what `draw` would draw, if that is only cells that hide what is below; false if it
        /// has to be drawn. What the window holds of the control already may be left out.
        bool (*copy)(QWidget &, StorePixels &);
        /// Draws the control at the painter's origin: every pixel of its rectangle (a translucent one:
        /// over what is behind it) and none beyond. Leaves the painter as it was.
        void (*draw)(QWidget &, QPainter &);
    };

    /// The picture of `widget`, whose owner this is, and whose class is exactly `drawn`. `manner` is
    /// the class's, and static.
    BatchedPicture(QWidget &widget, const std::type_info &drawn, const Manner &manner)
        : m_widget(widget), m_manner(manner), m_drawn(&drawn)
    {
    }
    ~BatchedPicture();
    Q_DISABLE_COPY_MOVE(BatchedPicture)

    /// The picture has changed: it is drawn before the event loop waits again.
    void changed();

    /// What a paint event changes.
    enum class Painted {
        All,       ///< all that the window holds of the control for the screen
        Part,      ///< of that
        Elsewhere, ///< another picture, such as one of grab()
    };
    /// First thing in a paint event: keeps what is behind the control, if it is translucent.
    Painted paintBegins(const QPainter &painter, const QPaintEvent &event);

    /// Objects of exactly that class are drawn the same way.
    void drawsLike(const std::type_info &drawn) { m_drawn = &drawn; }

    /// Whether pictures are drawn in batches at all; true at first.
    static void setEnabled(bool enabled);
    static bool isEnabled();

private:
    friend class PaintBatch;

    bool isPossible();
    bool copy(StorePixels &pixels) const;
    void draw(QPainter &painter) const;

    QWidget &m_widget;
    const Manner &m_manner;
    const std::type_info *m_drawn;
    ClearPlace m_place;
    Ground m_ground;
    int m_turn = -1; ///< place among those that wait
};

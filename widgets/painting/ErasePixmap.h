// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

#include <QPixmap>
#include <QString>

#include <functional>
#include <optional>

class QWidget;

/// A control's whole picture as a pixmap of its own size: made when somebody asks, kept until the
/// picture changes. Ten changes between two looks cost one rendering. GUI thread.
class CONSOLEWIDGETS_EXPORT ErasePixmap
{
public:
    /// Draws the control onto its background.
    using Paint = std::function<void(QPainter &)>;

    /// The picture has changed.
    void invalidate()
    {
        m_pixmap.reset();
        m_adopted = false;
    }
    /// The picture is `pixmap`, whatever its size, until it changes.
    void adopt(const QPixmap &pixmap)
    {
        m_pixmap = pixmap;
        m_adopted = true;
    }
    /// The one for null, the other for a pixmap.
    void replace(const QPixmap *pixmap) { pixmap ? adopt(*pixmap) : invalidate(); }

    /// The picture, rendered if it is stale. With a `key` it is taken from Qt's pixmap cache, or
    /// rendered and put there.
    const QPixmap &pixmap(const QWidget &widget, const QString &key, const Paint &paint);

    /// The picture of a control that shares it with none, drawn by its repaintScreenPrimitive().
    template<class Control>
    const QPixmap &pixmap(Control &control)
    {
        return pixmap(control, QString(),
                      [&control](QPainter &painter) { control.repaintScreenPrimitive(painter); });
    }

    /// Makes sure that the cache holds the picture under `key`, for the controls that share it.
    static QPixmap shared(const QWidget &widget, const QString &key, const Paint &paint);

    /// A new pixmap of the widget's size that starts from the widget's background.
    static QPixmap render(const QWidget &widget, const Paint &paint);

private:
    std::optional<QPixmap> m_pixmap; ///< nothing while it is stale
    bool m_adopted = false;
};

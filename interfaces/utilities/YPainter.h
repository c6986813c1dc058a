// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/Export.h"

#include <QPainter>

class QWidget;

namespace NS_Utilities {

/// A painter on a widget, inside its paint event, that starts from the widget's font, text colour and
/// background colour.
class CONSOLECOMPANIONS_EXPORT YPainter : public QPainter
{
public:
    /// `widget` is in its paint event.
    explicit YPainter(QWidget *widget);

    /// Fills the whole widget with a solid colour, replacing what is there.
    void fill(const QColor &colour);

private:
    QWidget *m_widget;
};

} // namespace NS_Utilities

// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/painting/DevicePixels.h"

#include <QEvent>
#include <QWidget>

/// Tells the toolkit whether a control hides all that is behind it. GUI thread.
namespace opacity {

/// The toolkit leaves out what an opaque control hides. Between pixels it gets that wrong (neither the
/// control nor what is below it is painted on a pixel that both have a part of), so there nothing is
/// said to be opaque.
inline void set(QWidget &control, bool hidesAll, qreal ratio)
{
    control.setAttribute(Qt::WA_OpaquePaintEvent, hidesAll && isWholeRatio(ratio));
}
inline void set(QWidget &control, bool hidesAll)
{
    set(control, hidesAll, control.devicePixelRatio());
}

/// After these it has to be said again: a style takes it back from dials and push buttons when it
/// polishes them, and another screen may have another ratio.
inline bool mustBeToldAfter(const QEvent &event)
{
    return event.type() == QEvent::Polish || event.type() == QEvent::StyleChange
           || event.type() == QEvent::ScreenChangeInternal;
}

} // namespace opacity

// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/QtTypes.h"

#include <QEvent>
#include <QPixmap>
#include <QString>

class QWidget;
class TMemProxy;

/// The steps that meters share beside those of all bound controls. GUI thread, unless it says
/// `Any thread.`
namespace metering {

/// The 14-bit code in the two 7-bit bytes of a reading. Any thread.
inline unsigned short levelCode(const Q_UINT8 *bytes)
{
    return static_cast<unsigned short>(bytes[0] * 128 | bytes[1]);
}

/// Starts or ends the delivery of readings to the proxy and of the memory's `signal` to the proxy's
/// own `slot`.
template<class Meter>
void watch(Meter &meter, bool on, const char *signal, const char *slot)
{
    meter.memAPI()->setMeterWatch(on, &meter, meter.group, meter.index, meter.element);
    meter.memAPI()->connectApiSignal(on, signal, &meter, slot);
}

/// What a meter does about an event that its base class has handled: it is polished, or what is
/// derived from its size and palette is made anew.
template<class Meter>
void followLook(Meter &meter, const QEvent &event, void (Meter::*polish)(),
                void (Meter::*refreshPicture)())
{
    switch (event.type()) {
    case QEvent::Polish: (meter.*polish)(); break;
    case QEvent::Resize:
    case QEvent::StyleChange:
    case QEvent::ParentChange:
    case QEvent::PaletteChange: (meter.*refreshPicture)(); break;
    default: break;
    }
}

/// A level code as the display text of the meter's parameter; empty while it is not attached.
QString levelText(const TMemProxy &proxy, int code);

/// Whether a picture of that size (device-independent) hides a widget wholly.
bool hides(const QPixmap &picture, const QSizeF &size, const QWidget &widget);

} // namespace metering

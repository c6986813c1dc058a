// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/TMemProxy.h"

#include <QList>
#include <QString>
#include <QWidget>

class ParameterMemory;

/// What the editor asks of any widget that may be a bound control. A control under destruction no longer
/// is one, though it still sends events: it has no proxy, name or text.
namespace boundcontrols {

/// The proxy that a widget is; null when it is no bound control.
inline TMemProxy *proxyOf(QWidget *widget)
{
    return dynamic_cast<TMemProxy *>(widget);
}

/// The bound controls below a widget that can be worked, in the order of the form: no meters.
QList<QWidget *> inside(QWidget *root);

/// What a control is for: its accessible name, else its parameter's name for people.
QString nameOf(QWidget *control, const ParameterMemory &memory);

/// The display text of a control's value; empty while it is not attached.
QString valueTextOf(QWidget *control);

} // namespace boundcontrols

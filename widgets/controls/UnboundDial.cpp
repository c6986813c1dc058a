// SPDX-License-Identifier: MIT
#include "widgets/controls/UnboundDial.h"

#include <QSignalBlocker>

UnboundDial::UnboundDial(QWidget *parent, int minimum, int maximum) : QDial(parent)
{
    const QSignalBlocker nobodyLooks(
        this); // at the class of the sender, which a debugger's spy would
    setRange(minimum, maximum);
    setValue(minimum);
}

const QMetaObject *UnboundDial::metaObject() const
{
    return nullptr;
}

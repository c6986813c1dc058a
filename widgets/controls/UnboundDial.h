// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

#include <QDial>

/// The stock dial with the range and the value that a dial has before its parameter gives it others.
/// The base of CDial, and of use to nothing else. GUI thread.
class CONSOLEWIDGETS_EXPORT UnboundDial : public QDial
{
public:
    /// Null, while this part of a dial is all that there is. A slider asks for its accessible object
    /// whenever its value changes, and making one takes a third of the time that a dial takes; for an
    /// object of no class none can be made. The first change that anybody can see makes it.
    const QMetaObject *metaObject() const override;

protected:
    /// From `minimum` to `maximum`, and at `minimum`. No signal tells of it.
    UnboundDial(QWidget *parent, int minimum, int maximum);
};

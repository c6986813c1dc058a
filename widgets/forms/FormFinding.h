// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

#include <QList>
#include <QString>

/// One thing that is wrong with a form, and where.
struct CONSOLEWIDGETS_EXPORT FormFinding
{
    /// What is wrong.
    enum Kind {
        Unreadable,    ///< no file, no XML, or no form in it: nothing else is known of it
        Class,         ///< a class that there is not
        Property,      ///< a property that the class does not have, or does not take this value for
        Picture,       ///< missing, or of a size that does not suit
        Rows,          ///< as many pictures, items or lamps as do not suit the parameter
        List,          ///< a list with an item that is passed over
        Address,       ///< an address that leads nowhere
        Name,          ///< an object name that is taken
        Accessibility, ///< a control without a name for people
        Connection,    ///< a signal and slot, or a tab stop, that does not fit
        Contents,      ///< a form inside this one that cannot be placed
    };

    Kind kind = Contents; ///< the kind of fault
    QString file;         ///< as it was named
    int line = 0;         ///< counted from 1; 0: not known
    QString widget;       ///< its object name; empty: the form itself
    QString property;     ///< empty: the widget itself
    QString reason;       ///< a sentence for people
    QString nearest;      ///< for an address: the one that may have been meant

    /// The kind in one lower-case word.
    QString kindName() const;
    /// "widget 'gain', property 'nSubImages': reason", as much of it as there is.
    QString text() const;
    /// The same behind "file:line: ".
    QString located() const;

    friend bool operator==(const FormFinding &, const FormFinding &) = default;
};

/// What checkForm() tells.
using FormFindings = QList<FormFinding>;

// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/Export.h"
#include "interfaces/IMemAPI.h"

#include <QString>

/// What the parameters of a console are called. A memory that knows its names answers these
/// questions without binding anything: tools ask them that look at forms. Any thread.
class CONSOLEINTERFACES_EXPORT IParameterNames
{
public:
    /// What became of looking for a name.
    enum Outcome {
        Found,
        NoSuchElement, ///< the name is known, but its parameter has no such element or channel
        UnknownName,
    };

    virtual ~IParameterNames() = default;

    /// Looks for the parameter that a named address ("[UU]block/parameter", or a list of them) means;
    /// `element` counts where the name does not tell one. Fills `address` when it is found.
    virtual Outcome lookUp(const QString &name, int element,
                           IMemAPI::TSingleBaseAddress &address) const = 0;

    /// The known name ("block/parameter") that is most like `name`; empty when none is.
    virtual QString nearestName(const QString &name) const = 0;
};

// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/Export.h"

class QWidget;

/// What a control tells the editor around it. A control looks for its nearest ancestor widget that
/// implements this interface. GUI thread.
class CONSOLEINTERFACES_EXPORT IEditorExtensions
{
public:
    virtual ~IEditorExtensions() = default;

    /// The operator stepped `control` (a TMemProxy) with the wheel: an edit without a press, of
    /// which the editor would not hear otherwise.
    virtual void controlStepped(QWidget *control) = 0;
};

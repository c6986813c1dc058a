// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/controls/CDial.h"

/// The gain dial of an input's head amp: it is there only while the channel has a head amp, and
/// reappears when the input is patched to one again. GUI thread, except process().
class CONSOLEWIDGETS_EXPORT CHADial : public CDial
{
    Q_OBJECT

public:
    explicit CHADial(QWidget *parent = nullptr, const char *name = nullptr);
    ~CHADial() override;

    void connectMemAPI() override;

public Q_SLOTS:
    /// The patch, or the head amp's presence, has changed; the argument is not used.
    void handle_patchInChange(int value);

Q_SIGNALS:
    /// Whether the channel has a head amp, told with every change of the patch.
    void changePatchIn(bool connected);
};

// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/buttons/COnOffButton.h"

/// The select key of a channel strip. All select keys of a console are bound to the one parameter that
/// holds the number of the selected channel; each is on while that is its own number, and a click
/// makes it so. Clicking the key that is on changes nothing: only another channel's selection turns it
/// off. A key blinks while its channel is linked to the selected one: as the other half of a stereo
/// pair, or as a member of the same channel group.
///
/// The key's number is its element plus its element offset plus selBaseOffset. GUI thread, except
/// process().
class CONSOLEWIDGETS_EXPORT CSelectButton : public COnOffButton
{
    Q_OBJECT
    /// The number of the first channel of this key's kind (mixes count on from the inputs, and so on);
    /// takes effect at the next binding. Default 0.
    Q_PROPERTY(unsigned int selBaseOffset READ selBaseOffset WRITE setselBaseOffset)

public:
    explicit CSelectButton(QWidget *parent = nullptr, const char *name = nullptr);
    ~CSelectButton() override;

    unsigned int selBaseOffset() const;
    /// The key's own channel, counted from 0; 32767 before the first binding.
    int channelNumber() const;

    bool blinkingMode() const override;
    void connectMemAPI() override;
    void disconnectMemAPI() override;

public Q_SLOTS:
    void setselBaseOffset(unsigned int offset);
    void process(const Q_UINT8 *data, int operation, Q_UINT32 extra) override;
    void handleStateChanged(int state) override;
    /// This channel was paired (not 0) or its pair was separated.
    void pairModeChanged(int value);
    /// The group of this channel, or of the selected one, has changed; the argument is not used.
    void chGroupChanged(int value);
    void selGroupChanged(int value);
    /// Starts or ends blinking, as the links to the selected channel want it.
    void checkBlinkState();
    /// One step of the blink clock: shows the present phase at once.
    void doBlink();
    /// Ends the blinking; the key shows its state.
    void stopBlinking();

private:
    void takeChannelNumber();
    void makeNotifiers();
    CSimpleNotifier *notifier(const QString &names, const char *slot);
    bool isLinkedTo(int selected) const;

    struct Private;
    std::unique_ptr<Private> d;
};

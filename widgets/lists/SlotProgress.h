// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

class QProgressBar;

/// The modal progress dialog of a list's command. It comes up once the command has taken a moment, and
/// from then on lets events run at every step, so that it can be stopped: it may be destroyed
/// meanwhile. GUI thread.
class SlotProgress : public QProgressDialog
{
    Q_OBJECT

public:
    explicit SlotProgress(int total);

    /// Shows how far the command is, and runs events if the dialog is up. Static, as the dialog may
    /// be destroyed by them.
    static void advance(SlotProgress *dialog, int done);
    /// The command asks questions: they show how far it is. Takes the label away and does not come up
    /// over them.
    void giveWay();
    bool givesWay() const { return m_givesWay; }
    /// The command is done: all of the bar.
    void complete();

    void setVisible(bool visible) override;

private:
    void comeUp();

    QProgressBar *m_bar;
    QElapsedTimer m_sinceStart;
    QElapsedTimer m_sinceEvents;
    bool m_mayComeUp = false;
    bool m_givesWay = false;
};

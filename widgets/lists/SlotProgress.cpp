// SPDX-License-Identifier: MIT
#include "widgets/lists/SlotProgress.h"

#include <QCoreApplication>
#include <QProgressBar>

namespace {

/// Commands that are done sooner do not flash a dialog.
constexpr qint64 QuickCommand = 300;
/// A step lets events run when the last one that did is this long ago, in milliseconds.
constexpr qint64 Frame = 20;

constexpr Qt::WindowFlags Border =
    Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::MSWindowsFixedSizeDialogHint;

} // namespace

SlotProgress::SlotProgress(int total)
    : QProgressDialog(QString(), QStringLiteral("Stop"), 0, total, nullptr, Border),
      m_bar(new QProgressBar(this))
{
    // The bar is set directly: the dialog's own setValue() runs events and goes on with itself.
    m_bar->setRange(0, total);
    setBar(m_bar);
    setModal(true);
    // Stops the timer by which the dialog would come up unasked.
    reset();
    m_sinceStart.start();
}

void SlotProgress::setVisible(bool visible)
{
    if (!visible || m_mayComeUp)
        QProgressDialog::setVisible(visible);
}

void SlotProgress::comeUp()
{
    if (m_givesWay || isVisible() || wasCanceled() || m_sinceStart.elapsed() < QuickCommand)
        return;
    m_mayComeUp = true;
    show();
}

void SlotProgress::advance(SlotProgress *dialog, int done)
{
    dialog->m_bar->setValue(done);
    dialog->comeUp();
    if (!dialog->isVisible())
        return;
    if (dialog->m_sinceEvents.isValid() && dialog->m_sinceEvents.elapsed() < Frame)
        return;
    dialog->m_sinceEvents.start();
    QCoreApplication::processEvents();
}

void SlotProgress::giveWay()
{
    m_givesWay = true;
    setLabelText({});
}

void SlotProgress::complete()
{
    m_bar->setValue(m_bar->maximum());
}

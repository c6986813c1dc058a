// SPDX-License-Identifier: MIT
#include "widgets/lists/SlotCommand.h"

#include "widgets/lists/CListWidgePrivate.h"
#include "widgets/lists/ListBoxes.h"

SlotCommand::SlotCommand(CListWidge &list, const SlotSelection &selection, const QString &label)
    : m_list(&list), m_selection(selection), m_label(label), m_several(selection.count > 1)
{
    list.d->busy = true;
    Q_EMIT list.commandStarted();
    if (m_list)
        list.goClearAllUndo(true);
    if (m_several)
        m_dialog = new SlotProgress(selection.count + 1);
}

SlotCommand::~SlotCommand()
{
    if (m_dialog) {
        m_dialog->complete();
        delete m_dialog;
    }
    if (!m_list)
        return;
    m_list->d->busy = false;
    Q_EMIT m_list->commandFinished();
    if (m_list)
        m_list->setFocus();
}

CListWidgeItem *SlotCommand::next()
{
    const bool over = !m_list || (m_several && (!m_dialog || m_dialog->wasCanceled()));
    if (over || m_next >= m_selection.rows.size())
        return nullptr;
    m_row = m_selection.rows.at(m_next++);
    return isIntact() ? m_row.get() : nullptr;
}

bool SlotCommand::isIntact() const
{
    const CListWidgeItem *row = m_row.get();
    return m_list && (m_dialog || !m_several) && row && row->treeWidget() == m_list;
}

bool SlotCommand::showProgress()
{
    ++m_done;
    if (!m_dialog)
        return true;
    if (!m_dialog->givesWay())
        m_dialog->setLabelText(m_label.arg(m_row.get()->slotNumber()));
    SlotProgress::advance(m_dialog, m_done);
    return isIntact();
}

void SlotCommand::hideLabels()
{
    if (m_dialog)
        m_dialog->giveWay();
}

bool SlotCommand::repaintRow()
{
    if (!isIntact())
        return false;
    m_list->repaintItem_Polymorphic(m_row.get());
    if (isIntact())
        Q_EMIT m_list->selectionChanged();
    return isIntact();
}

bool SlotCommand::finishRow(const QString &error)
{
    if (error.isEmpty())
        return repaintRow();
    if (m_list)
        listboxes::critical(m_list, QStringLiteral("Error"), error);
    return isIntact();
}

// SPDX-License-Identifier: MIT
#include "widgets/lists/ListKeys.h"

#include "widgets/buttons/COnOffButton.h"
#include "widgets/lists/CListWidgePrivate.h"
#include "widgets/lists/SiblingSearch.h"

void ListKeys::attach(Command command, COnOffButton *button)
{
    Key &key = m_keys[command];
    if (key.button == button)
        return;
    QObject::disconnect(key.clicks);
    key.button = button;
    if (button) {
        button->setToggleButton(false);
        key.clicks = QObject::connect(button, &QAbstractButton::clicked, &m_list,
                                      [this, command] { run(command); });
    }
    changed();
}

void ListKeys::setName(Command command, const QString &name)
{
    m_keys[command].name = name;
    if (m_list.isVisible())
        resolve();
}

void ListKeys::resolve()
{
    for (int command = 0; command < CommandCount; ++command) {
        const QString name = m_keys[command].name;
        const COnOffButton *present = m_keys[command].button;
        if (name.isEmpty() || (present && present->objectName() == name))
            continue;
        if (auto *button = nearestSibling<COnOffButton>(m_list, name))
            attach(static_cast<Command>(command), button);
        else
            qWarning("CListWidge '%s': no key named '%s' in its window",
                     qUtf8Printable(m_list.objectName()), qUtf8Printable(name));
    }
}

bool ListKeys::isActive() const
{
    return m_active || !m_list.otherList();
}

void ListKeys::setActive(bool active)
{
    m_active = active;
    changed();
}

bool ListKeys::sharesAnyWith(const ListKeys &other) const
{
    for (int command = 0; command < CommandCount; ++command) {
        if (m_keys[command].button && m_keys[command].button == other.m_keys[command].button)
            return true;
    }
    return false;
}

/// Whether the key belongs to both lists of the pair, and the operator works in the other one.
bool ListKeys::leavesToOther(Command command) const
{
    const CListWidge *other = m_list.otherList();
    return other && !isActive() && other->d->keys.m_keys[command].button == m_keys[command].button;
}

void ListKeys::run(Command command)
{
    if (leavesToOther(command))
        return;
    switch (command) {
    case Store: m_list.Store(); break;
    case Recall: m_list.Recall(); break;
    case Clear: m_list.Clear(); break;
    case Undo: m_list.Undo(true); break;
    case Protect: m_list.Protect(); break;
    case CommandCount: break;
    }
}

bool ListKeys::wouldDoSomething(Command command) const
{
    switch (command) {
    case Store: return m_list.canStore();
    case Recall: return m_list.canRecall();
    case Clear: return m_list.canClear();
    case Undo: return m_list.isUndoAvailable(true);
    case Protect: return m_list.canProtect();
    case CommandCount: break;
    }
    return false;
}

void ListKeys::changed()
{
    if (m_pending)
        return;
    m_pending = true;
    QMetaObject::invokeMethod(
        &m_list, [this] { refresh(); }, Qt::QueuedConnection);
}

void ListKeys::refresh()
{
    m_pending = false;
    const QPointer<CListWidge> guard(&m_list);
    for (int command = 0; command < CommandCount && guard; ++command) {
        COnOffButton *button = m_keys[command].button;
        if (!button || leavesToOther(static_cast<Command>(command)))
            continue;
        const bool enabled = wouldDoSomething(static_cast<Command>(command));
        if (button->isEnabledTo(button->parentWidget()) != enabled)
            button->setEnabled(enabled);
    }
}

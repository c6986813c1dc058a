// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QString>

#include <array>

class CListWidge;
class COnOffButton;

/// The five keys of a library list: which they are, by object or by name, what a click runs, and when
/// they are enabled. GUI thread.
class ListKeys
{
public:
    enum Command { Store, Recall, Clear, Undo, Protect, CommandCount };

    explicit ListKeys(CListWidge &list) : m_list(list) {}

    void attach(Command command, COnOffButton *key);
    QString name(Command command) const { return m_keys[command].name; }
    void setName(Command command, const QString &name);
    /// Looks up the keys that have a name and are not there yet; says which are missing.
    void resolve();

    /// Something changed that the keys may depend on: they follow once per turn of the event loop.
    void changed();

    /// Whether the operator works in this list, rather than in the other of the pair.
    bool isActive() const;
    void setActive(bool active);
    bool sharesAnyWith(const ListKeys &other) const;

private:
    struct Key
    {
        QPointer<COnOffButton> button;
        QString name;
        QMetaObject::Connection clicks;
    };

    void run(Command command);
    bool wouldDoSomething(Command command) const;
    bool leavesToOther(Command command) const;
    void refresh();

    CListWidge &m_list;
    std::array<Key, CommandCount> m_keys;
    bool m_active = true;
    bool m_pending = false;
};

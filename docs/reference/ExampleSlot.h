// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/lists/CListWidge.h"
#include "widgets/lists/CListWidgeItem.h"

//! [ExampleSlot]
/// A slot of a library that keeps its settings as bytes.
class ExampleSlot : public CListWidgeItem
{
public:
    ExampleSlot(CListWidge *list, int number, const QString &title)
        : CListWidgeItem(list), m_number(number), m_title(title)
    {
    }

    int slotNumber() const override { return m_number; }
    void title(QString &text) const override { text = m_title; }
    bool hasData() const override { return !m_title.isEmpty(); }
    bool isProtected() const override { return m_protected; }
    bool isReadOnly() const override { return false; }
    IMemAPI *memAPI() const override { return nullptr; }
    void store(QString &) override { change(m_title, QStringLiteral("New")); }
    void recall(QString &) override {}
    void clear(QString &) override { change(m_title, QString()); }
    void toggleProtection(QString &) override { change(m_protected, !m_protected); }
    void undo() override { change(m_title, m_before); }
    bool hasUndo() const override { return m_title != m_before; }
    void clearUndo() override { m_before = m_title; }

private:
    template<class Value>
    void change(Value &what, const Value &value)
    {
        what = value;
        contentsChanged();
    }

    int m_number;
    QString m_title;
    QString m_before = m_title;
    bool m_protected = false;
};
//! [ExampleSlot]

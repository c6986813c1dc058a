// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/lists/CListWidgeItem.h"

class SceneDesk;
class SceneLibrary;

/// A slot of the scene library in a list. Keeps nothing of its own: all is the library's.
class SceneRow : public CListWidgeItem
{
public:
    SceneRow(int slot, SceneDesk &desk);

    int slotNumber() const override { return m_slot; }
    void store(QString &error) override;
    /// One step in the editor's undo history.
    void recall(QString &error) override;
    void clear(QString &error) override;
    void undo() override;
    void toggleProtection(QString &error) override;
    /// Every slot is, in a library that can only be read.
    bool isReadOnly() const override;
    bool isProtected() const override;
    bool hasData() const override;
    IMemAPI *memAPI() const override;
    void clearUndo() override;
    void title(QString &text) const override;

    bool hasUndo() const override;
    /// Local time.
    QDateTime timeStored() const override;
    int titleLimit() const override;
    void setTitle(const QString &text, QString &error) override;
    QByteArray dragData() const override;
    void storeDragged(const QByteArray &data, QString &error) override;
    void moveTo(int number, QString &error) override;

private:
    SceneLibrary &library() const;
    QString numberAndTitle() const;

    SceneDesk &m_desk;
    int m_slot;
};

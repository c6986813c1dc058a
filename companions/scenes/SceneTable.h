// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/ParameterSnapshot.h"
#include "companions/scenes/SceneInfo.h"

#include <QHash>

#include <map>

class SceneFile;

/// A scene as it stands in the file.
struct SceneRecord
{
    SceneInfo info;
    qint64 layout = 0; ///< number of the layout that the values belong to
    QByteArray checksum;
    QByteArray data;
};

/// The rows of a scene library and what is in them. Says nothing about what is allowed. All operations
/// throw SceneFault.
class SceneTable
{
public:
    explicit SceneTable(SceneFile &file) : m_file(file) {}

    /// All slots that are not empty.
    std::map<int, SceneInfo> list() const;
    /// Whether there are changes by others since the last time this was asked.
    bool changedElsewhere();

    /// Without data for an empty slot.
    SceneInfo info(int slot) const;
    std::optional<SceneRecord> read(int slot) const;
    /// Replaces whatever is in the slot.
    void put(int slot, const SceneRecord &record);
    void remove(int slot);
    void setTitle(int slot, const QString &title);
    void setProtected(int slot, bool on);
    void setReadOnly(int slot, bool on);
    /// Gives the scenes of the slots their new slots.
    void renumber(const QHash<int, int> &slotAfter);

    /// Before another file is opened.
    void forgetLayouts() { m_layouts.clear(); }

    SceneRecord record(const SceneInfo &info, const ParameterSnapshot &snapshot);
    /// The values of a record; nothing when it is damaged.
    std::optional<ParameterSnapshot> snapshot(const SceneRecord &record) const;

private:
    qint64 layoutNumber(const ParameterLayout &layout);
    std::shared_ptr<const ParameterLayout> layout(qint64 number) const;

    SceneFile &m_file;
    mutable QHash<qint64, std::shared_ptr<const ParameterLayout>> m_layouts;
    qint64 m_seenVersion = 0;
};

// SPDX-License-Identifier: MIT
#include "editor/EditorPreferences.h"

#include "companions/memory/ParameterMemory.h"

#include <QSettings>

namespace {

struct Kept
{
    IPreferences::Number number;
    const char *key; ///< in the file
};

constexpr Kept all[] = {
    {IPreferences::ConfirmStore, "scenes/confirmStore"},
    {IPreferences::ConfirmRecall, "scenes/confirmRecall"},
};

} // namespace

EditorPreferences::EditorPreferences(ParameterMemory &memory, QObject *parent)
    : QObject(parent), m_memory(memory)
{
}

void EditorPreferences::keepIn(const QString &fileName)
{
    m_fileName = fileName;
    const QSettings file(fileName, QSettings::IniFormat);
    for (const Kept &kept : all) {
        if (const QVariant value = file.value(kept.key); value.isValid())
            m_memory.setPreference(kept.number, value.toBool());
    }
    Q_EMIT changed();
}

bool EditorPreferences::isOn(IPreferences::Number number) const
{
    return m_memory.preferences()->preference(number).toBool();
}

void EditorPreferences::setOn(IPreferences::Number number, bool on)
{
    if (on == isOn(number))
        return;
    m_memory.setPreference(number, on);
    if (!m_fileName.isEmpty()) {
        QSettings file(m_fileName, QSettings::IniFormat);
        for (const Kept &kept : all) {
            if (kept.number == number)
                file.setValue(kept.key, on);
        }
    }
    Q_EMIT changed();
}

// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/IPreferences.h"

#include <QObject>

class ParameterMemory;

/// What the operator prefers. It reaches the controls through the memory, and stays in a file from one
/// session to the next. What the operator has never chosen is as the console's model says. GUI thread.
class EditorPreferences : public QObject
{
    Q_OBJECT

public:
    /// The memory outlives the preferences.
    explicit EditorPreferences(ParameterMemory &memory, QObject *parent = nullptr);

    /// Takes over what the file holds, and keeps later choices there. The file need not exist.
    void keepIn(const QString &fileName);

    bool isOn(IPreferences::Number number) const;
    void setOn(IPreferences::Number number, bool on);

Q_SIGNALS:
    void changed();

private:
    ParameterMemory &m_memory;
    QString m_fileName; ///< empty: kept for this session only
};

// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/forms/WidgetRegistry.h"

#include <QDir>
#include <QString>

class ParameterMemory;
class SimulatedConsole;

/// What the library's widgets are and have, for the reference: a Markdown file with a section per class,
/// and a picture of each. All of it comes from the registry and from the classes themselves.
class ClassReference
{
public:
    /// The pictures show the memory's present values, and what the console sends.
    ClassReference(ParameterMemory &memory, SimulatedConsole &console)
        : m_memory(memory), m_console(console)
    {
    }

    /// Writes classes.md and a PNG file per class into the folder, which is made if need be. False, and
    /// one line in `error`, when a file cannot be written.
    bool write(const QDir &folder, QString *error);

    QString text() const;

private:
    QString section(const WidgetRegistry::Entry &entry) const;
    QPixmap picture(const WidgetRegistry::Entry &entry) const;

    ParameterMemory &m_memory;
    SimulatedConsole &m_console;
};

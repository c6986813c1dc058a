// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/ParameterSnapshot.h"

#include <QElapsedTimer>
#include <QFile>
#include <QObject>
#include <QTimer>

class ParameterMemory;

/// Records what becomes of all values of a memory into a file, 50 times a second, whoever changes them:
/// see Recording. A value that changes several times between two looks is recorded as it is then. GUI
/// thread.
class Recorder : public QObject
{
public:
    explicit Recorder(const ParameterMemory &memory) : m_memory(memory) {}
    /// Ends the recording.
    ~Recorder() override;

    /// Begins with what the values are now. False, and one line in `error`, when the file cannot be
    /// written.
    bool start(const QString &fileName, QString *error);
    /// What has changed since the last time. Comes by itself, too.
    void record();
    /// Closes the file. False when not everything could be written.
    bool finish();

private:
    void write(quint32 number);

    const ParameterMemory &m_memory;
    QFile m_file;
    QTimer m_timer;
    QElapsedTimer m_clock;
    ParameterSnapshot m_last;
    bool m_sound = true;
};

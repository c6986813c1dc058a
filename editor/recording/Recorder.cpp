// SPDX-License-Identifier: MIT
#include "editor/recording/Recorder.h"

#include "companions/memory/ParameterMemory.h"
#include "editor/recording/Recording.h"

#include <QtEndian>

namespace {

constexpr int Milliseconds = 20; // between two looks

} // namespace

Recorder::~Recorder()
{
    finish();
}

bool Recorder::start(const QString &fileName, QString *error)
{
    m_file.setFileName(fileName);
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        if (error)
            *error = QStringLiteral("%1: %2").arg(fileName, m_file.errorString());
        return false;
    }
    m_last = m_memory.snapshot();
    const QByteArray &layout = m_last.layout->description();
    write(Recording::Mark);
    write(Recording::Version);
    write(static_cast<quint32>(layout.size()));
    m_sound &= m_file.write(layout) == layout.size();
    write(static_cast<quint32>(m_last.values.size()));
    for (const qint32 value : m_last.values)
        write(static_cast<quint32>(value));
    connect(&m_timer, &QTimer::timeout, this, &Recorder::record);
    m_clock.start();
    m_timer.start(Milliseconds);
    return true;
}

void Recorder::record()
{
    const auto time = static_cast<quint32>(m_clock.elapsed());
    if (!m_file.isOpen() || time > Recording::LongestTime)
        return;
    ParameterSnapshot now = m_memory.snapshot();
    std::vector<quint32> changed;
    for (size_t place = 0; place < now.values.size(); ++place) {
        if (now.values[place] != m_last.values[place])
            changed.push_back(static_cast<quint32>(place));
    }
    if (changed.empty())
        return;
    write(time);
    write(static_cast<quint32>(changed.size()));
    for (const quint32 place : changed) {
        write(place);
        write(static_cast<quint32>(now.values[place]));
    }
    m_last = std::move(now);
}

bool Recorder::finish()
{
    if (!m_file.isOpen())
        return m_sound;
    record();
    m_timer.stop();
    write(Recording::EndMark);
    m_sound &= m_file.flush();
    m_file.close();
    return m_sound;
}

void Recorder::write(quint32 number)
{
    const quint32 bytes = qToBigEndian(number);
    m_sound &= m_file.write(reinterpret_cast<const char *>(&bytes), sizeof bytes) == sizeof bytes;
}

// SPDX-License-Identifier: MIT
#include "editor/recording/Recording.h"

#include <QDataStream>
#include <QFile>

namespace {

constexpr qint64 BytesOfValue = 4;
constexpr qint64 BytesOfChange = 8;
constexpr qint64 MostLayoutBytes = 16 * 1024 * 1024;

/// What is wrong with a file.
struct Fault
{
    QString reason;
};

class Reader
{
public:
    explicit Reader(QIODevice &device) : m_device(device), m_stream(&device) {}

    Recording read()
    {
        readHead();
        readFirst();
        while (readFrame()) {
        }
        if (!m_device.atEnd())
            fail(QStringLiteral("something follows its end"));
        return std::move(m_recording);
    }

private:
    [[noreturn]] void fail(const QString &reason) { throw Fault{reason}; }

    quint32 number()
    {
        quint32 read = 0;
        m_stream >> read;
        if (m_stream.status() != QDataStream::Ok)
            fail(QStringLiteral("it ends in the middle, at byte %1").arg(m_device.pos()));
        return read;
    }

    /// A count of things, none of which can be missing: nothing is made room for that is not there.
    quint32 countOf(qint64 bytesOfEach)
    {
        const quint32 count = number();
        if (static_cast<qint64>(count) * bytesOfEach > m_device.bytesAvailable())
            fail(QStringLiteral(
                     "it ends in the middle: %1 are to come at byte %2, which are not there")
                     .arg(count)
                     .arg(m_device.pos()));
        return count;
    }

    void readHead()
    {
        if (number() != Recording::Mark)
            fail(QStringLiteral("it is no recording of parameters"));
        const quint32 version = number();
        if (version != Recording::Version)
            fail(QStringLiteral("it is of version %1; this editor reads version %2")
                     .arg(version)
                     .arg(Recording::Version));
    }

    void readFirst()
    {
        const quint32 length = countOf(1);
        if (length > MostLayoutBytes)
            fail(QStringLiteral("its list of parameters is too long"));
        const auto layout = ParameterLayout::fromDescription(m_device.read(length));
        if (!layout)
            fail(QStringLiteral("its list of parameters is not a whole one"));
        m_places = countOf(BytesOfValue);
        if (m_places != layout->valueCount())
            fail(QStringLiteral("it has %1 first values for %2 parameters")
                     .arg(m_places)
                     .arg(layout->valueCount()));
        m_recording.first.layout = std::make_shared<ParameterLayout>(*layout);
        for (quint32 i = 0; i < m_places; ++i)
            m_recording.first.values.push_back(static_cast<qint32>(number()));
    }

    /// False at the end.
    bool readFrame()
    {
        const quint32 time = number();
        if (time == Recording::EndMark)
            return false;
        const quint32 before = m_recording.frames.empty() ? 0 : m_recording.frames.back().time;
        if (time < before || time > Recording::LongestTime)
            fail(QStringLiteral("the time %1 ms cannot follow %2 ms").arg(time).arg(before));
        Recording::Frame frame{time, {}};
        for (quint32 left = countOf(BytesOfChange); left > 0; --left) {
            const quint32 place = number();
            if (place >= m_places)
                fail(QStringLiteral("value %1 of %2 cannot have changed").arg(place).arg(m_places));
            frame.changes.push_back({place, static_cast<qint32>(number())});
        }
        m_recording.frames.push_back(std::move(frame));
        return true;
    }

    QIODevice &m_device;
    QDataStream m_stream;
    Recording m_recording;
    quint32 m_places = 0;
};

} // namespace

std::optional<Recording> Recording::readFrom(QIODevice &device, QString *error)
{
    try {
        return Reader(device).read();
    } catch (const Fault &fault) {
        if (error)
            *error = fault.reason;
        return std::nullopt;
    }
}

std::optional<Recording> Recording::read(const QString &fileName, QString *error)
{
    QFile file(fileName);
    QString reason;
    std::optional<Recording> recording;
    if (!file.open(QIODevice::ReadOnly))
        reason = file.errorString();
    else
        recording = readFrom(file, &reason);
    if (!recording && error)
        *error = QStringLiteral("%1: %2").arg(fileName, reason);
    return recording;
}

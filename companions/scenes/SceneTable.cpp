// SPDX-License-Identifier: MIT
#include "companions/scenes/SceneTable.h"

#include "companions/scenes/SceneFile.h"

#include <QCryptographicHash>
#include <QtEndian>

namespace {

constexpr auto InfoColumns = "title, protected, read_only, stored";

SceneInfo infoFrom(const QSqlQuery &row, int column)
{
    return {row.value(column).toString(),
            QDateTime::fromMSecsSinceEpoch(row.value(column + 3).toLongLong(), Qt::UTC), true,
            row.value(column + 1).toBool(), row.value(column + 2).toBool()};
}

/// Values in the order of their layout, 32 bits each, the lowest byte first.
QByteArray bytesOf(const std::vector<qint32> &values)
{
    QByteArray bytes(static_cast<qsizetype>(values.size() * sizeof(qint32)), Qt::Uninitialized);
    qToLittleEndian<qint32>(values.data(), static_cast<qsizetype>(values.size()), bytes.data());
    return bytes;
}

QByteArray checksumOf(const ParameterLayout &layout, const QByteArray &data)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(layout.fingerprint());
    hash.addData(data);
    return hash.result();
}

} // namespace

std::map<int, SceneInfo> SceneTable::list() const
{
    std::map<int, SceneInfo> scenes;
    QSqlQuery row =
        m_file.run(QStringLiteral("SELECT slot, %1 FROM scenes").arg(QLatin1String(InfoColumns)));
    while (m_file.next(row))
        scenes.emplace(row.value(0).toInt(), infoFrom(row, 1));
    return scenes;
}

bool SceneTable::changedElsewhere()
{
    const qint64 version = m_file.value(QStringLiteral("PRAGMA data_version")).toLongLong();
    return std::exchange(m_seenVersion, version) != version;
}

SceneInfo SceneTable::info(int slot) const
{
    QSqlQuery row = m_file.run(
        QStringLiteral("SELECT %1 FROM scenes WHERE slot = ?").arg(QLatin1String(InfoColumns)),
        {slot});
    return m_file.next(row) ? infoFrom(row, 0) : SceneInfo();
}

std::optional<SceneRecord> SceneTable::read(int slot) const
{
    QSqlQuery row =
        m_file.run(QStringLiteral("SELECT layout, checksum, data, %1 FROM scenes"
                                  " JOIN contents ON contents.id = scenes.contents WHERE slot = ?")
                       .arg(QLatin1String(InfoColumns)),
                   {slot});
    if (!m_file.next(row))
        return {};
    return SceneRecord{infoFrom(row, 3), row.value(0).toLongLong(), row.value(1).toByteArray(),
                       row.value(2).toByteArray()};
}

void SceneTable::put(int slot, const SceneRecord &record)
{
    remove(slot);
    const QVariant contents =
        m_file
            .run(QStringLiteral("INSERT INTO contents (layout, checksum, data) VALUES (?, ?, ?)"),
                 {record.layout, record.checksum, record.data})
            .lastInsertId();
    m_file.run(QStringLiteral("INSERT INTO scenes"
                              " (slot, title, protected, read_only, stored, contents)"
                              " VALUES (?, ?, ?, ?, ?, ?)"),
               {slot, record.info.title, int(record.info.isProtected), int(record.info.isReadOnly),
                record.info.stored.toMSecsSinceEpoch(), contents});
}

void SceneTable::remove(int slot)
{
    const QVariant contents =
        m_file.value(QStringLiteral("SELECT contents FROM scenes WHERE slot = ?"), {slot});
    if (!contents.isValid())
        return;
    m_file.run(QStringLiteral("DELETE FROM scenes WHERE slot = ?"), {slot});
    m_file.run(QStringLiteral("DELETE FROM contents WHERE id = ?"), {contents});
}

void SceneTable::setTitle(int slot, const QString &title)
{
    m_file.run(QStringLiteral("UPDATE scenes SET title = ? WHERE slot = ?"), {title, slot});
}

void SceneTable::setProtected(int slot, bool on)
{
    m_file.run(QStringLiteral("UPDATE scenes SET protected = ? WHERE slot = ?"), {int(on), slot});
}

void SceneTable::setReadOnly(int slot, bool on)
{
    m_file.run(QStringLiteral("UPDATE scenes SET read_only = ? WHERE slot = ?"), {int(on), slot});
}

void SceneTable::renumber(const QHash<int, int> &slotAfter)
{
    // By way of negative numbers, which nothing else has.
    const QString change = QStringLiteral("UPDATE scenes SET slot = ? WHERE slot = ?");
    for (auto each = slotAfter.begin(); each != slotAfter.end(); ++each)
        m_file.run(change, {-each.value(), each.key()});
    m_file.run(QStringLiteral("UPDATE scenes SET slot = -slot WHERE slot < 0"));
}

SceneRecord SceneTable::record(const SceneInfo &info, const ParameterSnapshot &snapshot)
{
    QByteArray data = bytesOf(snapshot.values);
    QByteArray checksum = checksumOf(*snapshot.layout, data);
    return {info, layoutNumber(*snapshot.layout), std::move(checksum), std::move(data)};
}

std::optional<ParameterSnapshot> SceneTable::snapshot(const SceneRecord &record) const
{
    ParameterSnapshot snapshot{layout(record.layout), {}};
    if (!snapshot.layout || checksumOf(*snapshot.layout, record.data) != record.checksum)
        return {};
    const size_t count = snapshot.layout->valueCount();
    if (static_cast<size_t>(record.data.size()) != count * sizeof(qint32))
        return {};
    snapshot.values.resize(count);
    qFromLittleEndian<qint32>(record.data.constData(), static_cast<qsizetype>(count),
                              snapshot.values.data());
    return snapshot;
}

qint64 SceneTable::layoutNumber(const ParameterLayout &layout)
{
    const QVariant known = m_file.value(
        QStringLiteral("SELECT id FROM layouts WHERE fingerprint = ?"), {layout.fingerprint()});
    if (known.isValid())
        return known.toLongLong();
    return m_file
        .run(QStringLiteral("INSERT INTO layouts (fingerprint, description) VALUES (?, ?)"),
             {layout.fingerprint(), layout.description()})
        .lastInsertId()
        .toLongLong();
}

/// Null when the file does not hold it whole.
std::shared_ptr<const ParameterLayout> SceneTable::layout(qint64 number) const
{
    auto &known = m_layouts[number];
    if (known)
        return known;
    QSqlQuery row = m_file.run(
        QStringLiteral("SELECT fingerprint, description FROM layouts WHERE id = ?"), {number});
    if (!m_file.next(row))
        return {};
    auto layout = ParameterLayout::fromDescription(row.value(1).toByteArray());
    if (layout && layout->fingerprint() == row.value(0).toByteArray())
        known = std::make_shared<ParameterLayout>(*std::move(layout));
    return known;
}

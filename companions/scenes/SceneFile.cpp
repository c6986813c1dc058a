// SPDX-License-Identifier: MIT
#include "companions/scenes/SceneFile.h"

#include "companions/scenes/SceneFault.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlError>
#include <QUrl>

#include <algorithm>
#include <atomic>

namespace {

const QString Driver = QStringLiteral("QSQLITE");

/// "SCNL": marks a database as a scene library.
constexpr int ApplicationId = 0x53434e4c;
/// Grows with every change of the tables.
constexpr int FormatVersion = 1;

const char *const Tables[] = {
    "CREATE TABLE layouts (id INTEGER PRIMARY KEY, fingerprint BLOB NOT NULL UNIQUE,"
    " description BLOB NOT NULL)",
    "CREATE TABLE contents (id INTEGER PRIMARY KEY, layout INTEGER NOT NULL REFERENCES layouts,"
    " checksum BLOB NOT NULL, data BLOB NOT NULL)",
    "CREATE TABLE scenes (slot INTEGER PRIMARY KEY, title TEXT NOT NULL,"
    " protected INTEGER NOT NULL, read_only INTEGER NOT NULL, stored INTEGER NOT NULL,"
    " contents INTEGER NOT NULL UNIQUE REFERENCES contents)",
};

/// Connections have names in one list for the whole program.
QString newConnectionName()
{
    static std::atomic<int> last{0};
    return QStringLiteral("scene-library-%1").arg(++last);
}

} // namespace

void SceneFile::open(const QString &fileName)
{
    close();
    m_name = QFileInfo(fileName).absoluteFilePath();
    if (!QSqlDatabase::isDriverAvailable(Driver))
        throw SceneFault{QStringLiteral("Scenes need Qt's driver for SQLite, which is missing.")};
    if (QFileInfo(m_name).isDir())
        throw SceneFault{QStringLiteral("The scene library %1 is a folder.").arg(m_name)};
    QDir().mkpath(QFileInfo(m_name).path());
    try {
        openForWriting();
    } catch (const SceneFault &fault) {
        close();
        if (fault.kind != SceneFault::CannotWrite)
            throw;
        if (!QFileInfo::exists(m_name))
            throw SceneFault{
                QStringLiteral("The scene library %1 cannot be made in that folder.").arg(m_name)};
        openForReading();
    }
}

void SceneFile::close()
{
    m_readOnlyReason.clear();
    if (!isOpen())
        return;
    database().close();
    QSqlDatabase::removeDatabase(std::exchange(m_connection, {}));
}

void SceneFile::connect(const QString &databaseName, const QString &options)
{
    m_connection = newConnectionName();
    QSqlDatabase connection = QSqlDatabase::addDatabase(Driver, m_connection);
    connection.setDatabaseName(databaseName);
    connection.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(PatienceMilliseconds)
                                 + options);
    if (!connection.open())
        throw SceneFault::from(connection.lastError(), m_name);
    run(QStringLiteral("PRAGMA foreign_keys = ON"));
}

void SceneFile::openForWriting()
{
    connect(m_name, {});
    const bool isNew = !isSceneLibrary();
    run(QStringLiteral("PRAGMA journal_mode = WAL"));
    run(QStringLiteral("PRAGMA synchronous = FULL"));
    Transaction transaction(*this);
    if (isNew && !isSceneLibrary()) {
        makeTables();
        transaction.commit();
        return;
    }
    // Neither opening nor beginning tells whether the file can be written; writing does. It is not
    // committed.
    run(QStringLiteral("PRAGMA user_version = %1").arg(FormatVersion));
}

void SceneFile::openForReading()
try {
    // Without a log beside it the file is complete, and can be read where no log can be made.
    const QFileInfo log(m_name + QStringLiteral("-wal"));
    const QString mode =
        log.isFile() && log.size() > 0 ? QStringLiteral("mode=ro") : QStringLiteral("immutable=1");
    connect(QStringLiteral("file:%1?%2")
                .arg(QString::fromLatin1(QUrl::toPercentEncoding(m_name, "/")), mode),
            QStringLiteral(";QSQLITE_OPEN_URI;QSQLITE_OPEN_READONLY"));
    if (!isSceneLibrary())
        throw SceneFault{QStringLiteral("The file %1 is no scene library.").arg(m_name)};
    m_readOnlyReason = QStringLiteral("The scene library %1 is read only.").arg(m_name);
} catch (const SceneFault &) {
    close();
    throw;
}

bool SceneFile::isSceneLibrary() const
{
    const int id = value(QStringLiteral("PRAGMA application_id")).toInt();
    const int version = value(QStringLiteral("PRAGMA user_version")).toInt();
    const int tables = value(QStringLiteral("SELECT count(*) FROM sqlite_master")).toInt();
    if (id == 0 && version == 0 && tables == 0)
        return false;
    if (id != ApplicationId || version < 1)
        throw SceneFault{QStringLiteral("The file %1 is no scene library.").arg(m_name)};
    if (version > FormatVersion) {
        throw SceneFault{QStringLiteral("The scene library %1 was made by a newer version of this "
                                        "program (format %2, this one knows up to %3).")
                             .arg(m_name)
                             .arg(version)
                             .arg(FormatVersion)};
    }
    return true;
}

void SceneFile::makeTables()
{
    for (const char *table : Tables)
        run(QLatin1String(table));
    run(QStringLiteral("PRAGMA application_id = %1").arg(ApplicationId));
    run(QStringLiteral("PRAGMA user_version = %1").arg(FormatVersion));
}

void SceneFile::limitSize(qint64 bytes)
{
    constexpr qint64 mostPages = 0x7ffffffe;
    const qint64 page = value(QStringLiteral("PRAGMA page_size")).toLongLong();
    const qint64 pages = bytes > 0 ? std::max<qint64>(bytes / page, 1) : mostPages;
    run(QStringLiteral("PRAGMA max_page_count = %1").arg(pages));
}

QSqlQuery SceneFile::run(const QString &statement, const QVariantList &values) const
{
    QSqlQuery query(database());
    query.setForwardOnly(true);
    bool done = query.prepare(statement);
    for (const QVariant &bound : values)
        query.addBindValue(bound);
    done = done && query.exec();
    if (!done)
        throw SceneFault::from(query.lastError(), m_name);
    return query;
}

QVariant SceneFile::value(const QString &statement, const QVariantList &values) const
{
    QSqlQuery result = run(statement, values);
    return next(result) ? result.value(0) : QVariant();
}

bool SceneFile::next(QSqlQuery &result) const
{
    if (result.next())
        return true;
    if (result.lastError().isValid())
        throw SceneFault::from(result.lastError(), m_name);
    return false;
}

SceneFile::Transaction::Transaction(SceneFile &file) : m_file(file)
{
    file.run(QStringLiteral("BEGIN IMMEDIATE"));
}

SceneFile::Transaction::~Transaction()
{
    if (!m_open)
        return;
    // After some failures the database has rolled back by itself.
    QSqlQuery(m_file.database()).exec(QStringLiteral("ROLLBACK"));
}

void SceneFile::Transaction::commit()
{
    m_file.run(QStringLiteral("COMMIT"));
    m_open = false;
}

// SPDX-License-Identifier: MIT
#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>

/// The database file of a scene library: opening it, making it, and running statements in it. All
/// operations throw SceneFault.
///
/// A commit has reached the disk when it returns: what has been reported as stored survives the end of
/// the program and of the power.
class SceneFile
{
public:
    /// How long a command waits for another program that is writing.
    static constexpr int PatienceMilliseconds = 1000;

    SceneFile() = default;
    ~SceneFile() { close(); }
    Q_DISABLE_COPY_MOVE(SceneFile)

    /// Makes the file, and its folder, when there is none. A file that cannot be written is opened for
    /// reading. Nothing is changed in a file that is no scene library, or is of a newer version.
    void open(const QString &fileName);
    void close();

    bool isOpen() const { return !m_connection.isEmpty(); }
    /// Why the file can only be read; empty when it can be written.
    const QString &readOnlyReason() const { return m_readOnlyReason; }
    const QString &name() const { return m_name; }

    /// The file does not grow beyond that; 0: as far as the disk allows.
    void limitSize(qint64 bytes);

    /// Runs a statement; its result is not positioned on a row yet.
    QSqlQuery run(const QString &statement, const QVariantList &values = {}) const;
    /// The first column of the first row, invalid when there is none.
    QVariant value(const QString &statement, const QVariantList &values = {}) const;
    /// Steps to the next row; false after the last.
    bool next(QSqlQuery &result) const;

    /// What is run during its life happens as a whole or not at all.
    class Transaction
    {
    public:
        explicit Transaction(SceneFile &file);
        ~Transaction();
        Q_DISABLE_COPY_MOVE(Transaction)

        void commit();

    private:
        SceneFile &m_file;
        bool m_open = true;
    };

private:
    void openForWriting();
    void openForReading();
    void connect(const QString &databaseName, const QString &options);
    /// True for a scene library, false for a file without contents; throws for any other.
    bool isSceneLibrary() const;
    void makeTables();
    QSqlDatabase database() const { return QSqlDatabase::database(m_connection, false); }

    QString m_name;
    QString m_connection; ///< empty while closed
    QString m_readOnlyReason;
};

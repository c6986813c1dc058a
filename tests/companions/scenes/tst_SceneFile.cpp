// SPDX-License-Identifier: MIT
// The file of a scene library, and what can be wrong with it. After each failure nothing is lost, and
// the library goes on.
#include "tests/companions/scenes/SceneRig.h"

#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

namespace {

/// As another user than root, whom nothing would keep from writing.
class AsCommonUser
{
public:
    AsCommonUser()
    {
        if (m_user == 0 && ::seteuid(Nobody) != 0)
            qFatal("cannot become another user");
    }
    ~AsCommonUser()
    {
        if (::seteuid(m_user) != 0)
            qFatal("cannot become the former user again");
    }

private:
    static constexpr uid_t Nobody = 65534;
    uid_t m_user = ::geteuid();
};

/// No file of this program grows beyond a size.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        m_signal = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signal);
    }

private:
    rlimit m_before{};
    void (*m_signal)(int);
};

QByteArray contentsOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

void write(const QString &fileName, const QByteArray &contents)
{
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size());
}

constexpr auto Everyone = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup
                          | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther
                          | QFile::WriteOther | QFile::ExeOther;
constexpr auto ReadOnlyFile = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
constexpr auto ReadOnlyFolder = ReadOnlyFile | QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;

} // namespace

class tst_SceneFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewLibraryIsMadeWithItsFolder();
    void unusableFilesAreToldAndLeftAlone_data();
    void unusableFilesAreToldAndLeftAlone();
    void noRoomOnTheDisk();
    void writesThatFailHalfWay();
    void readOnlyFilesCanStillBeRecalled_data();
    void readOnlyFilesCanStillBeRecalled();
    void aFolderInWhichNothingCanBeMade();
    void anotherProgramThatIsWriting();
    void damagedScenes_data();
    void damagedScenes();
    void connectionsAreTheLibrarysOwn();
};

void tst_SceneFile::aNewLibraryIsMadeWithItsFolder()
{
    SceneRig rig;
    const QString fileName = rig.folder.filePath("new/folder with ? and %/scenes.sqlite");
    SceneLibrary library;
    QString error;
    QVERIFY2(library.open(fileName, &error), qPrintable(error));
    QVERIFY(library.store(1, rig.scene(1)));
    library.close();
    {
        const OtherConnection other(fileName);
        QCOMPARE(other.run("PRAGMA journal_mode").toString(), QString("wal"));
        QCOMPARE(other.run("PRAGMA user_version").toInt(), 1);
        QCOMPARE(other.run("PRAGMA integrity_check").toString(), QString("ok"));
    }
    // Once closed it is one file, to be copied as such.
    QCOMPARE(QFileInfo(fileName).dir().entryList(QDir::Files), QStringList("scenes.sqlite"));
}

void tst_SceneFile::unusableFilesAreToldAndLeftAlone_data()
{
    QTest::addColumn<QByteArray>("contents"); // empty: the statement is run in a scene library
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QString>("told");
    QTest::newRow("no database") << QByteArray("<scenes/>").repeated(1000) << QString()
                                 << "is no scene library";
    QTest::newRow("a newer version") << QByteArray() << "PRAGMA user_version = 2"
                                     << "newer version";
    QTest::newRow("another program's database") << QByteArray() << "PRAGMA application_id = 5"
                                                << "is no scene library";
    QTest::newRow("no version") << QByteArray() << "PRAGMA user_version = 0"
                                << "is no scene library";
    QTest::newRow("tables missing") << QByteArray() << "DROP TABLE scenes"
                                    << "no such table";
}

void tst_SceneFile::unusableFilesAreToldAndLeftAlone()
{
    QFETCH(QByteArray, contents);
    QFETCH(QString, statement);
    QFETCH(QString, told);
    SceneRig rig;
    rig.library.close();
    if (statement.isEmpty())
        write(rig.fileName(), contents);
    else
        OtherConnection(rig.fileName()).run(statement);
    const QByteArray before = contentsOf(rig.fileName());

    QString error;
    QVERIFY(!rig.library.open(rig.fileName(), &error));
    QVERIFY2(error.contains(told) && error.contains(rig.fileName()), qPrintable(error));
    QVERIFY(!rig.library.isOpen());
    QString again;
    QVERIFY(!rig.library.store(1, rig.scene(1), &again));
    QCOMPARE(again, error);
    QCOMPARE(contentsOf(rig.fileName()), before);
    QCOMPARE(QDir(rig.folder.path()).entryList(QDir::Files), QStringList("scenes.sqlite"));

    QVERIFY(QFile::remove(rig.fileName()));
    QVERIFY2(rig.library.open(rig.fileName(), &error), qPrintable(error));
    QVERIFY(rig.library.store(1, rig.scene(1)));
}

void tst_SceneFile::noRoomOnTheDisk()
{
    SceneRig rig;
    constexpr int limit = 300'000;
    QVERIFY(rig.library.limitSize(limit));
    QString error;
    int slot = 1;
    while (slot <= SceneLibrary::SlotCount && rig.library.store(slot, rig.scene(slot), &error))
        ++slot;
    QVERIFY(slot > 10 && slot < SceneLibrary::SlotCount);
    QVERIFY2(error.contains("no room left"), qPrintable(error));
    QVERIFY(!rig.library.scene(slot).hasData && !rig.library.canUndo(slot));
    QVERIFY(!rig.library.store(slot, rig.scene(slot)));
    // What is there is whole, and gives room when it is cleared.
    for (int each = 1; each < slot; ++each)
        QCOMPARE(rig.library.recall(each)->values, rig.scene(each).values);
    QVERIFY(rig.library.clear(1));
    QVERIFY(rig.library.clear(2));
    QVERIFY(rig.library.store(slot, rig.scene(slot)));
    QVERIFY(rig.reopen());
    QVERIFY(QFileInfo(rig.fileName()).size() <= limit);
    QVERIFY(!rig.library.recall(1));
    for (int each = 3; each <= slot; ++each)
        QCOMPARE(rig.library.recall(each)->values, rig.scene(each).values);
}

void tst_SceneFile::writesThatFailHalfWay()
{
    SceneRig rig;
    rig.fill(5);
    for (const int room : {0, 100, 2000, 5000}) {
        const rlim_t log = static_cast<rlim_t>(QFileInfo(rig.fileName() + "-wal").size());
        QString error;
        {
            const FileSizeLimit limit(log + static_cast<rlim_t>(room));
            QVERIFY(!rig.library.store(3, rig.scene(1), &error));
            QVERIFY2(error.contains("failed"), qPrintable(error));
            QCOMPARE(rig.numbers(5), QList({101, 102, 103, 104, 105}));
        }
        QVERIFY(rig.library.store(6, rig.scene(1)));
    }
    QVERIFY(rig.library.store(3, rig.scene(77)));
    QVERIFY(rig.reopen());
    QCOMPARE(rig.numbers(5), QList({101, 102, 77, 104, 105}));
}

void tst_SceneFile::readOnlyFilesCanStillBeRecalled_data()
{
    QTest::addColumn<QFile::Permissions>("file");
    QTest::addColumn<QFile::Permissions>("folder");
    QTest::newRow("file") << QFile::Permissions(ReadOnlyFile) << QFile::Permissions(Everyone);
    QTest::newRow("folder") << QFile::Permissions(Everyone) << QFile::Permissions(ReadOnlyFolder);
    QTest::newRow("both") << QFile::Permissions(ReadOnlyFile) << QFile::Permissions(ReadOnlyFolder);
}

void tst_SceneFile::readOnlyFilesCanStillBeRecalled()
{
    QFETCH(QFile::Permissions, file);
    QFETCH(QFile::Permissions, folder);
    SceneRig rig;
    rig.fill(2);
    rig.library.close();
    QVERIFY(QFile::setPermissions(rig.fileName(), file));
    QVERIFY(QFile::setPermissions(rig.folder.path(), folder));
    {
        const AsCommonUser user;
        QString error;
        QVERIFY2(rig.library.open(rig.fileName(), &error), qPrintable(error));
        QVERIFY(rig.library.readOnlyReason().contains("read only"));
        QCOMPARE(rig.library.scene(2).title, QString("Scene 002"));
        QVERIFY(!rig.library.store(1, rig.scene(9), &error));
        QCOMPARE(error, rig.library.readOnlyReason());
        QCOMPARE(rig.numbers(2), QList({101, 102}));
        rig.library.close();
    }
    QVERIFY(QFile::setPermissions(rig.folder.path(), Everyone));
    QVERIFY(QFile::setPermissions(rig.fileName(), Everyone));
    QVERIFY(rig.reopen());
    QCOMPARE(rig.library.readOnlyReason(), QString());
    QVERIFY(rig.library.store(1, rig.scene(9)));
    QCOMPARE(rig.numbers(2), QList({9, 102}));
}

void tst_SceneFile::aFolderInWhichNothingCanBeMade()
{
    SceneRig rig;
    write(rig.fileName("file"), "in the way");
    QVERIFY(QFile::setPermissions(rig.folder.path(), ReadOnlyFolder));
    for (const char *name : {"new.sqlite", "file/new.sqlite", "folder/new.sqlite"}) {
        const AsCommonUser user;
        SceneLibrary library;
        QString error;
        QVERIFY(!library.open(rig.fileName(name), &error));
        QVERIFY2(error.contains("cannot be made") && error.contains(name), qPrintable(error));
    }
    QVERIFY(QFile::setPermissions(rig.folder.path(), Everyone));
    QString error;
    QVERIFY(!SceneLibrary().open(rig.folder.path(), &error));
    QVERIFY2(error.contains("is a folder"), qPrintable(error));
}

void tst_SceneFile::anotherProgramThatIsWriting()
{
    SceneRig rig;
    rig.fill(2);
    const OtherConnection other(rig.fileName());
    other.run("BEGIN IMMEDIATE");
    other.run("UPDATE scenes SET title = 'Theirs' WHERE slot = 2");
    QString error;
    QVERIFY(!rig.library.store(1, rig.scene(9), &error));
    QVERIFY2(error.contains("in use by another program"), qPrintable(error));
    QCOMPARE(rig.numbers(2), QList({101, 102})); // reading goes on
    SceneLibrary late;
    error.clear();
    QVERIFY(!late.open(rig.fileName(), &error));
    QVERIFY2(error.contains("in use by another program"), qPrintable(error));
    other.run("COMMIT");
    QVERIFY(late.open(rig.fileName()));
    QCOMPARE(late.scene(2).title, QString("Theirs"));
    QVERIFY(rig.library.store(1, rig.scene(9)));
    QCOMPARE(rig.numbers(2), QList({9, 102}));
    QCOMPARE(rig.library.scene(2).title, QString("Theirs"));
}

void tst_SceneFile::damagedScenes_data()
{
    QTest::addColumn<QString>("damage");
    const QString of2 = " WHERE id = (SELECT contents FROM scenes WHERE slot = 2)";
    QTest::newRow("a value") << "UPDATE contents SET data = X'ffffffff' || substr(data, 5)" + of2;
    QTest::newRow("cut short") << "UPDATE contents SET data = substr(data, 1, 400)" + of2;
    QTest::newRow("no values") << "UPDATE contents SET data = X''" + of2;
    QTest::newRow("not even bytes") << "UPDATE contents SET data = 'text'" + of2;
    QTest::newRow("the checksum") << "UPDATE contents SET checksum = X'00'" + of2;
    QTest::newRow("another layout") << "UPDATE contents SET layout = 7" + of2;
}

void tst_SceneFile::damagedScenes()
{
    QFETCH(QString, damage);
    SceneRig rig;
    rig.fill(3);
    rig.library.close();
    OtherConnection(rig.fileName()).run(damage);
    QVERIFY(rig.reopen());
    QString error;
    QVERIFY(!rig.library.recall(2, &error));
    QCOMPARE(error, QString("Scene #002 is damaged."));
    QVERIFY(!rig.library.read(2));
    QCOMPARE(rig.library.scene(2).title, QString("Scene 002"));
    QCOMPARE(rig.numbers(3), QList({101, 0, 103}));
    QVERIFY(rig.library.store(2, rig.scene(9)));
    QCOMPARE(rig.numbers(3), QList({101, 9, 103}));
}

void tst_SceneFile::connectionsAreTheLibrarysOwn()
{
    SceneRig rig;
    rig.fill(1);
    {
        SceneLibrary second;
        QVERIFY(second.open(rig.fileName("second.sqlite")));
        QCOMPARE(QSqlDatabase::connectionNames().size(), 2);
        QVERIFY(second.store(1, rig.scene(5)));
    }
    QCOMPARE(rig.numbers(1), QList({101}));
    QVERIFY(!QSqlDatabase::contains());
    QVERIFY(rig.reopen());
    QCOMPARE(QSqlDatabase::connectionNames().size(), 1);
    rig.library.close();
    QVERIFY(QSqlDatabase::connectionNames().isEmpty());
}

QTEST_MAIN(tst_SceneFile)
#include "tst_SceneFile.moc"

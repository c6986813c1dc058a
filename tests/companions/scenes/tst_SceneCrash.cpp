// SPDX-License-Identifier: MIT
// A program that stores scenes is killed at random moments, again and again. Whatever it reported as
// stored must be there afterwards, whole.
#include "companions/scenes/SceneLibrary.h"
#include "tests/companions/scenes/CrashScenes.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <chrono>
#include <map>
#include <thread>

class tst_SceneCrash : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void whatWasReportedSurvivesBeingKilled();

private:
    void killAWriter();
    void checkLibrary();

    static constexpr int Kills = 50;
    static constexpr int KillsOfOneFile = 10;

    QRandomGenerator m_random;
    QTemporaryDir m_folder;
    QString m_file;
    ParameterMemory m_memory;
    std::map<int, int> m_stored; ///< slot to number of the scene that must be there
    int m_next = 0;              ///< number of the first scene of the next writer
    int m_unreported = 0;        ///< number of the scene that was being stored, or about to be
    int m_whole = 0;             ///< scenes found
    int m_ahead = 0;             ///< libraries that had the unreported one as well
};

void tst_SceneCrash::initTestCase()
{
    QVERIFY(m_memory.load(ParameterMemory::builtInModel()));
    bool given = false;
    const uint seed = qEnvironmentVariableIntValue("SCENE_CRASH_SEED", &given);
    const uint used = given ? seed : QRandomGenerator::global()->bounded(1'000'000U);
    m_random.seed(used);
    qInfo("SCENE_CRASH_SEED=%u repeats this run", used);
}

void tst_SceneCrash::whatWasReportedSurvivesBeingKilled()
{
    for (int kill = 0; kill < Kills; ++kill) {
        if (kill % KillsOfOneFile == 0) {
            m_file = m_folder.filePath(QStringLiteral("scenes-%1.sqlite").arg(kill));
            m_stored.clear();
        }
        killAWriter();
        if (QTest::currentTestFailed())
            return;
        checkLibrary();
        if (QTest::currentTestFailed())
            return;
    }
    qInfo("%d kills: %d scenes were whole; %d times the last one was stored but not reported yet",
          Kills, m_whole, m_ahead);
    QVERIFY(m_whole > Kills);
}

void tst_SceneCrash::killAWriter()
{
    constexpr int mostScenes = 60;
    constexpr int mostMicroseconds = 12'000;
    QProcess writer;
    writer.start(SCENE_WRITER, {m_file, QString::number(m_next)});
    QVERIFY(writer.waitForStarted());
    // Sometimes before it has stored anything, perhaps while it makes the file.
    const int scenes = m_random.bounded(4) == 0 ? 0 : m_random.bounded(1, mostScenes);
    QByteArray output;
    while (output.count('\n') < scenes) {
        QVERIFY2(writer.waitForReadyRead(10'000), writer.readAllStandardError().constData());
        output += writer.readAllStandardOutput();
    }
    const int delay = m_random.bounded(scenes == 0 ? 10 * mostMicroseconds : mostMicroseconds);
    std::this_thread::sleep_for(std::chrono::microseconds(delay));
    writer.kill();
    QVERIFY(writer.waitForFinished());
    QCOMPARE(writer.exitStatus(), QProcess::CrashExit);
    output += writer.readAllStandardOutput();
    for (const QByteArray &line : output.split('\n')) {
        if (line.isEmpty())
            continue;
        QCOMPARE(line.toInt(), m_next);
        m_stored[crashscenes::slotOf(m_next)] = m_next;
        ++m_next;
    }
    m_unreported = m_next++;
}

void tst_SceneCrash::checkLibrary()
{
    SceneLibrary library;
    QString error;
    QVERIFY2(library.open(m_file, &error), qPrintable(error));
    QCOMPARE(library.readOnlyReason(), QString());
    for (int slot = 1; slot <= crashscenes::SlotsInUse; ++slot) {
        const auto found = library.recall(slot);
        QCOMPARE(found.has_value(), library.scene(slot).hasData);
        if (found && found->values.front() == m_unreported) {
            m_stored[slot] = m_unreported; // from now on it must be there, too
            ++m_ahead;
        }
        const auto expected = m_stored.find(slot);
        QCOMPARE(found.has_value(), expected != m_stored.end());
        if (found)
            QCOMPARE(found->values, crashscenes::scene(m_memory, expected->second).values);
        m_whole += found.has_value();
    }
}

QTEST_GUILESS_MAIN(tst_SceneCrash)
#include "tst_SceneCrash.moc"

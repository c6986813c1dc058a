// SPDX-License-Identifier: MIT
// What is recorded is what is read again, and nothing else is taken for a recording.
#include "companions/memory/ParameterMemory.h"
#include "editor/recording/Recorder.h"
#include "editor/recording/Recording.h"
#include "editor/recording/Replay.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QtEndian>
#include <QTest>

class TestRecording : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void changesAreReadAsTheyWereRecorded();
    void everyCutIsTold();
    void hostileFilesAreToldAndNotTaken_data();
    void hostileFilesAreToldAndNotTaken();
    void aReplayEndsWithTheRecordedValues();

private:
    QByteArray recorded();
    std::optional<Recording> read(QByteArray bytes)
    {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        m_error.clear();
        return Recording::readFrom(buffer, &m_error);
    }
    static QByteArray number(quint32 value)
    {
        const quint32 bytes = qToBigEndian(value);
        return QByteArray(reinterpret_cast<const char *>(&bytes), sizeof bytes);
    }

    ParameterMemory m_memory;
    QTemporaryDir m_folder;
    QString m_error;
    QByteArray m_file;      ///< two changes in two frames
    qsizetype m_frames = 0; ///< where they begin
    ParameterSnapshot m_first;
};

void TestRecording::initTestCase()
{
    QVERIFY(m_memory.load(ParameterMemory::builtInModel()));
    m_first = m_memory.snapshot();
    m_file = recorded();
    m_frames = 12 + m_first.layout->description().size() + 4 + 4 * qsizetype(m_first.values.size());
    QCOMPARE(m_file.size(), m_frames + 2 * 16 + 4);
}

QByteArray TestRecording::recorded()
{
    const QString name = m_folder.filePath("traffic");
    IMemAPI::TSingleBaseAddress at;
    if (!m_memory.resolve("kInputFader/kFader", 3, at))
        qFatal("no fader");
    {
        Recorder recorder(m_memory);
        if (!recorder.start(name, &m_error))
            qFatal("%s", qPrintable(m_error));
        for (const int value : {-100, -200}) {
            m_memory.writeValue(at.group, at.index, at.element, value, 0);
            recorder.record();
            recorder.record(); // nothing new: no frame
        }
    }
    QFile file(name);
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

void TestRecording::changesAreReadAsTheyWereRecorded()
{
    const auto recording = read(m_file);
    QVERIFY2(recording, qPrintable(m_error));
    QCOMPARE(recording->first.values, m_first.values);
    QCOMPARE(recording->frames.size(), size_t(2));
    for (const auto &[frame, value] : {std::pair(0, -100), std::pair(1, -200)}) {
        const auto &changes = recording->frames[size_t(frame)].changes;
        QCOMPARE(changes.size(), size_t(1));
        QCOMPARE(changes.front().value, value);
    }
    QCOMPARE(recording->frames[0].changes[0].place, recording->frames[1].changes[0].place);
}

// At every byte of what is not plain values, and of the last ones.
void TestRecording::everyCutIsTold()
{
    for (qsizetype length = 0; length < m_file.size(); ++length) {
        if (length == 200)
            length = m_frames - 20;
        QVERIFY2(!read(m_file.first(length)), qPrintable(QString::number(length)));
        QVERIFY(!m_error.isEmpty());
    }
}

void TestRecording::hostileFilesAreToldAndNotTaken_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("tells");
    const auto with = [this](qsizetype at, quint32 value) {
        return QByteArray(m_file).replace(at, 4, number(value));
    };
    const quint32 huge = 0xfffffff0;
    const qsizetype counted = m_frames - 4 * qsizetype(m_first.values.size()) - 4;
    QTest::newRow("empty") << QByteArray() << "ends";
    QTest::newRow("another file") << QByteArray("<ui version=\"4.0\"></ui>") << "no recording";
    QTest::newRow("later version") << with(4, 2) << "version 2";
    QTest::newRow("endless layout") << with(8, huge) << "ends in the middle";
    QTest::newRow("broken layout")
        << QByteArray(m_file).replace(12, 3, "\xff\n\xff") << "parameters";
    QTest::newRow("endless values") << with(counted, huge) << "ends in the middle";
    QTest::newRow("too few values") << with(counted, 3) << "3 first values";
    QTest::newRow("endless changes") << with(m_frames + 4, huge) << "ends in the middle";
    QTest::newRow("value that is not there") << with(m_frames + 8, huge) << "cannot have changed";
    QTest::newRow("back in time") << with(m_frames, 80'000'000) << "cannot follow";
    QTest::newRow("time without end") << with(m_frames, huge) << "cannot follow";
    QTest::newRow("more after the end") << m_file + "x"
                                        << "follows its end";
}

void TestRecording::hostileFilesAreToldAndNotTaken()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, tells);
    QVERIFY(!read(file));
    QVERIFY2(m_error.contains(tells), qPrintable(m_error));
}

void TestRecording::aReplayEndsWithTheRecordedValues()
{
    const auto recording = read(m_file);
    ParameterMemory other;
    QVERIFY(other.load(ParameterMemory::builtInModel()));
    QVERIFY(replay::run(other, *recording, {":/forms/masters.ui"}));
    QCOMPARE(other.snapshot().values, m_memory.snapshot().values);
    // Without its last parameter it is another console.
    Recording foreign = *recording;
    const QByteArray lines = foreign.first.layout->description();
    const auto fewer = ParameterLayout::fromDescription(
        lines.first(lines.lastIndexOf('\n', lines.size() - 2) + 1));
    if (fewer) {
        foreign.first.layout = std::make_shared<ParameterLayout>(*fewer);
        QVERIFY(!replay::run(other, foreign, {":/forms/masters.ui"}));
    }
}

QTEST_MAIN(TestRecording)
#include "tst_Recording.moc"

// SPDX-License-Identifier: MIT
// The program as its users start it: its files, exit status and messages.
#include "tests/support/Table.h"
#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

class TestEditorProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void screensAreDrawnAlikeEveryTime();
    void picturesLeaveTheOperatorsFilesAlone();
    void scaledScreensHaveMorePixels_data();
    void scaledScreensHaveMorePixels();
    void faultyFormIsToldAndTheRestIsDrawn();
    void failureIsOneLineAndStatusOne_data();
    void failureIsOneLineAndStatusOne();
    void shippedFormsHaveNoFaults();
    void faultsOfFormsAreToldWithAStatus_data();
    void faultsOfFormsAreToldWithAStatus();
    void aSoakFindsNoDifference();
    void referenceHasASectionAndAPictureForEveryClass();
    void helpAndVersionNeedNoDisplay();

private:
    struct Run
    {
        int status;
        QString output;
        QStringList errors; ///< our own lines
    };
    static Run run(const QStringList &arguments);
    QString write(const QString &name, const QByteArray &contents) const;
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

TestEditorProgram::Run TestEditorProgram::run(const QStringList &arguments)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_SCALE_FACTOR"})
        environment.remove(name);
    program.setProcessEnvironment(environment);
    program.start(CONSOLE_EDITOR, arguments);
    if (!program.waitForFinished(60000))
        return {-1, {}, {"did not finish"}};
    QStringList lines =
        QString::fromUtf8(program.readAllStandardError()).split('\n', Qt::SkipEmptyParts);
    // What the platform plugin of the tests and Qt say of themselves.
    lines.removeIf([](const QString &line) {
        return line.startsWith("QStandardPaths") || line.startsWith("This plugin does not support");
    });
    const int status = program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
    return {status, QString::fromUtf8(program.readAllStandardOutput()), lines};
}

QString TestEditorProgram::write(const QString &name, const QByteArray &contents) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

void TestEditorProgram::screensAreDrawnAlikeEveryTime()
{
    for (const char *folder : {"first", "new/second"}) {
        const Run made = run({"--screens", path(folder)});
        QCOMPARE(made.errors, QStringList());
        QCOMPARE(made.status, 0);
    }
    const QStringList names = QDir(path("first")).entryList({"*.png"}, QDir::Files, QDir::Name);
    QCOMPARE(names, QStringList({"bus-patch.png", "channel-strips.png", "dynamics.png",
                                 "head-amps.png", "input-patch.png", "masters.png",
                                 "meter-bridge.png", "scenes.png", "selected-channel.png"}));
    for (const QString &name : names) {
        const QImage first(path("first/" + name));
        QCOMPARE(first.size(), QSize(1280, 800));
        QCOMPARE(first, QImage(path("new/second/" + name)));
    }
}

void TestEditorProgram::picturesLeaveTheOperatorsFilesAlone()
{
    const QString library = path("operators.sqlite");
    QDir(m_folder.path()).mkpath("home");
    qputenv("XDG_DATA_HOME", path("home").toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", path("home").toLocal8Bit());
    const Run made = run({"--screens", path("pictures"), "--library", library});
    qunsetenv("XDG_DATA_HOME");
    qunsetenv("XDG_CONFIG_HOME");
    QCOMPARE(made.status, 0);
    QVERIFY(!QFile::exists(library));
    QVERIFY(QDir(path("home")).isEmpty());
}

void TestEditorProgram::scaledScreensHaveMorePixels_data()
{
    Table<QString, QSize>().row("1.25", "1.25", QSize(1250, 875)).row("2", "2", QSize(2000, 1400));
}

void TestEditorProgram::scaledScreensHaveMorePixels()
{
    const auto [scale, size] = Table<QString, QSize>::fetch();
    const Run made = run({"--screens", path(scale), "--scale", scale, "--size", "1000x700"});
    QCOMPARE(made.status, 0);
    const QImage drawn(path(scale + "/masters.png"));
    QCOMPARE(drawn.size(), size);
}

void TestEditorProgram::faultyFormIsToldAndTheRestIsDrawn()
{
    const QString faulty = write(
        "faulty.ui", "<ui version=\"4.0\"><widget class=\"QWidget\" name=\"P\">"
                     "<layout class=\"QVBoxLayout\"><item><widget class=\"CNoSuch\" name=\"it\"/>"
                     "</item></layout></widget></ui>");
    Run made = run({"--screens", path("faulty"), faulty});
    QCOMPARE(made.status, 0);
    QCOMPARE(made.errors, QStringList(faulty + ": widget 'it': unknown class CNoSuch"));
    QVERIFY(QFile::exists(path("faulty/faulty.png")));

    made = run({"--screens", path("missing"), path("missing.ui"), faulty});
    QCOMPARE(made.status, 1);
    QCOMPARE(made.errors.size(), 2);
    QVERIFY(QFile::exists(path("missing/faulty.png")));
}

void TestEditorProgram::failureIsOneLineAndStatusOne_data()
{
    const QString broken = write("broken.json", "{\"name\": 1, ");
    const QString file = write("file", "in the way");
    const QString screens = path("failing");
    Table<QStringList, QString>()
        .row("model missing", QStringList({"--screens", screens, "--model", path("no.json")}),
             "no.json")
        .row("model broken", QStringList({"--screens", screens, "--model", broken}), "broken.json")
        .row("option unknown", QStringList("--loud"), "loud")
        .row("scale unusable", QStringList({"--screens", screens, "--scale", "0"}), "0")
        .row("JSON of nothing", QStringList("--json"), "--check")
        .row("soak of no time", QStringList({"--soak", "nan"}), "nan")
        .row("recording missing", QStringList({"--replay", path("no")}), "no")
        .row("recording of something else", QStringList({"--replay", broken}), "no recording")
        .row("recording cannot be written", QStringList({"--soak", "1", "--record", file + "/in"}),
             "file/in")
        .row("seed unusable", QStringList({"--soak", "1", "--seed", "-1"}), "-1")
        .row("reference cannot be written", QStringList({"--classes", file + "/in"}), "file/in")
        .row("folder cannot be made", QStringList({"--screens", file + "/in"}), "file/in")
        .row("no display", QStringList(), "--screens");
}

void TestEditorProgram::failureIsOneLineAndStatusOne()
{
    const auto [arguments, tells] = Table<QStringList, QString>::fetch();
    const Run made = run(arguments);
    QCOMPARE(made.status, 1);
    QVERIFY2(made.errors.size() == 1, qPrintable(made.errors.join('\n')));
    QVERIFY2(made.errors.constFirst().contains(tells), qPrintable(made.errors.constFirst()));
}

// The files, so that a form that no screen holds is checked, too.
void TestEditorProgram::shippedFormsHaveNoFaults()
{
    QStringList forms;
    for (const QFileInfo &form : QDir(CONSOLE_FORMS).entryInfoList({"*.ui"}))
        forms << form.filePath();
    QVERIFY(forms.size() > 10);
    const Run files = run(QStringList("--check") + forms);
    QCOMPARE(files.errors, QStringList());
    QCOMPARE(files.output, QString("Forms checked: %1; findings: 0\n").arg(forms.size()));
    QCOMPARE(files.status, 0);
    QCOMPARE(run({"--check"}).status, 0);
}

void TestEditorProgram::faultsOfFormsAreToldWithAStatus_data()
{
    const QString faulty =
        write("faulty.ui", "<ui version=\"4.0\">\n<widget class=\"CDial\" name=\"gain\">\n"
                           "<property name=\"accessibleName\"><string>Gain</string></property>\n"
                           "<property name=\"namedAddress\"><string>kInputHA/kGian</string>"
                           "</property>\n</widget></ui>\n");
    const QString broken = write("broken.ui", "<ui version=\"4.0\">\n<widget");
    const QString told = faulty
                         + ":4: widget 'gain', property 'namedAddress': no parameter "
                           "\"kInputHA/kGian\"; the nearest is \"kInputHA/kGain\"";
    Table<QStringList, int, QStringList, int>()
        .row("fault", QStringList(faulty), 1, QStringList(told), 1)
        .row("twice", QStringList({faulty, faulty}), 1, QStringList(told), 1)
        .row("unreadable, too", QStringList({faulty, broken, path("no.ui")}), 2,
             QStringList({told, broken + ":2: ", path("no.ui") + ": cannot be read: "}), 3);
}

void TestEditorProgram::faultsOfFormsAreToldWithAStatus()
{
    const auto [forms, status, lines, findings] =
        Table<QStringList, int, QStringList, int>::fetch();
    const Run text = run(QStringList("--check") + forms);
    QCOMPARE(text.status, status);
    QCOMPARE(text.errors, QStringList());
    for (const QString &line : lines)
        QVERIFY2(text.output.contains(line), qPrintable(text.output));
    QVERIFY(text.output.endsWith(QString("; findings: %1\n").arg(findings)));

    const Run made = run(QStringList({"--check", "--json"}) + forms);
    QCOMPARE(made.status, status);
    const QJsonObject report = QJsonDocument::fromJson(made.output.toUtf8()).object();
    QCOMPARE(report["forms"].toInt(), forms.size());
    QCOMPARE(report["findings"].toArray().size(), findings);
    const QJsonObject expected{
        {"file", forms.constFirst()}, {"line", 4},
        {"widget", "gain"},           {"property", "namedAddress"},
        {"kind", "address"},          {"reason", "no parameter \"kInputHA/kGian\""},
        {"nearest", "kInputHA/kGain"}};
    QCOMPARE(report["findings"][0].toObject(), expected);
}

// Not its status: how long the GUI thread runs depends on the machine, and on the build.
void TestEditorProgram::aSoakFindsNoDifference()
{
    const Run made =
        run({"--soak", "0.08", "--seed", "7", "--rate", "2000", "--record", path("show")});
    QVERIFY2(made.output.contains("; warnings: 0; differences: 0\n"), qPrintable(made.output));
    const QRegularExpression operations("Operations: ([1-9]\\d*) of the operator");
    QVERIFY2(operations.match(made.output).hasMatch(), qPrintable(made.output));
    QVERIFY(made.status == 0 || made.status == 1);

    const Run again = run({"--replay", path("show"), ":/forms/masters.ui"});
    QCOMPARE(again.errors, QStringList());
    QVERIFY2(again.output.startsWith("Replayed: "), qPrintable(again.output));
    QCOMPARE(again.status, 0);
}

void TestEditorProgram::referenceHasASectionAndAPictureForEveryClass()
{
    const Run made = run({"--classes", path("reference")});
    QCOMPARE(made.errors, QStringList());
    QCOMPARE(made.status, 0);
    QFile file(path("reference/classes.md"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    const QStringList pictures = QDir(path("reference")).entryList({"*.png"});
    QVERIFY(pictures.size() >= 20);
    QCOMPARE(text.count("\n### "), pictures.size());
    for (const QString &picture : pictures) {
        QVERIFY2(text.contains("](" + picture + ")"), qPrintable(picture));
        const QImage drawn(path("reference/" + picture));
        bool plain = true;
        for (int y = 0; y < drawn.height(); ++y) {
            for (int x = 0; x < drawn.width(); ++x)
                plain &= drawn.pixel(x, y) == drawn.pixel(0, 0);
        }
        QVERIFY2(!plain, qPrintable(picture + " shows nothing"));
    }
    for (const char *line :
         {"| `disabledImageIndex` | `int` | -1 | Row of the picture for the disabled dial;",
          "| `meterSelector` | `CMeter::EMeterSelector` | eMtr_Normal | The scale.",
          "| `namedAddress` | `QString` | empty | The parameter's name,",
          "Signals: `changePatchIn(bool connected)`."})
        QCOMPARE(text.count(line), 1);
    // Told once, with its meaning: nothing that form authors set is left unexplained.
    QVERIFY(!text.contains("|  |"));
}

void TestEditorProgram::helpAndVersionNeedNoDisplay()
{
    const Run help = run({"--help"});
    QCOMPARE(help.status, 0);
    for (const char *option :
         {"--model", "--library", "--screens", "--check", "--json", "--classes", "--rate", "--size",
          "--scale", "--soak", "--seed", "--record", "--replay", "FORM"})
        QVERIFY2(help.output.contains(option), option);
    const Run version = run({"--version"});
    QCOMPARE(version.status, 0);
    QVERIFY(version.output.startsWith("console-editor "));
}

QTEST_MAIN(TestEditorProgram)
#include "tst_EditorProgram.moc"

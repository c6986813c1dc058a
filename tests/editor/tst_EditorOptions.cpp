// SPDX-License-Identifier: MIT
#include "editor/EditorOptions.h"

#include <QTest>

class TestEditorOptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void soundCommandLineIsRead();
    void unsoundCommandLineIsRefusedInOneLine_data();
    void unsoundCommandLineIsRefusedInOneLine();
    void onlyAnEditorNeedsADisplay();

private:
    static EditorOptions parse(const QString &line)
    {
        return EditorOptions::parse(QStringList("console-editor")
                                    + line.split(' ', Qt::SkipEmptyParts));
    }
};

void TestEditorOptions::soundCommandLineIsRead()
{
    const EditorOptions options =
        parse("a.ui --rate 50 --model m.json --size 1920x1080 --scale 1.25 --screens out b.ui");
    QCOMPARE(options.error, QString());
    QCOMPARE(options.forms, QStringList({"a.ui", "b.ui"}));
    QCOMPARE(options.model, "m.json");
    QCOMPARE(options.screens, "out");
    QCOMPARE(options.size, QSize(1920, 1080));
    QCOMPARE(options.scale, 1.25);
    QCOMPARE(options.rate, 50);
}

void TestEditorOptions::unsoundCommandLineIsRefusedInOneLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("unknown option") << "--loud";
    QTest::newRow("value missing") << "--rate";
    QTest::newRow("rate negative") << "--rate=-1";
    QTest::newRow("rate no number") << "--rate fast";
    QTest::newRow("size without height") << "--size 1280";
    QTest::newRow("size empty") << "--size 0x800";
    QTest::newRow("size of nobody's screen") << "--size 99999x99999";
    QTest::newRow("scale no number") << "--scale nan";
    QTest::newRow("scale below one") << "--scale 0.5";
}

void TestEditorOptions::unsoundCommandLineIsRefusedInOneLine()
{
    QFETCH(QString, line);
    const EditorOptions options = parse(line);
    QVERIFY(!options.error.isEmpty());
    QVERIFY(!options.error.contains('\n'));
}

void TestEditorOptions::onlyAnEditorNeedsADisplay()
{
    QVERIFY(parse("").needsDisplay());
    QVERIFY(!parse("--screens out").needsDisplay());
    QVERIFY(!parse("--help").needsDisplay());
    // An option may be Qt's own, which Qt takes out only later.
    QVERIFY(parse("-style fusion").needsDisplay());
    QVERIFY(parse("--help").answer.contains("--screens"));
}

QTEST_APPLESS_MAIN(TestEditorOptions)
#include "tst_EditorOptions.moc"

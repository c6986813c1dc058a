// SPDX-License-Identifier: MIT
// Each row is a form with one thing wrong, and the one finding that it is to give.
#include "widgets/forms/FormCheck.h"

#include "companions/memory/ParameterMemory.h"
#include "tests/widgets/forms/FormFile.h"

#include <QElapsedTimer>

class TestFormCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void soundFormHasNoFinding_data();
    void soundFormHasNoFinding();
    void faultIsOneFindingWithItsPlace_data();
    void faultIsOneFindingWithItsPlace();
    void lineIsThatOfTheProperty();
    void repeatedFormIsCheckedForItsFirstAndLastChannel();
    void formThatRepeatsItselfIsTold();
    void withoutAConsoleTheFormItselfIsChecked();
    void hostileFileIsOneFinding_data();
    void hostileFileIsOneFinding();
    void findingsHaveAnEnd();

private:
    FormFindings check(const QByteArray &form);

    FormFolder m_files;
    ParameterMemory m_memory;
};

using F = FormFolder;

namespace {

constexpr char NextItem[] = "</item><item>";

QByteArray named(const QByteArray &properties)
{
    return F::property("accessibleName", "<string>It</string>") + properties;
}

QByteArray text(const QByteArray &name, const QByteArray &value)
{
    return F::property(name, "<string>" + value + "</string>");
}

QByteArray number(const QByteArray &name, int value)
{
    return F::property(name, "<number>" + QByteArray::number(value) + "</number>");
}

QByteArray yes(const QByteArray &name)
{
    return F::property(name, "<bool>true</bool>");
}

QByteArray picture(const QByteArray &name, const QByteArray &file = "strip.png")
{
    return F::property(name, "<pixmap>" + file + "</pixmap>");
}

QByteArray address(const QByteArray &name)
{
    return text("namedAddress", name);
}

/// A form with a widget that has a name for people.
QByteArray with(const QByteArray &className, const QByteArray &properties)
{
    return F::form(F::widget(className, named(properties)));
}

QByteArray grid(const QByteArray &properties)
{
    return with("CGrid", number("horCount", 4) + number("verCount", 6) + properties);
}

} // namespace

void TestFormCheck::initTestCase()
{
    QVERIFY(m_memory.load(ParameterMemory::builtInModel()));
    m_files.writePicture("strip.png"); // 20 x 200
    const auto write = [this](const QString &name, const QSize &size) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::blue);
        QVERIFY(image.save(m_files.folder.filePath(name)));
    };
    write("low.png", {20, 100});
    write("dense.png", {20, 100});
    write("dense@2x.png", {40, 190});
}

FormFindings TestFormCheck::check(const QByteArray &form)
{
    return checkForm(m_files.write("page.ui", form), {&m_memory, &m_memory});
}

void TestFormCheck::soundFormHasNoFinding_data()
{
    QTest::addColumn<QByteArray>("form");
    QTest::newRow("knob with more pictures than values")
        << with("CDial", address("kInputDynamics1/kKnee") + number("nSubImages", 10)
                             + picture("combinedImage"));
    QTest::newRow("knob with fewer pictures than steps") << with(
        "CDial", address("2FkInputHA/kGain") + number("nSubImages", 10) + picture("combinedImage"));
    QTest::newRow("select key on any channel")
        << with("CSelectButton", yes("undoEnable") + address("kSelectedChannel/kChannel")
                                     + number("channelElement", 7));
    QTest::newRow("menu that ends with a separator")
        << with("CPullDownMenu", address("kInputPair/kPair") + text("menuItemList", "ONE;TWO;"));
    QTest::newRow("lists of a grid")
        << grid(text("cellWidths", "5, 6,7") + text("channelTitles", "CH 1..5;ST")
                + text("bitOrder", "0,3:4,3,2,1; 4,5:0;") + text("disabledRects", "(0,0,2,1)"));
    QTest::newRow("channels of several kinds")
        << grid(address("kInputFader/kFader;08kMixFader/kFader"));
    QTest::newRow("label that is no control") << F::form(F::widget("QLabel", {}));
    QTest::newRow("button with a text")
        << F::form(F::widget("QPushButton", text("text", "&amp;Store")));
    QTest::newRow("choice by its name")
        << with("CMeter", F::property("meterSelector", "<enum>CMeter::eMtr_GR</enum>"));
}

void TestFormCheck::soundFormHasNoFinding()
{
    QFETCH(QByteArray, form);
    for (const FormFinding &finding : check(form))
        QFAIL(qPrintable(finding.located()));
}

void TestFormCheck::faultIsOneFindingWithItsPlace_data()
{
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QString>("tells"); ///< a part of the reason, or the nearest address
    const auto row = [](const char *name, const QByteArray &form, const char *kind,
                        const char *property, const char *tells) {
        QTest::newRow(name) << form << QString(kind) << QString(property) << QString(tells);
    };

    row("class unknown", F::form(F::widget("CNoSuch", {})), "class", "", "CNoSuch");
    row("property unknown", with("CDial", text("nameAddress", "x")), "property", "nameAddress",
        "no such");
    row("number that is none", with("CDial", F::property("tableId", "<number>x</number>")),
        "property", "tableId", "\"x\"");
    row("number that wraps", with("CDial", number("nImageCategories", 9)), "property",
        "nImageCategories", "it is 1");
    row("number out of range", grid(number("cursorThickness", 14)), "property", "cursorThickness",
        "it is 3");
    row("choice unknown", with("CMeter", F::property("meterSelector", "<enum>eMtr_Big</enum>")),
        "property", "meterSelector", "eMtr_Big");

    row("picture missing", with("CDial", picture("combinedImage", "none.png")), "picture",
        "combinedImage", "none.png");
    row("rows do not divide", with("CDial", number("nSubImages", 7) + picture("combinedImage")),
        "picture", "combinedImage", "1 columns and 7 rows");
    row("columns do not divide",
        with("COnOffButton",
             number("nSubImages", 4) + number("nImageCategories", 3) + picture("combinedImage")),
        "picture", "combinedImage", "3 columns");
    row("strip that lies",
        with("CPixmapMeter", F::property("subDirection", "<enum>RowImages</enum>")
                                 + number("nSubImages", 8) + picture("combinedImage")),
        "picture", "combinedImage", "8 columns and 1 rows");
    row("key without rows", with("COnOffButton", picture("combinedImage")), "picture",
        "combinedImage", "0 rows");
    row("key with rows too many",
        with("COnOffButton", number("nSubImages", 5) + picture("combinedImage")), "rows",
        "nSubImages", "2 to 4");
    row("disabled picture outside", with("CDial", number("disabledImageIndex", 4)), "rows",
        "disabledImageIndex", "row 4");
    row("lit and unlit differ",
        with("CMeter", picture("meterImage") + picture("meterBgndImage", "low.png")), "picture",
        "meterBgndImage", "20 x 100");
    row("scaled picture of another size", with("CDial", picture("combinedImage", "dense.png")),
        "picture", "combinedImage", "40 x 190");

    row("address unknown", with("CDial", address("05kInputHA/kGian")), "address", "namedAddress",
        "05kInputHA/kGain");
    row("address without the channel", with("CDial", address("30kInputHA/kGain")), "address",
        "namedAddress", "no element");
    row("channel around it does not exist",
        with("CDial", address("kTalkback/kLevel") + number("channelElement", 3)), "address",
        "namedAddress", "no element 3");
    row("state address unknown", with("CThresholdMeter", text("stateNamedAddress", "kInputOn/kNo")),
        "address", "stateNamedAddress", "kInputOn/kOn");
    row("second address of a list unknown", grid(address("kInputFader/kFader;08kMixFader/kFadr")),
        "address", "namedAddress", "kMixFader/kFader");
    row("second address of a list without a count",
        grid(address("kInputFader/kFader;kMixFader/kFader")), "list", "namedAddress", "number");
    row("channels beyond the address",
        with("CGrid", number("verCount", 49) + address("kPatchInInput/kPatchIn")
                          + F::property("valueAsBitMask", "<bool>false</bool>")),
        "address", "namedAddress", "no element 48");
    row("extra address", with("C48V", text("xtraInfo", "somewhere")), "address", "xtraInfo",
        "somewhere");
    row("meter table unknown", with("CPixmapMeter", number("meterTableId", 99)), "address",
        "meterTableId", "99");

    row("knob of one picture",
        with("CDial", address("00kInputHA/kGain") + picture("combinedImage")), "rows", "nSubImages",
        "one picture");
    row("choices that share pictures",
        with("CDial", address("kInputDynamics1/kRatio") + number("nSubImages", 10)
                          + picture("combinedImage")),
        "rows", "nSubImages", "10 pictures for 16 values");
    row("items too few",
        with("CPullDownMenu", address("kInputPair/kPair") + text("menuItemList", "ONE")), "rows",
        "menuItemList", "1 items for 2 values");
    row("key's value beyond the range",
        with("COnOffButton", address("kInputPair/kPair") + number("boolClipValue", 3)), "rows",
        "boolClipValue", "no value 2");
    row("state without a picture",
        with("StateDisplayWidget",
             address("kInputLook/kColour") + number("nSubImages", 8) + picture("combinedImage")),
        "rows", "nSubImages", "8 pictures for 9");
    row("lamp that is never lit",
        with("StateDisplayBit", address("kInputPair/kPair") + number("nSubImages", 2)), "rows",
        "nSubImages", "lamp 2");
    row("lamp without a parameter",
        with("StateDisplayBit",
             address("kInputPair/kPair") + number("nSubImages", 2) + yes("multiMode")),
        "rows", "nSubImages", "lamp 2");
    row("pictures too few for the table",
        with("CPixmapMeter",
             number("meterTableId", 1) + number("nSubImages", 5) + picture("combinedImage")),
        "rows", "nSubImages", "5 pictures for 8");
    row("fields beyond the bits",
        with("CGrid",
             number("horCount", 33) + number("verCount", 4) + address("kInputAssign/kMixMask")),
        "rows", "horCount", "33 fields");

    row("empty item", with("CPullDownMenu", text("menuItemList", "ONE;;TWO")), "list",
        "menuItemList", "number 2");
    row("sorted item that is no number",
        with("CPullDownMenu", yes("sorted") + text("menuItemList", "1;07;2")), "list",
        "menuItemList", "\"07\"");
    row("bound that is no code",
        with("CPixmapMeter", number("nSubImages", 4) + text("boundList", "10;xyz;30")), "list",
        "boundList", "\"xyz\"");
    row("bound below the one before",
        with("CPixmapMeter", number("nSubImages", 4) + text("boundList", "10;30;20")), "list",
        "boundList", "ascend");
    row("bound without a picture", with("CPixmapMeter", text("boundList", "10;30")), "list",
        "boundList", "1 pictures");
    row("bit order malformed", grid(text("bitOrder", "0,3:1,2; 4-5:1")), "list", "bitOrder",
        "\"4-5:1\"");
    row("bit outside", grid(text("bitOrder", "0,3:1,40")), "list", "bitOrder", "\"40\"");
    row("rectangle malformed", grid(text("disabledRects", "(0,0,1,1);(2,2)")), "list",
        "disabledRects", "\"(2,2)\"");
    row("rectangle outside", grid(text("disabledRects", "(6,0,1,1)")), "list", "disabledRects",
        "no cell");
    row("cell size out of range", grid(text("cellWidths", "5,51,7")), "list", "cellWidths",
        "\"51\"");
    row("cell sizes too many", grid(text("cellHeights", "5,5,5,5,5")), "list", "cellHeights",
        "horCount is 4");
    row("cell sizes before the cells",
        with("CGrid", text("gridWidths", "2,2") + number("verCount", 6)), "list", "gridWidths",
        "behind verCount");
    row("titles too many", grid(text("channelTitles", "CH 1..7")), "list", "channelTitles",
        "7 titles for 6");
    row("run that descends", grid(text("fieldTitles", "MIX 4..1")), "list", "fieldTitles",
        "ascending");

    row("name taken",
        F::form(F::widget("CDial", named({})) + NextItem
                + "<widget class=\"QLabel\" name=\"it\"/>"),
        "name", "", "line 7");
    row("no name for people", F::form(F::widget("CDial", {})), "accessibility", "accessibleName",
        "");
    row("button without a text",
        F::form(
            F::widget("QToolButton", F::property("focusPolicy", "<enum>Qt::StrongFocus</enum>"))),
        "accessibility", "accessibleName", "");
    row("slot unknown",
        F::form(F::widget("CDial", named({})),
                "<connections><connection><sender>it</sender><signal>memoryAPIValueChange(int)"
                "</signal><receiver>survivor</receiver><slot>sleep()</slot></connection>"
                "</connections>"),
        "connection", "", "no slot sleep()");
    row("tab stop unknown",
        F::form(F::widget("CDial", named({})), "<tabstops><tabstop>who</tabstop></tabstops>"),
        "connection", "", "'who'");
    row("list without its key", with("CListWidge", text("recallButton", "nobody")), "connection",
        "recallButton", "'nobody'");
    row("list with a label for a key", with("CListWidge", text("storeButton", "survivor")),
        "connection", "storeButton", "no key");
    row("list with a label beside it", with("CListWidge", text("otherList", "survivor")),
        "connection", "otherList", "no list");
    row("form to repeat missing", F::form(F::widget("FormRepeater", text("form", "no.ui"))),
        "contents", "form", "no.ui");
    row("form to repeat not told", F::form(F::widget("FormRepeater", {})), "contents", "form",
        "empty");
}

void TestFormCheck::faultIsOneFindingWithItsPlace()
{
    QFETCH(QByteArray, form);
    QFETCH(QString, kind);
    QFETCH(QString, property);
    QFETCH(QString, tells);
    const FormFindings findings = check(form);
    QStringList lines;
    for (const FormFinding &finding : findings)
        lines << finding.located();
    QVERIFY2(findings.size() == 1, qPrintable(lines.join('\n')));
    const FormFinding &finding = findings.constFirst();
    QCOMPARE(finding.kindName(), kind);
    QCOMPARE(finding.property, property);
    QVERIFY2(finding.text().contains(tells), qPrintable(finding.text()));
    QCOMPARE(finding.file, m_files.folder.filePath("page.ui"));
    QVERIFY(finding.line >= 7);
    if (kind != "connection" || !property.isEmpty())
        QCOMPARE(finding.widget, "it");
}

void TestFormCheck::lineIsThatOfTheProperty()
{
    const FormFindings findings =
        check(F::form(F::widget("CDial", "\n" + named("\n" + address("kNo/kNo") + "\n"))));
    QCOMPARE(findings.size(), 1);
    QCOMPARE(findings.constFirst().line, 9);
    QVERIFY(findings.constFirst().located().startsWith(
        m_files.folder.filePath("page.ui") + ":9: widget 'it', property 'namedAddress': "));
}

void TestFormCheck::repeatedFormIsCheckedForItsFirstAndLastChannel()
{
    const QString strip = m_files.write(
        "strip.ui",
        F::form(
            F::widget("CDial", text("accessibleName", "Input {ch}") + address("kInputHA/kGain"))
            + NextItem
            + F::widget("CDial", text("accessibleName", "Pan {ch}") + address("kInputPan/kNo"))));
    const auto page = [](int channels) {
        return F::form(
            F::widget("FormRepeater", text("form", "strip.ui") + number("channels", channels)));
    };
    FormFindings findings = check(page(48));
    // The name, and the address that no channel has.
    QCOMPARE(findings.size(), 2);
    QCOMPARE(findings.constFirst().file, strip);

    findings = check(page(49));
    QCOMPARE(findings.size(), 3);
    QVERIFY2(findings.constLast().text().contains("no element 48"),
             qPrintable(findings.constLast().text()));
}

void TestFormCheck::formThatRepeatsItselfIsTold()
{
    const FormFindings findings = check(F::form(
        F::widget("FormRepeater", text("form", "page.ui") + number("firstChannel", 1)) + NextItem
        + F::widget("FormRepeater", text("form", "page.ui") + number("firstChannel", 2))));
    QVERIFY(!findings.isEmpty());
    QVERIFY2(findings.constLast().text().contains("itself"),
             qPrintable(findings.constLast().text()));
}

void TestFormCheck::withoutAConsoleTheFormItselfIsChecked()
{
    const QString file =
        m_files.write("page.ui", with("CDial", address("no/no") + text("title", "y")));
    const FormFindings findings = checkForm(file);
    QCOMPARE(findings.size(), 1);
    QCOMPARE(findings.constFirst().property, "title");
}

void TestFormCheck::hostileFileIsOneFinding_data()
{
    QTest::addColumn<QByteArray>("contents");
    const QByteArray opened = "<ui version=\"4.0\">";
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("not XML") << QByteArray("{\"no\": \"form\"}");
    QTest::newRow("bytes of no text") << QByteArray("\xff\xfe\x00\x00<ui>\x80\x81", 10);
    QTest::newRow("other XML") << QByteArray("<html><body/></html>");
    QTest::newRow("no widget") << opened + "<class>X</class></ui>";
    QTest::newRow("cut") << with("CDial", {}).left(200);
    QTest::newRow("widgets nested without end")
        << opened + QByteArray("<widget class=\"QWidget\" name=\"w\">").repeated(100000);
    QTest::newRow("elements nested without end") << opened + QByteArray("<item>").repeated(1000000);
    QTest::newRow("widgets without end")
        << opened + "<widget class=\"QWidget\" name=\"w\">"
               + QByteArray("<widget class=\"QWidget\" name=\"w\"/>").repeated(60000)
               + "</widget></ui>";
    QTest::newRow("entities that multiply")
        << QByteArray("<!DOCTYPE ui [<!ENTITY a \"aaaaaaaaaa\">"
                      "<!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\">"
                      "<!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\">"
                      "<!ENTITY d \"&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;\">]>")
               + opened + "<class>" + QByteArray("&d;").repeated(100) + "</class></ui>";
    QTest::newRow("larger than a form") << opened + QByteArray(65 * 1024 * 1024, ' ') + "</ui>";
}

void TestFormCheck::hostileFileIsOneFinding()
{
    QFETCH(QByteArray, contents);
    QElapsedTimer timer;
    timer.start();
    const FormFindings findings = check(contents);
    QCOMPARE(findings.size(), 1);
    QCOMPARE(findings.constFirst().kindName(), "unreadable");
    QVERIFY(!findings.constFirst().reason.isEmpty());
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));

    for (const QString &name : {m_files.folder.filePath("missing.ui"), m_files.folder.path()})
        QCOMPARE(checkForm(name).value(0).kindName(), "unreadable");
}

void TestFormCheck::findingsHaveAnEnd()
{
    const QByteArray items = QByteArray("x,").repeated(200000);
    const FormFindings findings = check(
        with("CGrid", number("horCount", 32767) + number("verCount", 32767)
                          + text("cellWidths", items) + text("cellHeights", items)
                          + text("channelTitles", QByteArray("A 1..2000000000;").repeated(9999))
                          + address(QByteArray(200000, 'k') + '/' + QByteArray(200000, 'k'))));
    QCOMPARE(findings.size(), MostFormFindings);
}

QTEST_MAIN(TestFormCheck)
#include "tst_FormCheck.moc"

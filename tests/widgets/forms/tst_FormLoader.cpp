// SPDX-License-Identifier: MIT
#include "widgets/forms/FormLoader.h"

#include "tests/widgets/forms/FormFile.h"
#include "widgets/controls/CDial.h"
#include "widgets/forms/FormRepeater.h"
#include "widgets/forms/WidgetRegistry.h"

#include <QLabel>
#include <QMetaProperty>
#include <QRegularExpression>
#include <QSlider>

class TestFormLoader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void faultIsToldInOneLineAndTheRestWorks_data();
    void faultIsToldInOneLineAndTheRestWorks();
    void fileWithoutAFormGivesNoWidget_data();
    void fileWithoutAFormGivesNoWidget();
    void formCutAnywhereIsRefusedWithOneLine();
    void missingClassKeepsItsPlaceInTheLayout();
    void picturesAreFoundBesideTheFormAndShared();
    void connectionsCarryValues();
    void everyRegisteredClassCanBePlaced();
    void numberThatAnEnumerationLacksIsSurvived();
};

using F = FormFolder;

void TestFormLoader::faultIsToldInOneLineAndTheRestWorks_data()
{
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<QString>("problem");
    const auto dial = [](const QByteArray &name, const QByteArray &value) {
        return F::form(F::widget("CDial", F::property(name, value)));
    };
    const auto connection = [](const QByteArray &signal, const QByteArray &receiver,
                               const QByteArray &slot) {
        return F::form(F::widget("QSlider", {}),
                       "<connections><connection><sender>it</sender><signal>" + signal
                           + "</signal><receiver>" + receiver + "</receiver><slot>" + slot
                           + "</slot></connection></connections>");
    };
    QTest::newRow("unknown class")
        << F::form(F::widget("CNoSuch", {})) << "widget 'it': unknown class CNoSuch";
    QTest::newRow("property mistyped")
        << dial("nameAddress", "<string>x/y</string>")
        << "widget 'it', property 'nameAddress': CDial has no such property";
    QTest::newRow("property mistyped and marked as added")
        << F::form(F::widget("CDial", "<property name=\"table\" stdset=\"0\"><number>3</number>"
                                      "</property>"))
        << "widget 'it', property 'table': CDial has no such property";
    QTest::newRow("picture missing")
        << dial("combinedImage", "<pixmap>none.png</pixmap>")
        << "widget 'it', property 'combinedImage': no picture \"none.png\"";
    QTest::newRow("picture that is none")
        << dial("combinedImage", "<pixmap>broken.png</pixmap>")
        << "widget 'it', property 'combinedImage': \".*broken.png\" holds no picture";
    QTest::newRow("icon missing") << F::form(F::widget(
        "QPushButton", F::property("icon", "<iconset><normaloff>no.png</normaloff></iconset>")))
                                  << "widget 'it', property 'icon': no picture \"no.png\"";
    QTest::newRow("number that is none")
        << dial("nSubImages", "<number>many</number>")
        << "widget 'it', property 'nSubImages': \"many\" is no number";
    QTest::newRow("tab stop unknown")
        << F::form(F::widget("QLabel", {}), "<tabstops><tabstop>who</tabstop></tabstops>")
        << "tab stop 'who': no such widget";
    QTest::newRow("signal unknown") << connection("sighed()", "survivor", "clear()")
                                    << "connection from 'it' to 'survivor': no signal sighed\\(\\)";
    QTest::newRow("slot unknown") << connection("valueChanged(int)", "survivor", "sleep()")
                                  << "connection from 'it' to 'survivor': no slot sleep\\(\\)";
    QTest::newRow("receiver unknown") << connection("valueChanged(int)", "nobody", "clear()")
                                      << "connection from 'it' to 'nobody': no widget 'nobody'";
    QTest::newRow("arguments do not fit")
        << connection("valueChanged(int)", "survivor", "setText(QString)")
        << "connection from 'it' to 'survivor': valueChanged\\(int\\) does not fit "
           "setText\\(QString\\)";
}

void TestFormLoader::faultIsToldInOneLineAndTheRestWorks()
{
    QFETCH(QByteArray, form);
    QFETCH(QString, problem);
    FormFolder files;
    files.write("broken.png", "no picture at all");
    const QString file = files.write("page.ui", form);
    const QRegularExpression line("^" + QRegularExpression::escape(file) + ": " + problem + "$");

    QTest::ignoreMessage(QtWarningMsg, line);
    FormLoader loader;
    const std::unique_ptr<QWidget> page(loader.load(file));

    QVERIFY(page);
    QVERIFY(page->findChild<QLabel *>("survivor"));
    QCOMPARE(loader.problems().size(), 1);
    QVERIFY2(line.match(loader.problems().constFirst()).hasMatch(),
             qPrintable(loader.problems().constFirst()));
}

void TestFormLoader::fileWithoutAFormGivesNoWidget_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QString>("problem");
    QTest::newRow("empty") << QByteArray() << "line 1: .*";
    QTest::newRow("not XML") << QByteArray("{\"no\": \"form\"}") << "line 1: .*";
    QTest::newRow("other XML") << QByteArray("<html><body/></html>")
                               << "line 1: not a form: it begins with <html>";
    QTest::newRow("no widget") << QByteArray("<ui version=\"4.0\"><class>X</class></ui>")
                               << "holds no widget";
    QTest::newRow("nested without end")
        << QByteArray("<ui version=\"4.0\">")
               + QByteArray("<widget class=\"QWidget\" name=\"w\">").repeated(5000)
        << "line 1: elements are nested too deeply";
}

void TestFormLoader::fileWithoutAFormGivesNoWidget()
{
    QFETCH(QByteArray, contents);
    QFETCH(QString, problem);
    const FormFolder files;
    const QString file = files.write("page.ui", contents);
    const QRegularExpression line("^" + QRegularExpression::escape(file) + ": " + problem + "$");
    QTest::ignoreMessage(QtWarningMsg, line);
    FormLoader loader;
    QVERIFY(!loader.load(file));
    QCOMPARE(loader.problems().size(), 1);

    const QString missing = files.folder.filePath("missing.ui");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("missing.ui: cannot be read: .+"));
    QVERIFY(!loader.load(missing));
    QCOMPARE(loader.problems().size(), 2);
}

void TestFormLoader::formCutAnywhereIsRefusedWithOneLine()
{
    const FormFolder files;
    const QByteArray whole =
        F::form(F::widget("CDial", F::property("tableId", "<number>3</number>")));
    const qsizetype end = whole.lastIndexOf("</ui>");
    for (qsizetype length = 0; length <= end; ++length) {
        const QString file = files.write("cut.ui", whole.left(length));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("cut.ui: line \\d+: .+"));
        FormLoader loader;
        QVERIFY2(!loader.load(file), qPrintable(QString("cut after %1").arg(length)));
        QCOMPARE(loader.problems().size(), 1);
    }
}

void TestFormLoader::missingClassKeepsItsPlaceInTheLayout()
{
    const FormFolder files;
    const QByteArray size =
        F::property("minimumSize", "<size><width>70</width><height>90</height></size>");
    const QString file = files.write("page.ui", F::form(F::widget("CNoSuch", size)));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("unknown class"));
    FormLoader loader;
    const std::unique_ptr<QWidget> page(loader.load(file));
    page->resize(page->sizeHint());
    page->show();
    const auto *standIn = page->findChild<QWidget *>("it");
    QVERIFY(standIn);
    QVERIFY(standIn->width() >= 70 && standIn->height() >= 90);
    QVERIFY(standIn->accessibleName().contains("CNoSuch"));
}

void TestFormLoader::picturesAreFoundBesideTheFormAndShared()
{
    const FormFolder files;
    files.writePicture("knob.png");
    const QByteArray dial =
        F::widget("CDial", F::property("combinedImage", "<pixmap>knob.png</pixmap>"));
    const QString file = files.write("page.ui", F::form(dial));
    FormLoader loader;
    const std::unique_ptr<QWidget> first(loader.load(file));
    const std::unique_ptr<QWidget> second(loader.load(file));
    const QPixmap picture = first->findChild<CDial *>()->combinedImage();
    QCOMPARE(picture.size(), QSize(20, 200));
    QCOMPARE(second->findChild<CDial *>()->combinedImage().cacheKey(), picture.cacheKey());
    QVERIFY(first->findChild<CDial *>()->dynamicPropertyNames().isEmpty());
    QVERIFY(loader.problems().isEmpty());
}

void TestFormLoader::connectionsCarryValues()
{
    const FormFolder files;
    const QString file = files.write(
        "page.ui", F::form(F::widget("QSlider", {}),
                           "<connections><connection><sender>it</sender>"
                           "<signal>valueChanged( int )</signal><receiver>survivor</receiver>"
                           "<slot>setNum(int)</slot></connection></connections>"));
    FormLoader loader;
    const std::unique_ptr<QWidget> page(loader.load(file));
    page->findChild<QSlider *>()->setValue(42);
    QCOMPARE(page->findChild<QLabel *>()->text(), "42");
}

void TestFormLoader::everyRegisteredClassCanBePlaced()
{
    const FormFolder files;
    for (const WidgetRegistry::Entry &entry : WidgetRegistry::entries()) {
        const QString file = files.write("page.ui", F::form(F::widget(entry.className(), {})));
        FormLoader loader;
        if (entry.metaObject == &FormRepeater::staticMetaObject)
            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression("'it': its property 'form' is empty"));
        const std::unique_ptr<QWidget> page(loader.load(file));
        const QObject *widget = page->findChild<QWidget *>("it");
        QVERIFY(widget);
        QCOMPARE(widget->metaObject(), entry.metaObject);
    }
}

/// What a form sets whose author mistyped an enumerator. The sanitizer has the last word here.
void TestFormLoader::numberThatAnEnumerationLacksIsSurvived()
{
    int properties = 0;
    for (const WidgetRegistry::Entry &entry : WidgetRegistry::entries()) {
        const std::unique_ptr<QWidget> widget(entry.makeSample());
        for (int i = QWidget::staticMetaObject.propertyCount();
             i < entry.metaObject->propertyCount(); ++i) {
            const QMetaProperty property = entry.metaObject->property(i);
            if (!property.isEnumType() || qstrcmp(property.enumerator().scope(), "Qt") == 0)
                continue;
            ++properties;
            for (const int number : {-1, 4711}) {
                property.write(widget.get(), number);
                widget->grab();
            }
        }
    }
    QVERIFY(properties >= 5);
}

QTEST_MAIN(TestFormLoader)
#include "tst_FormLoader.moc"

// SPDX-License-Identifier: MIT
// The plugin in the hands of those that load it: Qt's own loader of forms, and the form editor itself.
#include "companions/memory/ParameterMemory.h"
#include "widgets/forms/FormCheck.h"
#include "widgets/forms/WidgetRegistry.h"

#include <QBuffer>
#include <QDir>
#include <QMainWindow>
#include <QMetaProperty>
#include <QPluginLoader>
#include <QtDesigner/QDesignerActionEditorInterface>
#include <QtDesigner/QDesignerComponents>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerIntegration>
#include <QtDesigner/QDesignerObjectInspectorInterface>
#include <QtDesigner/QDesignerPropertyEditorInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QDesignerWidgetBoxInterface>
#include <QtDesigner/QDesignerWidgetDataBaseInterface>
#include <QtDesigner/QExtensionManager>
#include <QTemporaryDir>
#include <QTest>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QUiLoader>
#include <QWidget>
#include <QXmlStreamReader>

namespace {

/// By widget and property, what a form says where that is one word or line.
using Contents = QMap<QString, QString>;

/// The word or line that a property says, without the scope of a choice.
QString valueOf(QXmlStreamReader &xml)
{
    static const QStringList plain{"string", "number", "bool", "enum", "pixmap", "set"};
    QString value;
    while (xml.readNextStartElement()) {
        if (plain.contains(xml.name().toString()))
            value = xml.readElementText().section("::", -1);
        else
            xml.skipCurrentElement();
    }
    return value;
}

Contents contentsOf(const QByteArray &form)
{
    Contents contents;
    QXmlStreamReader xml(form);
    QStringList owners; ///< names of widgets, and nothing for other elements
    while (!xml.atEnd()) {
        xml.readNext();
        const QString name = xml.attributes().value("name").toString();
        if (xml.isEndElement()) {
            owners.removeLast();
        } else if (xml.isStartElement()) {
            const bool isWidget = xml.name() == u"widget";
            if (isWidget)
                contents.insert(name, xml.attributes().value("class").toString());
            const QString owner = owners.value(owners.size() - 1);
            if (xml.name() == u"property" && !owner.isEmpty())
                contents.insert(owner + '.' + name, valueOf(xml));
            else
                owners << (isWidget ? name : QString());
        }
    }
    return contents;
}

QByteArray read(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(fileName));
    return file.readAll();
}

bool isPlain(const QImage &picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != picture.pixel(0, 0))
                return false;
        }
    }
    return true;
}

QString formOf(const QString &inner)
{
    return "<ui version=\"4.0\"><class>P</class><widget class=\"QWidget\" name=\"P\">" + inner
           + "</widget></ui>";
}

} // namespace

class TestDesignerPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyClassIsOffered_data() { everyClass(); }
    void everyClassIsOffered();
    void everyPropertyIsDescribed_data() { everyClass(); }
    void everyPropertyIsDescribed();
    void whatIsDroppedLooksLikeTheClass_data() { everyClass(); }
    void whatIsDroppedLooksLikeTheClass();
    void editorMakesAndSavesEveryClass_data() { everyClass(); }
    void editorMakesAndSavesEveryClass();
    void editorSavesFormsAsTheyWere_data();
    void editorSavesFormsAsTheyWere();
    void editedPropertyShowsAtOnce();

private:
    void everyClass();
    QDesignerCustomWidgetInterface *offered(const QString &className) const;
    std::unique_ptr<QDesignerFormWindowInterface> open(const QString &form);

    QList<QDesignerCustomWidgetInterface *> m_offered;
    QMainWindow m_window;
    QDesignerFormEditorInterface *m_editor = nullptr;
};

void TestDesignerPlugin::initTestCase()
{
    QPluginLoader loader(CONSOLE_PLUGIN);
    const auto *plugin =
        qobject_cast<QDesignerCustomWidgetCollectionInterface *>(loader.instance());
    QVERIFY2(plugin, qPrintable(loader.errorString()));
    m_offered = plugin->customWidgets();
    QCOMPARE(size_t(m_offered.size()), WidgetRegistry::entries().size());

    QCoreApplication::addLibraryPath(CONSOLE_PLUGINS);
    QDesignerComponents::initializeResources();
    m_editor = QDesignerComponents::createFormEditor(this);
    // As the form editor puts itself together.
    QMainWindow &window = m_window;
    m_editor->setTopLevel(&window);
    m_editor->setWidgetBox(QDesignerComponents::createWidgetBox(m_editor, &window));
    m_editor->setPropertyEditor(QDesignerComponents::createPropertyEditor(m_editor, &window));
    m_editor->setObjectInspector(QDesignerComponents::createObjectInspector(m_editor, &window));
    m_editor->setActionEditor(QDesignerComponents::createActionEditor(m_editor, &window));
    new QDesignerIntegration(m_editor, this);
    QDesignerComponents::initializePlugins(m_editor);
    QDesignerComponents::createTaskMenu(m_editor, this);
}

void TestDesignerPlugin::everyClass()
{
    QTest::addColumn<QString>("className");
    for (const WidgetRegistry::Entry &entry : WidgetRegistry::entries())
        QTest::newRow(entry.className()) << QString::fromLatin1(entry.className());
}

QDesignerCustomWidgetInterface *TestDesignerPlugin::offered(const QString &className) const
{
    for (QDesignerCustomWidgetInterface *each : m_offered) {
        if (each->name() == className)
            return each;
    }
    return nullptr;
}

std::unique_ptr<QDesignerFormWindowInterface> TestDesignerPlugin::open(const QString &form)
{
    std::unique_ptr<QDesignerFormWindowInterface> window(
        m_editor->formWindowManager()->createFormWindow());
    if (!window->setContents(form))
        qFatal("the editor does not open the form");
    return window;
}

void TestDesignerPlugin::everyClassIsOffered()
{
    QFETCH(QString, className);
    QDesignerCustomWidgetInterface *widget = offered(className);
    QVERIFY(widget);
    for (const QString &text : {widget->group(), widget->toolTip(), widget->whatsThis()})
        QVERIFY(!text.isEmpty());
    QVERIFY2(QFile::exists(CONSOLE_SOURCE "/" + widget->includeFile()),
             qPrintable(widget->includeFile()));
    // The drawn one; a widget without one is shown by itself, which tells little at this size.
    QVERIFY2(QFile::exists(":/images/class-" + className + "@2x.png"), "no icon is drawn for it");
    QCOMPARE(widget->icon().actualSize({24, 24}), QSize(24, 24));
    const std::unique_ptr<QWidget> made(widget->createWidget(nullptr));
    QCOMPARE(made->metaObject(), WidgetRegistry::find(className)->metaObject);
}

void TestDesignerPlugin::everyPropertyIsDescribed()
{
    QFETCH(QString, className);
    const QMetaObject &meta = *WidgetRegistry::find(className)->metaObject;
    const QString xml = offered(className)->domXml();
    for (int index = 0; index < meta.propertyCount(); ++index) {
        const QMetaProperty property = meta.property(index);
        if (WidgetRegistry::find(QString::fromLatin1(property.enclosingMetaObject()->className())))
            QVERIFY2(xml.contains(QString("<tooltip name=\"%1\">").arg(property.name())),
                     property.name());
    }
    QCOMPARE(xml.count("<tooltip name=\"namedAddress\">The parameter's name"),
             meta.indexOfProperty("namedAddress") < 0 ? 0 : 1);
}

void TestDesignerPlugin::whatIsDroppedLooksLikeTheClass()
{
    QFETCH(QString, className);
    const WidgetRegistry::Entry &entry = *WidgetRegistry::find(className);
    QByteArray xml = offered(className)->domXml().toUtf8();
    QBuffer buffer(&xml);
    buffer.open(QIODevice::ReadOnly);
    QUiLoader loader;
    loader.addPluginPath(QFileInfo(CONSOLE_PLUGIN).path());
    const std::unique_ptr<QWidget> dropped(loader.load(&buffer));
    QVERIFY(dropped);
    QCOMPARE(dropped->metaObject(), entry.metaObject);
    dropped->ensurePolished();
    QCOMPARE(dropped->size(), entry.size);

    // Its pictures divide, its lists are whole, and nothing is written that it does not have.
    const QTemporaryDir folder;
    QFile file(folder.filePath("page.ui"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(xml) == xml.size());
    file.close();
    for (const FormFinding &finding : checkForm(file.fileName())) {
        if (finding.kind != FormFinding::Accessibility && finding.kind != FormFinding::Contents)
            QFAIL(qPrintable(finding.located()));
    }
}

void TestDesignerPlugin::editorMakesAndSavesEveryClass()
{
    QFETCH(QString, className);
    QDesignerWidgetDataBaseInterface *classes = m_editor->widgetDataBase();
    const int known = classes->indexOfClassName(className);
    QVERIFY(known >= 0);
    QVERIFY(classes->item(known)->isCustom());
    QCOMPARE(classes->item(known)->group(), offered(className)->group());

    QString inner = offered(className)->domXml();
    inner = inner.mid(inner.indexOf("<widget"));
    inner.truncate(inner.indexOf("<customwidgets>"));
    const auto window = open(formOf(inner));
    const QString name = className.at(0).toLower() + className.mid(1);
    auto *made = window->mainContainer()->findChild<QWidget *>(name);
    QVERIFY(made);
    QCOMPARE(made->metaObject(), WidgetRegistry::find(className)->metaObject);
    // A widget that paints nothing cannot be found again on a form.
    QVERIFY2(!isPlain(made->grab().toImage()) || className == "FormRepeater", "nothing to be seen");
    const Contents saved = contentsOf(window->contents().toUtf8());
    for (const WidgetRegistry::Property &property : WidgetRegistry::find(className)->start)
        QCOMPARE(saved.value(name + '.' + property.name), QString::fromLatin1(property.value));
}

void TestDesignerPlugin::editorSavesFormsAsTheyWere_data()
{
    QTest::addColumn<QString>("form");
    for (const QFileInfo &form : QDir(CONSOLE_SOURCE "/forms").entryInfoList({"*.ui"}))
        QTest::newRow(qPrintable(form.fileName())) << form.filePath();
}

void TestDesignerPlugin::editorSavesFormsAsTheyWere()
{
    QFETCH(QString, form);
    const QByteArray written = read(form);
    const QByteArray saved = open(QString::fromUtf8(written))->contents().toUtf8();
    const Contents before = contentsOf(written);
    const Contents after = contentsOf(saved);
    for (auto each = before.begin(); each != before.end(); ++each)
        QVERIFY2(after.value(each.key()) == *each,
                 qPrintable(QString("%1 was \"%2\" and is \"%3\"")
                                .arg(each.key(), *each, after.value(each.key()))));

    // The forms that it holds lie beside it.
    const QTemporaryDir folder;
    for (const QFileInfo &other : QDir(CONSOLE_SOURCE "/forms").entryInfoList({"*.ui"}))
        QVERIFY(QFile::copy(other.filePath(), folder.filePath(other.fileName())));
    QFile file(folder.filePath(QFileInfo(form).fileName()));
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(saved) == saved.size());
    file.close();
    ParameterMemory memory;
    QVERIFY(memory.load(ParameterMemory::builtInModel()));
    for (const FormFinding &finding : checkForm(file.fileName(), {&memory, &memory}))
        QFAIL(qPrintable(finding.located()));
}

void TestDesignerPlugin::editedPropertyShowsAtOnce()
{
    const auto window = open(formOf("<widget class=\"CDial\" name=\"it\">"
                                    "<property name=\"nSubImages\"><number>121</number></property>"
                                    "<property name=\"combinedImage\"><pixmap>"
                                    ":/images/knob-amber.png</pixmap></property></widget>"));
    auto *dial = window->mainContainer()->findChild<QWidget *>("it");
    dial->resize(56, 56);
    const QImage lowest = dial->grab().toImage();
    auto *sheet =
        qt_extension<QDesignerPropertySheetExtension *>(m_editor->extensionManager(), dial);
    QVERIFY(sheet);
    const int inverted = sheet->indexOf("inverted");
    QCOMPARE(sheet->propertyGroup(inverted), "CDial");
    sheet->setProperty(inverted, true);
    QVERIFY(dial->grab().toImage() != lowest);
    sheet->setProperty(sheet->indexOf("namedAddress"), "kNo/kNo");
    QCOMPARE(dial->property("namedAddress").toString(), "kNo/kNo");
}

QTEST_MAIN(TestDesignerPlugin)
#include "tst_DesignerPlugin.moc"

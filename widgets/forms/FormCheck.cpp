// SPDX-License-Identifier: MIT
#include "widgets/forms/FormCheck.h"

#include "widgets/forms/FormBuilder.h"
#include "widgets/forms/FormRepeater.h"
#include "widgets/forms/FormRules.h"
#include "widgets/forms/PictureStore.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>

#include <algorithm>

namespace {

/// Forms inside a form, once per channel that is looked at.
constexpr qsizetype mostForms = 1000;

QString tr(const char *source)
{
    return QCoreApplication::translate("FormCheck", source);
}

/// A form, and what came out of it.
struct Sheet
{
    QString file;
    int channel = 0;
    PreparedForm form;
    BuiltForm built;
    std::unique_ptr<QWidget> root;
    FormFindings findings;

    int element() const { return channel > 0 ? channel - 1 : 0; }
    QString text(const QString &written) const { return FormBuilder::forChannel(written, channel); }
};

/// The element that holds for a widget: of the nearest widget around it that tells one.
int elementAround(const QWidget *widget, int given)
{
    for (; widget; widget = widget->parentWidget()) {
        const QVariant own = widget->property(IMemAPI::ElementProperty);
        if (own.isValid())
            return own.toInt();
    }
    return given;
}

class Check
{
public:
    explicit Check(const FormConsole &console) : m_console(console) {}

    void checkFile(const QString &file, int channel);

    FormFindings findings;

private:
    void build(Sheet &sheet);
    void locate(Sheet &sheet);
    void checkNames(Sheet &sheet);
    void checkWidgets(Sheet &sheet);
    void checkWidget(const CheckedWidget &widget, int element);
    void checkRepeated(Sheet &sheet, const FormRepeater &repeater);
    void add(Sheet &sheet);

    const FormConsole m_console;
    FormBuilder m_builder;
    QSet<std::pair<QString, int>> m_done; ///< files and channels
    QStringList m_around;                 ///< the forms that hold the present one
};

void Check::checkFile(const QString &file, int channel)
{
    if (m_done.contains({file, channel}) || m_done.size() >= mostForms)
        return;
    m_done.insert({file, channel});
    Sheet sheet{file, channel, FormReader(file).read(), {}, {}, {}};
    sheet.findings = sheet.form.findings;
    if (!sheet.form.xml.isEmpty())
        build(sheet);
    add(sheet);
    if (!sheet.root)
        return;
    const QList<FormRepeater *> repeaters = sheet.root->findChildren<FormRepeater *>();
    m_around << file;
    for (const FormRepeater *repeater : repeaters)
        checkRepeated(sheet, *repeater);
    m_around.removeLast();
}

void Check::build(Sheet &sheet)
{
    const bool forChannels =
        sheet.form.xml.contains("{ch}") || sheet.form.xml.contains("{element}");
    if (sheet.channel == 0 && forChannels)
        sheet.channel = 1;
    sheet.built = m_builder.build(sheet.form, sheet.file, sheet.channel, nullptr);
    sheet.root.reset(sheet.built.root);
    locate(sheet);
    sheet.findings += sheet.built.findings;
    if (!sheet.root)
        return;
    checkNames(sheet);
    checkWidgets(sheet);
}

/// The builder knows no lines.
void Check::locate(Sheet &sheet)
{
    QHash<QString, const FormObject *> objects;
    for (const FormObject &object : std::as_const(sheet.form.objects))
        objects.insert(sheet.text(object.name), objects.value(sheet.text(object.name), &object));
    for (FormFinding &finding : sheet.built.findings) {
        const FormObject *object = objects.value(finding.widget);
        if (finding.line > 0 || !object)
            continue;
        const FormObject::Property *property = object->property(finding.property);
        finding.line = property ? property->line : object->line;
    }
}

void Check::checkNames(Sheet &sheet)
{
    QHash<QString, int> lines;
    for (const FormObject &object : std::as_const(sheet.form.objects)) {
        const QString name = sheet.text(object.name);
        if (name.isEmpty())
            continue;
        if (const int first = lines.value(name); first > 0) {
            FormFinding finding;
            finding.kind = FormFinding::Name;
            finding.line = object.line;
            finding.widget = name;
            finding.reason = tr("the name is taken in line %1").arg(first);
            sheet.findings << finding;
        } else {
            lines.insert(name, object.line);
        }
    }
}

// The builder makes what stands in layouts and what does not one after the other, so that the order is
// not always that of the file; names are, or else it is told.
void Check::checkWidgets(Sheet &sheet)
{
    QHash<QString, QList<QWidget *>> made;
    for (const QPointer<QWidget> &widget : std::as_const(sheet.built.widgets)) {
        if (widget)
            made[widget->objectName()].append(widget);
    }
    for (const FormObject &object : std::as_const(sheet.form.objects)) {
        if (!object.isWidget || sheet.findings.size() >= MostFormFindings)
            continue;
        QList<QWidget *> &named = made[sheet.text(object.name)];
        if (named.isEmpty())
            continue;
        QWidget *widget = named.takeFirst();
        const CheckedWidget checked{object, *widget, sheet.channel, sheet.findings};
        checkWidget(checked, elementAround(widget, sheet.element()));
        formrules::checkKeys(checked, *sheet.root);
    }
}

void Check::checkWidget(const CheckedWidget &widget, int element)
{
    formrules::checkValues(widget);
    formrules::checkPictures(widget);
    formrules::checkLists(widget);
    formrules::checkAccessibility(widget);
    if (m_console.names)
        formrules::checkAddresses(widget, element, *m_console.names);
    formrules::checkRange(widget, element, m_console);
}

void Check::checkRepeated(Sheet &sheet, const FormRepeater &repeater)
{
    const QString file =
        QDir::cleanPath(QFileInfo(sheet.file).absoluteDir().filePath(repeater.form()));
    QString fault = repeater.fault();
    if (fault.isEmpty()
        && (m_around.contains(file) || m_around.size() >= FormRepeater::DeepestForm))
        fault = tr("the form contains itself");
    else if (fault.isEmpty() && !QFileInfo(file).isFile())
        fault = tr("there is no form \"%1\"").arg(repeater.form());
    if (fault.isEmpty()) {
        checkFile(file, repeater.firstChannel());
        if (repeater.lastChannel() > repeater.firstChannel())
            checkFile(file, repeater.lastChannel());
        return;
    }
    Sheet told{sheet.file, 0, {}, {}, {}, {}};
    FormFinding finding;
    finding.kind = FormFinding::Contents;
    finding.widget = repeater.objectName();
    finding.property = "form";
    finding.reason = fault;
    sheet.built.findings = {finding};
    locate(sheet);
    told.findings = sheet.built.findings;
    add(told);
}

/// Adds what is new: another channel of the same form has most faults again.
void Check::add(Sheet &sheet)
{
    FormFindings &found = sheet.findings;
    std::stable_sort(
        found.begin(), found.end(),
        [](const FormFinding &one, const FormFinding &other) { return one.line < other.line; });
    const auto before = findings.size();
    for (FormFinding &finding : found) {
        finding.file = sheet.file;
        const bool known = std::any_of(
            findings.cbegin(), findings.cbegin() + before, [&finding](const FormFinding &other) {
                return other.file == finding.file && other.line == finding.line
                       && other.kind == finding.kind && other.property == finding.property
                       && other.reason == finding.reason;
            });
        if (!known && findings.size() < MostFormFindings)
            findings << finding;
    }
}

} // namespace

FormFindings checkForm(const QString &fileName, const FormConsole &console)
{
    Check check(console);
    check.checkFile(QDir::cleanPath(fileName), 0);
    picturestore::dropUnused();
    return check.findings;
}

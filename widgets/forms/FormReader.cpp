// SPDX-License-Identifier: MIT
#include "widgets/forms/FormReader.h"

#include "widgets/forms/PictureStore.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>

namespace {

// The builder recurses over the elements; no form made by hand comes near this.
constexpr int deepestNesting = 200;
// A screen of thousands of controls takes a few megabytes.
constexpr qint64 largestFile = 64 * 1024 * 1024;
constexpr qsizetype mostObjects = 50'000;

QString tr(const char *source)
{
    return QCoreApplication::translate("FormLoader", source);
}

bool isValidText(const QString &kind, const QString &value)
{
    bool valid = true;
    if (kind == QLatin1StringView("number"))
        value.toInt(&valid);
    else if (kind == QLatin1StringView("double"))
        value.toDouble(&valid);
    else
        valid = value == QLatin1StringView("true") || value == QLatin1StringView("false");
    return valid;
}

} // namespace

const FormObject::Property *FormObject::property(const QString &propertyName) const
{
    const auto found =
        std::find_if(properties.begin(), properties.end(),
                     [&propertyName](const Property &each) { return each.name == propertyName; });
    return found == properties.end() ? nullptr : &*found;
}

FormReader::FormReader(const QString &fileName)
    : m_file(fileName), m_folder(QFileInfo(fileName).absoluteDir()), m_out(&m_form.xml)
{
}

PreparedForm FormReader::read()
{
    const QFileInfo info(m_file);
    if (info.exists() && !info.isFile()) {
        refuse(0, tr("cannot be read: it is no file"));
    } else if (!m_file.open(QIODevice::ReadOnly)) {
        refuse(0, tr("cannot be read: %1").arg(m_file.errorString()));
    } else if (m_file.size() > largestFile) {
        refuse(0, tr("is larger than %1 MiB").arg(largestFile / (1024 * 1024)));
    } else {
        m_in.setDevice(&m_file);
        readForm();
        while (!m_in.atEnd())
            m_in.readNext();
        if (m_in.hasError())
            refuse(line(), m_in.errorString().simplified());
    }
    return m_form;
}

/// Nothing of the form is used.
void FormReader::refuse(int atLine, const QString &reason)
{
    m_form = {};
    FormFinding finding;
    finding.kind = FormFinding::Unreadable;
    finding.file = m_file.fileName();
    finding.line = atLine;
    finding.reason = reason;
    m_form.findings = {finding};
}

void FormReader::readForm()
{
    if (m_in.readNextStartElement() && m_in.name() != QLatin1StringView("ui")) {
        m_in.raiseError(tr("not a form: it begins with <%1>").arg(m_in.name()));
        return;
    }
    m_out.writeStartElement("ui");
    m_out.writeAttributes(m_in.attributes());
    while (m_in.readNextStartElement()) {
        const auto name = m_in.name();
        if (name == QLatin1StringView("tabstops"))
            readTabStops();
        else if (name == QLatin1StringView("connections"))
            readConnections();
        else if (name == QLatin1StringView("resources"))
            m_in.skipCurrentElement();
        else
            readElement();
    }
    writeTabStops();
    m_out.writeEndElement();
}

// One element and all that it holds, as they are, except for what has a reader of its own.
void FormReader::readElement()
{
    if (m_in.name() == QLatin1StringView("widget")) {
        readWidget();
        return;
    }
    readObject();
    m_out.writeStartElement(m_in.name().toString());
    m_out.writeAttributes(m_in.attributes());
    readContents();
    m_out.writeEndElement();
}

void FormReader::readContents()
{
    if (++m_depth > deepestNesting)
        m_in.raiseError(tr("elements are nested too deeply"));
    for (;;) {
        const auto token = m_in.readNext();
        if (token == QXmlStreamReader::StartElement)
            readElement();
        else if (token == QXmlStreamReader::Characters)
            m_out.writeCharacters(m_in.text().toString());
        else if (token == QXmlStreamReader::EndElement || token == QXmlStreamReader::Invalid)
            break;
    }
    --m_depth;
}

void FormReader::readWidget()
{
    if (++m_depth > deepestNesting)
        m_in.raiseError(tr("elements are nested too deeply"));
    const QXmlStreamAttributes attributes = m_in.attributes();
    FormObject widget;
    widget.name = attributes.value("name").toString();
    widget.className = attributes.value("class").toString();
    widget.line = line();
    m_names.insert(widget.name);
    m_widgets.append(m_form.objects.size());
    add(widget);
    m_out.writeStartElement("widget");
    m_out.writeAttributes(m_in.attributes());
    while (m_in.readNextStartElement()) {
        if (m_in.name() == QLatin1StringView("property"))
            readProperty();
        else
            readElement();
    }
    m_out.writeEndElement();
    m_widgets.removeLast();
    --m_depth;
}

// What else has a name that may be asked for: connections do.
void FormReader::readObject()
{
    static const QSet<QString> named{"layout", "spacer", "action", "actiongroup", "buttongroup"};
    if (!named.contains(m_in.name().toString()))
        return;
    FormObject object;
    object.name = m_in.attributes().value("name").toString();
    object.className = m_in.name().toString();
    object.line = line();
    object.isWidget = false;
    add(object);
}

void FormReader::add(const FormObject &object)
{
    if (m_form.objects.size() >= mostObjects)
        m_in.raiseError(tr("there are more than %1 objects").arg(mostObjects));
    m_form.objects.append(object);
}

void FormReader::readProperty()
{
    m_propertyLine = line();
    const QXmlStreamAttributes attributes = m_in.attributes();
    const QString property = attributes.value("name").toString();
    if (attributes.value("stdset") == QLatin1StringView("0"))
        m_form.addedProperties.insert(property.toUtf8());
    if (!m_in.readNextStartElement())
        return;
    static const QSet<QString> plain{"number", "double", "bool"};
    static const QSet<QString> text{"string", "cstring", "enum", "set"};
    if (m_in.name() == QLatin1StringView("pixmap")) {
        readPicture(property);
    } else if (m_in.name() == QLatin1StringView("iconset")) {
        readIcon(property);
    } else if (plain.contains(m_in.name().toString())) {
        readPlainValue(property);
    } else {
        m_out.writeStartElement("property");
        m_out.writeAttributes(attributes);
        if (text.contains(m_in.name().toString())) {
            readText(property);
        } else {
            note(property, m_in.name().toString(), {});
            readElement();
        }
        m_out.writeEndElement();
    }
    m_in.skipCurrentElement();
}

void FormReader::readText(const QString &property)
{
    const QString kind = m_in.name().toString();
    m_out.writeStartElement(kind);
    m_out.writeAttributes(m_in.attributes());
    const QString text = m_in.readElementText();
    m_out.writeCharacters(text);
    m_out.writeEndElement();
    note(property, kind, text);
}

void FormReader::readPicture(const QString &property)
{
    const QString file = pictureFile(property, m_in.readElementText());
    note(property, "pixmap", file);
    if (!file.isEmpty())
        writeProperty(PreparedForm::PicturePrefix + property, "string", file);
}

void FormReader::readIcon(const QString &property)
{
    m_out.writeStartElement("property");
    m_out.writeAttribute("name", property);
    m_out.writeStartElement("iconset");
    m_out.writeAttributes(m_in.attributes());
    while (m_in.readNextStartElement()) {
        const QString state = m_in.name().toString();
        const QString file = pictureFile(property, m_in.readElementText());
        if (!file.isEmpty())
            m_out.writeTextElement(state, file);
    }
    m_out.writeEndElement();
    m_out.writeEndElement();
}

void FormReader::readPlainValue(const QString &property)
{
    const QString kind = m_in.name().toString();
    const QString value = m_in.readElementText().trimmed();
    note(property, kind, value);
    if (isValidText(kind, value))
        writeProperty(property, kind, value);
    else
        report(FormFinding::Property, property, tr("\"%1\" is no %2").arg(value, kind));
}

void FormReader::readTabStops()
{
    while (m_in.readNextStartElement()) {
        const int at = line();
        m_tabStops.append({m_in.readElementText(), at});
    }
}

void FormReader::readConnections()
{
    while (m_in.readNextStartElement()) {
        PreparedForm::Connection connection;
        connection.line = line();
        while (m_in.readNextStartElement()) {
            const QString part = m_in.name().toString();
            const QString text = m_in.readElementText(QXmlStreamReader::IncludeChildElements);
            if (part == QLatin1StringView("sender"))
                connection.sender = text;
            else if (part == QLatin1StringView("signal"))
                connection.signal = text;
            else if (part == QLatin1StringView("receiver"))
                connection.receiver = text;
            else if (part == QLatin1StringView("slot"))
                connection.slot = text;
        }
        m_form.connections.append(connection);
    }
}

void FormReader::writeTabStops()
{
    m_out.writeStartElement("tabstops");
    for (const auto &[name, at] : std::as_const(m_tabStops)) {
        if (m_names.contains(name)) {
            m_out.writeTextElement("tabstop", name);
            continue;
        }
        FormFinding finding;
        finding.kind = FormFinding::Connection;
        finding.line = at;
        finding.reason = tr("tab stop '%1': no such widget").arg(name);
        m_form.findings << finding;
    }
    m_out.writeEndElement();
}

void FormReader::writeProperty(const QString &name, const QString &kind, const QString &value)
{
    m_out.writeStartElement("property");
    m_out.writeAttribute("name", name);
    m_out.writeStartElement(kind);
    if (kind == QLatin1StringView("string"))
        m_out.writeAttribute("notr", "true");
    m_out.writeCharacters(value);
    m_out.writeEndElement();
    m_out.writeEndElement();
}

/// The picture's file; empty, and reported, when there is none.
QString FormReader::pictureFile(const QString &property, const QString &name)
{
    const QString file = picturestore::fileFor(m_folder.absoluteFilePath(name.trimmed()));
    if (file.isEmpty())
        report(FormFinding::Picture, property, tr("no picture \"%1\"").arg(name.trimmed()));
    return file;
}

/// Notes what the present property of the present widget says.
void FormReader::note(const QString &property, const QString &kind, const QString &text)
{
    if (!m_widgets.isEmpty())
        m_form.objects[m_widgets.last()].properties.append({property, kind, text, m_propertyLine});
}

void FormReader::report(FormFinding::Kind kind, const QString &property, const QString &reason)
{
    FormFinding finding;
    finding.kind = kind;
    finding.line = m_propertyLine;
    finding.widget = m_widgets.isEmpty() ? QString() : m_form.objects.at(m_widgets.last()).name;
    finding.property = property;
    finding.reason = reason;
    m_form.findings << finding;
}

// SPDX-License-Identifier: MIT
#include "widgets/forms/FormReader.h"

#include "widgets/forms/PictureStore.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

// The builder recurses over the elements; no form made by hand comes near this.
constexpr int deepestNesting = 200;

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

FormReader::FormReader(const QString &fileName)
    : m_file(fileName), m_folder(QFileInfo(fileName).absoluteDir()), m_out(&m_form.xml)
{
}

PreparedForm FormReader::read()
{
    if (!m_file.open(QIODevice::ReadOnly)) {
        m_form.problems << tr("cannot be read: %1").arg(m_file.errorString());
        return m_form;
    }
    m_in.setDevice(&m_file);
    readForm();
    while (!m_in.atEnd())
        m_in.readNext();
    if (m_in.hasError()) {
        m_form.xml.clear();
        m_form.problems = {
            tr("line %1: %2").arg(m_in.lineNumber()).arg(m_in.errorString().simplified())};
    }
    return m_form;
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
    const QString name = m_in.attributes().value("name").toString();
    m_names.insert(name);
    m_widgets.append(name);
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

void FormReader::readProperty()
{
    const QXmlStreamAttributes attributes = m_in.attributes();
    const QString property = attributes.value("name").toString();
    if (attributes.value("stdset") == QLatin1StringView("0"))
        m_form.addedProperties.insert(property.toUtf8());
    if (!m_in.readNextStartElement())
        return;
    static const QSet<QString> plain{"number", "double", "bool"};
    if (m_in.name() == QLatin1StringView("pixmap")) {
        readPicture(property);
    } else if (m_in.name() == QLatin1StringView("iconset")) {
        readIcon(property);
    } else if (plain.contains(m_in.name().toString())) {
        readPlainValue(property);
    } else {
        m_out.writeStartElement("property");
        m_out.writeAttributes(attributes);
        readElement();
        m_out.writeEndElement();
    }
    m_in.skipCurrentElement();
}

void FormReader::readPicture(const QString &property)
{
    const QString file = pictureFile(property, m_in.readElementText());
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
    if (isValidText(kind, value))
        writeProperty(property, kind, value);
    else
        report(property, tr("\"%1\" is no %2").arg(value, kind));
}

void FormReader::readTabStops()
{
    while (m_in.readNextStartElement())
        m_tabStops << m_in.readElementText();
}

void FormReader::readConnections()
{
    while (m_in.readNextStartElement()) {
        PreparedForm::Connection connection;
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
    for (const QString &name : std::as_const(m_tabStops)) {
        if (m_names.contains(name))
            m_out.writeTextElement("tabstop", name);
        else
            m_form.problems << tr("tab stop '%1': no such widget").arg(name);
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
        report(property, tr("no picture \"%1\"").arg(name.trimmed()));
    return file;
}

void FormReader::report(const QString &property, const QString &reason)
{
    const QString widget = m_widgets.isEmpty() ? QString() : m_widgets.last();
    m_form.problems << tr("widget '%1', property '%2': %3").arg(widget, property, reason);
}

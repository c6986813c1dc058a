// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/forms/FormFinding.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QList>
#include <QSet>
#include <QStringList>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

/// What a form file says of one widget or, without properties, of another object with a name.
struct FormObject
{
    struct Property
    {
        QString name;
        QString kind; ///< "number", "string", "pixmap"...
        QString text; ///< of a pixmap: its file; empty for what is not one word or line
        int line = 0;
    };

    const Property *property(const QString &propertyName) const;

    QString name;
    QString className;
    int line = 0;
    bool isWidget = true;
    QList<Property> properties;
};

/// A form file, checked and made ready for building.
struct PreparedForm
{
    /// A signal of one widget and a slot of another, widgets by name.
    struct Connection
    {
        QString sender;
        QString signal;
        QString receiver;
        QString slot;
        int line = 0;
    };

    /// The form without what the loader does itself. Empty when the file holds no usable form.
    QString xml;
    QList<Connection> connections;
    /// Names of the properties that the form's author added to widgets.
    QSet<QByteArray> addedProperties;
    /// In the order of the file.
    QList<FormObject> objects;
    /// Without the file's name.
    FormFindings findings;

    /// Begins the name of a property that holds the file of the picture for the property named by
    /// the rest.
    static constexpr char PicturePrefix[] = "picture/";
};

/// Reads one form file: finds its pictures, takes out the connections, and checks what the builder
/// behind it would pass over in silence. Whatever it has to leave out it reports.
class FormReader
{
public:
    explicit FormReader(const QString &fileName);

    /// Once only.
    PreparedForm read();

private:
    void readForm();
    void readElement();
    void readContents();
    void readWidget();
    void readObject();
    void add(const FormObject &object);
    void readProperty();
    void readPicture(const QString &property);
    void readIcon(const QString &property);
    void readPlainValue(const QString &property);
    void readText(const QString &property);
    void readTabStops();
    void readConnections();
    void writeTabStops();
    void writeProperty(const QString &name, const QString &kind, const QString &value);
    QString pictureFile(const QString &property, const QString &name);
    void note(const QString &property, const QString &kind, const QString &text);
    void report(FormFinding::Kind kind, const QString &property, const QString &reason);
    void refuse(int atLine, const QString &reason);
    int line() const { return static_cast<int>(m_in.lineNumber()); }

    QFile m_file;
    QDir m_folder;
    QXmlStreamReader m_in;
    PreparedForm m_form;
    QXmlStreamWriter m_out;
    QSet<QString> m_names;      ///< of all widgets so far
    QList<qsizetype> m_widgets; ///< objects around the present place, outermost first
    QList<std::pair<QString, int>> m_tabStops; ///< with their lines
    int m_propertyLine = 0;
    int m_depth = 0;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QList>
#include <QSet>
#include <QStringList>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

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
    };

    /// The form without what the loader does itself. Empty when the file holds no usable form.
    QString xml;
    QList<Connection> connections;
    /// Names of the properties that the form's author added to widgets.
    QSet<QByteArray> addedProperties;
    /// One line each, without the file's name.
    QStringList problems;

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
    void readProperty();
    void readPicture(const QString &property);
    void readIcon(const QString &property);
    void readPlainValue(const QString &property);
    void readTabStops();
    void readConnections();
    void writeTabStops();
    void writeProperty(const QString &name, const QString &kind, const QString &value);
    QString pictureFile(const QString &property, const QString &name);
    void report(const QString &property, const QString &reason);

    QFile m_file;
    QDir m_folder;
    QXmlStreamReader m_in;
    PreparedForm m_form;
    QXmlStreamWriter m_out;
    QSet<QString> m_names; ///< of all widgets so far
    QStringList m_widgets; ///< names of those around the present place, outermost first
    QStringList m_tabStops;
    int m_depth = 0;
};

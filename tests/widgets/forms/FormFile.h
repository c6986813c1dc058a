// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

/// A folder with forms and pictures that a test writes.
struct FormFolder
{
    QTemporaryDir folder;

    QString write(const QString &name, const QByteArray &contents) const
    {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
        return file.fileName();
    }

    /// A strip of ten pictures.
    void writePicture(const QString &name) const
    {
        QImage picture(20, 200, QImage::Format_RGB32);
        picture.fill(Qt::red);
        if (!picture.save(folder.filePath(name)))
            qFatal("cannot write %s", qPrintable(name));
    }

    /// A form around `inner`, which stands inside a vertical layout; `after` follows the widget.
    static QByteArray form(const QByteArray &inner, const QByteArray &after = {})
    {
        return "<?xml version=\"1.0\"?>\n<ui version=\"4.0\">\n<class>Page</class>\n"
               "<widget class=\"QWidget\" name=\"Page\">\n<layout class=\"QVBoxLayout\">\n<item>\n"
               + inner + "</item>\n<item><widget class=\"QLabel\" name=\"survivor\"/></item>\n"
               + "</layout>\n</widget>\n" + after + "</ui>\n";
    }
    static QByteArray widget(const QByteArray &className, const QByteArray &properties)
    {
        return "<widget class=\"" + className + "\" name=\"it\">" + properties + "</widget>";
    }
    static QByteArray property(const QByteArray &name, const QByteArray &value)
    {
        return "<property name=\"" + name + "\">" + value + "</property>";
    }
};

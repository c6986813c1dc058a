// SPDX-License-Identifier: MIT
// console-reference FOLDER: writes what the reference site shows of the widgets, made from the library
// itself: a picture and a page for each class of the registry, and a page that shows them all.
#include "SpecimenPicture.h"
#include "Specimens.h"
#include "WidgetPage.h"

#include "editor/Appearance.h"

#include <QApplication>
#include <QDir>
#include <QSaveFile>

#include <cstdio>

namespace {

int faults = 0;

void fault(const QString &line)
{
    std::fprintf(stderr, "console-reference: %s\n", qPrintable(line));
    ++faults;
}

/// What the library tells of a specimen is a fault of it. Qt's platform without screens tells of itself.
void takeMessage(QtMsgType, const QMessageLogContext &, const QString &text)
{
    if (!text.startsWith("This plugin does not") && !text.startsWith("QStandardPaths:"))
        fault(text);
}

void write(const QString &name, const QString &text)
{
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0 || !file.commit())
        fault(QString("%1: %2").arg(name, file.errorString()));
}

void writeClass(const WidgetRegistry::Entry &entry, const QDir &folder)
{
    const QString name = entry.className();
    const Specimen *specimen = Specimen::find(entry.className());
    if (!specimen)
        return fault(QString("%1 has no specimen, see Specimens.cpp").arg(name));
    const WidgetPage page(entry);
    for (const QString &property : page.withoutUnit())
        fault(QString("%1 has no unit, see WidgetPage.cpp").arg(property));
    if (!pictureOf(*specimen).save(folder.filePath(name + ".png")))
        fault(QString("%1.png cannot be written").arg(name));
    write(folder.filePath(name + ".dox"), page.text());
}

/// All widgets under the headings of their groups.
QString gallery()
{
    QString text = "/** @page widgets Widgets\n";
    QString group;
    for (const WidgetRegistry::Entry &entry : WidgetRegistry::entries()) {
        if (group != entry.group)
            text += QString(group.isEmpty() ? "" : "</table>\n") + "<h2>" + entry.group
                    + "</h2>\n<table class=\"gallery\">\n";
        group = entry.group;
        text += QString("<tr><td>@image html %1.png\n</td><td>@ref %1</td><td>%2</td></tr>\n")
                    .arg(entry.className(), QString(entry.toolTip).toHtmlEscaped());
    }
    return text + "</table>\n*/\n";
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    appearance::apply(app);
    if (app.arguments().size() != 2) {
        std::fputs("usage: console-reference FOLDER\n", stderr);
        return 2;
    }
    qInstallMessageHandler(takeMessage);
    const QDir folder(app.arguments().at(1));
    folder.mkpath(".");
    for (const WidgetRegistry::Entry &entry : WidgetRegistry::entries())
        writeClass(entry, folder);
    write(folder.filePath("widgets.dox"), gallery());
    return faults == 0 ? 0 : 1;
}

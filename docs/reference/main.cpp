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

/// Returns the line that shows the class in the gallery.
QString writeClass(const WidgetRegistry::Entry &entry, const QDir &folder)
{
    const QString name = entry.className();
    const Specimen *specimen = Specimen::find(entry.className());
    if (!specimen) {
        fault(QString("%1 has no specimen, see Specimens.cpp").arg(name));
        return {};
    }
    const WidgetPage page(entry);
    for (const QString &property : page.withoutUnit())
        fault(QString("%1 has no unit, see WidgetPage.cpp").arg(property));
    const QPixmap picture = pictureOf(*specimen);
    if (!picture.save(folder.filePath(name + ".png")))
        fault(QString("%1.png cannot be written").arg(name));
    const int width = qRound(picture.deviceIndependentSize().width());
    write(folder.filePath(name + ".dox"), page.text(width));
    return QString("<tr><td>%1</td><td>@ref %2</td><td>%3</td></tr>\n")
        .arg(page.picture(width), name, QString(entry.toolTip).toHtmlEscaped());
}

/// A page for each class, and one with all of them under the headings of their groups.
void writeAll(const QDir &folder)
{
    QString text = "/** @page widgets Widgets\n";
    QString group;
    for (const WidgetRegistry::Entry &entry : WidgetRegistry::entries()) {
        if (group != entry.group)
            text += QString(group.isEmpty() ? "" : "</table>\n") + "<h2>" + entry.group
                    + "</h2>\n<table>\n";
        group = entry.group;
        text += writeClass(entry, folder);
    }
    write(folder.filePath("widgets.dox"), text + "</table>\n*/\n");
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
    writeAll(folder);
    return faults == 0 ? 0 : 1;
}

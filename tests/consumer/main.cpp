// SPDX-License-Identifier: MIT
// Makes, binds and draws every widget of the installed library.
#include "companions/memory/ParameterMemory.h"
#include "interfaces/TMemProxy.h"
#include "widgets/forms/WidgetRegistry.h"

#include <QApplication>
#include <QFile>

#include <cstdio>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    ParameterMemory memory;
    if (QString error; !memory.load(ParameterMemory::builtInModel(), &error))
        qFatal("%s", qPrintable(error));
    if (!QFile::exists(QStringLiteral(":/images/knob-amber.png")))
        qFatal("the pictures are missing");

    int bound = 0;
    for (const WidgetRegistry::Entry &entry : WidgetRegistry::entries()) {
        const std::unique_ptr<QWidget> widget(entry.make(nullptr));
        // Across the boundary of the libraries the type is the same one.
        if (auto *proxy = dynamic_cast<TMemProxy *>(widget.get())) {
            proxy->setNamedAddress(QStringLiteral("kInputHA/kGain"));
            bound += memory.bindProxy(proxy, 3);
        }
        widget->resize(60, 60);
        widget->show();
        QCoreApplication::processEvents();
        if (widget->grab().isNull())
            qFatal("%s has no picture", entry.className());
    }
    std::printf("%d widgets bound\n", bound);
    return bound > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

// SPDX-License-Identifier: MIT
// A form of Qt Designer, loaded at run time and bound to a channel: load-a-form [FORM.ui [CHANNEL]]
#include "companions/memory/ParameterMemory.h"
#include "widgets/forms/FormLoader.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <memory>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QStringList arguments = app.arguments().mid(1);
    const bool once = arguments.removeAll(QStringLiteral("--once")) > 0;
    const QString file = arguments.value(0, QStringLiteral(":/load-a-form/channel.ui"));
    const int channel = qMax(1, arguments.value(1, QStringLiteral("1")).toInt());

    ParameterMemory memory;
    if (QString error; !memory.load(ParameterMemory::builtInModel(), &error))
        qFatal("%s", qPrintable(error));

    // What does not fit is told, one line each; the rest of the form works.
    FormLoader loader;
    const std::unique_ptr<QWidget> form(loader.load(file));
    for (const QString &problem : loader.problems())
        qWarning("%s", qPrintable(problem));
    if (!form)
        return EXIT_FAILURE;

    // Every control of the form finds its parameter by the address that is written there. Elements
    // count from 0.
    const int bound = memory.bind(form.get(), channel - 1);
    form->show();
    if (once) {
        QTimer::singleShot(0, &app, [&] {
            std::printf("%d controls bound\n", bound);
            app.quit();
        });
    }
    return app.exec();
}

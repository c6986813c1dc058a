// SPDX-License-Identifier: MIT
// Eight faders of one's own, on the levels of the first eight channels.
#include "Fader.h"

#include "companions/memory/ParameterMemory.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QTimer>

#include <cstdio>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    ParameterMemory memory;
    if (QString error; !memory.load(ParameterMemory::builtInModel(), &error))
        qFatal("%s", qPrintable(error));

    QWidget window;
    QHBoxLayout row(&window);
    QString texts;
    for (int channel = 0; channel < 8; ++channel) {
        auto *fader = new Fader;
        fader->setNamedAddress(QStringLiteral("kInputFader/kFader"));
        row.addWidget(fader);
        QObject::connect(fader, &Fader::textualValueChange, &window,
                         [&texts](const QString &text) { texts += text + QLatin1Char(' '); });
        memory.bindProxy(fader, channel);
    }
    window.resize(400, 300);
    window.show();
    if (app.arguments().contains(QStringLiteral("--once"))) {
        QTimer::singleShot(0, &app, [&] { std::puts(qPrintable(texts)), app.quit(); });
    }
    return app.exec();
}

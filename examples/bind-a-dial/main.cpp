// SPDX-License-Identifier: MIT
// A knob and its value as text, bound to the gain of the first head amp input.
#include "companions/memory/ParameterMemory.h"
#include "interfaces/utilities/NS_Utilities.h"
#include "widgets/controls/CDial.h"

#include <QApplication>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    ParameterMemory memory; // outlives the window, though it need not
    if (QString error; !memory.load(ParameterMemory::builtInModel(), &error))
        qFatal("%s", qPrintable(error));

    QWidget window;
    QVBoxLayout layout(&window);
    CDial dial(&window);
    dial.setCombinedImage(NS_Utilities::loadPixmap(QStringLiteral(":/images/knob-amber.png")));
    dial.setnSubImages(121);
    dial.setTransparent(true);
    dial.setNamedAddress(QStringLiteral("kInputHA/kGain"));
    QLabel text(&window);
    QObject::connect(&dial, &CDial::textualValueChange, &text, &QLabel::setText);
    layout.addWidget(&dial);
    layout.addWidget(&text);

    memory.bind(&window);
    window.show();
    if (app.arguments().contains(QStringLiteral("--once"))) // as our tests do
        QTimer::singleShot(0, &app, [&] { qInfo("%s", qPrintable(text.text())), app.quit(); });
    return app.exec();
}

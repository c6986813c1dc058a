// SPDX-License-Identifier: MIT
// Draws the strip of a knob, and shows a dial with it: draw-a-strip [FILE.png] also keeps the picture.
#include "companions/memory/ParameterMemory.h"
#include "widgets/controls/CDial.h"

#include <QApplication>
#include <QPainter>
#include <QTimer>
#include <QVBoxLayout>

#include <cstdio>

constexpr int Pictures = 61; // an odd number has a middle
constexpr int Side = 48;
constexpr double Sweep = 270; // degrees, as far as a drag turns the dial

/// One picture: `turned` is 0 at the minimum and 1 at the maximum.
void drawKnob(QPainter &painter, double turned)
{
    constexpr double start = -Sweep / 2;
    const QRectF rim(4, 4, Side - 8, Side - 8);
    painter.setPen(QPen(QColor(70, 76, 83), 4, Qt::SolidLine, Qt::FlatCap));
    painter.drawArc(rim, int((90 - start) * 16), int(-Sweep * 16));
    painter.setPen(QPen(QColor(255, 178, 62), 4, Qt::SolidLine, Qt::FlatCap));
    painter.drawArc(rim, int((90 - start) * 16), int(-Sweep * turned * 16));
    painter.translate(Side / 2.0, Side / 2.0);
    painter.rotate(start + Sweep * turned);
    painter.setPen(QPen(QColor(226, 230, 234), 3, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(0, -6), QPointF(0, -13));
}

/// The pictures below one another, the minimum on top. `density` 2 is for screens scaled to 200 %.
QPixmap drawStrip(int density)
{
    QPixmap strip(Side * density, Side * Pictures * density);
    strip.fill(Qt::transparent);
    QPainter painter(&strip);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < Pictures; ++i) {
        painter.resetTransform();
        painter.scale(density, density);
        painter.translate(0, i * Side);
        drawKnob(painter, double(i) / (Pictures - 1));
    }
    painter.end();
    strip.setDevicePixelRatio(density);
    return strip;
}

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QStringList arguments = app.arguments().mid(1);
    const bool once = arguments.removeAll("--once") > 0;
    ParameterMemory memory;
    if (QString error; !memory.load(ParameterMemory::builtInModel(), &error))
        qFatal("%s", qPrintable(error));

    QWidget window;
    QVBoxLayout layout(&window);
    CDial dial(&window);
    dial.setCombinedImage(drawStrip(window.devicePixelRatio() > 1 ? 2 : 1));
    dial.setnSubImages(Pictures);
    dial.setTransparent(true);
    dial.setNamedAddress("kInputFader/kFader");
    layout.addWidget(&dial, 0, Qt::AlignCenter);
    memory.bind(&window);
    window.show();

    if (!arguments.isEmpty() && !drawStrip(1).save(arguments.first()))
        qFatal("%s cannot be written", qPrintable(arguments.first()));
    if (once) {
        QTimer::singleShot(0, &app, [&] {
            std::printf("\n%d pictures of %dx%d\n", dial.nSubImages(), dial.sizeHint().width(),
                        dial.sizeHint().height());
            app.quit();
        });
    }
    return app.exec();
}

// SPDX-License-Identifier: MIT
#include "interfaces/utilities/YPainter.h"

#include <QTest>
#include <QWidget>

namespace {

class Painted : public QWidget
{
protected:
    void paintEvent(QPaintEvent *) override
    {
        NS_Utilities::YPainter painter(this);
        painter.translate(5, 5);
        painter.fill(QColor(200, 0, 0, 128));
        painter.fill(QColor(0, 120, 0));
        painter.drawPoint(2, 1);
    }
};

} // namespace

class TestYPainter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fillCoversTheWholeWidgetAndKeepsThePainter();
};

void TestYPainter::fillCoversTheWholeWidgetAndKeepsThePainter()
{
    Painted widget;
    QPalette palette;
    palette.setColor(QPalette::WindowText, Qt::white);
    widget.setPalette(palette);
    widget.resize(20, 10);
    const QImage image = widget.grab().toImage();
    for (const QPoint corner : {QPoint(0, 0), QPoint(19, 0), QPoint(0, 9), QPoint(19, 9)})
        QCOMPARE(image.pixelColor(corner), QColor(0, 120, 0));
    // The pen is the widget's, the place the painter's.
    QCOMPARE(image.pixelColor(7, 6), QColor(Qt::white));
}

QTEST_MAIN(TestYPainter)
#include "tst_YPainter.moc"

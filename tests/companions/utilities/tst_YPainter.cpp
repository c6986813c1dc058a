// SPDX-License-Identifier: MIT
#include "interfaces/utilities/YPainter.h"

#include <QTest>
#include <QWidget>

namespace {

class Painted : public QWidget
{
public:
    QColor pen;
    QColor background;
    QFont font_;
    QPoint shift;

protected:
    void paintEvent(QPaintEvent *) override
    {
        NS_Utilities::YPainter painter(this);
        pen = painter.pen().color();
        background = painter.background().color();
        font_ = painter.font();
        painter.translate(shift);
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
    void startsFromTheWidgetsLook();
    void fillCoversTheWholeWidgetAndKeepsThePainter();
};

void TestYPainter::startsFromTheWidgetsLook()
{
    Painted widget;
    QFont font = widget.font();
    font.setPointSize(23);
    widget.setFont(font);
    QPalette palette;
    palette.setColor(QPalette::WindowText, QColor(1, 2, 3));
    palette.setColor(QPalette::Window, QColor(4, 5, 6));
    widget.setPalette(palette);
    widget.grab();
    QCOMPARE(widget.pen, QColor(1, 2, 3));
    QCOMPARE(widget.background, QColor(4, 5, 6));
    QCOMPARE(widget.font_.pointSize(), 23);
}

void TestYPainter::fillCoversTheWholeWidgetAndKeepsThePainter()
{
    Painted widget;
    QPalette palette;
    palette.setColor(QPalette::WindowText, Qt::white);
    widget.setPalette(palette);
    widget.resize(20, 10);
    widget.shift = QPoint(5, 5);
    const QImage image = widget.grab().toImage();
    for (const QPoint corner : {QPoint(0, 0), QPoint(19, 0), QPoint(0, 9), QPoint(19, 9)})
        QCOMPARE(image.pixelColor(corner), QColor(0, 120, 0));
    QCOMPARE(image.pixelColor(7, 6), QColor(Qt::white)); // drawn in the painter's own coordinates
}

QTEST_MAIN(TestYPainter)
#include "tst_YPainter.moc"

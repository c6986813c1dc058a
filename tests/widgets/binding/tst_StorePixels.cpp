// SPDX-License-Identifier: MIT
// What is copied is what a painter would have drawn; what a painter would change is not copied.
#include "widgets/binding/StorePixels.h"

#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QTest>

class tst_StorePixels : public QObject
{
    Q_OBJECT

private slots:
    void onlyWhatAPainterWouldCopyIsCopied_data();
    void onlyWhatAPainterWouldCopyIsCopied();
    void aCellIsThatOfTheGrid_data();
    void aCellIsThatOfTheGrid();
};

namespace {

constexpr QSize StoreSize(60, 50);  // device-independent
constexpr QSize PictureSize(30, 40); // pixels

QImage store(QImage::Format format, qreal ratio)
{
    QImage image(StoreSize * ratio, format);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::darkGreen);
    return image;
}

/// Every pixel has its own colour.
QPixmap picture(bool alpha, qreal ratio)
{
    QImage image(PictureSize, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, QColor(8 * x, 6 * y, x + y, alpha && x == 3 ? 0 : 255));
    }
    if (!alpha)
        image.convertTo(QImage::Format_RGB32);
    QPixmap made = QPixmap::fromImage(image);
    made.setDevicePixelRatio(ratio);
    return made;
}

constexpr auto Rgb32 = QImage::Format_RGB32;
const QRect Part(5, 10, 20, 30);

} // namespace

void tst_StorePixels::onlyWhatAPainterWouldCopyIsCopied_data()
{
    QTest::addColumn<QImage>("store");
    QTest::addColumn<QPixmap>("picture");
    QTest::addColumn<QPoint>("origin");
    QTest::addColumn<QPoint>("at");
    QTest::addColumn<QRect>("part");
    QTest::addColumn<bool>("copied");

    const QPixmap opaque = picture(false, 1);
    const QPixmap dense = picture(false, 2);
    const QImage plain = store(Rgb32, 1);
    const QPoint origin(7, 3);
    const QPoint at(2, 4);
    QTest::newRow("opaque") << plain << opaque << origin << at << Part << true;
    QTest::newRow("store with alpha") << store(QImage::Format_ARGB32_Premultiplied, 1) << opaque
                                      << origin << at << Part << true;
    QTest::newRow("both dense") << store(Rgb32, 2) << dense << origin << at << Part << true;
    QTest::newRow("the whole picture") << plain << opaque << origin << at << opaque.rect() << true;
    QTest::newRow("up to the store's edge")
        << plain << opaque << QPoint(40, 20) << QPoint(0, 0) << Part << true;
    QTest::newRow("no pixels") << plain << opaque << origin << at << QRect(5, 5, 0, 0) << false;
    QTest::newRow("picture with alpha")
        << plain << picture(true, 1) << origin << at << Part << false;
    QTest::newRow("dense picture only") << plain << dense << origin << at << Part << false;
    QTest::newRow("dense store only") << store(Rgb32, 2) << opaque << origin << at << Part << false;
    QTest::newRow("between pixels")
        << store(Rgb32, 1.25) << picture(false, 1.25) << origin << at << Part << false;
    QTest::newRow("16 bits") << store(QImage::Format_RGB16, 1) << opaque << origin << at << Part
                             << false;
    QTest::newRow("no picture") << plain << QPixmap() << origin << at << Part << false;
    QTest::newRow("past the picture")
        << plain << opaque << origin << at << Part.translated(0, 1) << false;
    QTest::newRow("before the picture")
        << plain << opaque << origin << at << Part.translated(-6, 0) << false;
    QTest::newRow("past the store")
        << plain << opaque << QPoint(40, 20) << QPoint(0, 1) << Part << false;
    QTest::newRow("before the store")
        << plain << opaque << QPoint(0, 0) << QPoint(-1, 0) << Part << false;
}

void tst_StorePixels::onlyWhatAPainterWouldCopyIsCopied()
{
    QFETCH(QImage, store);
    QFETCH(QPixmap, picture);
    QFETCH(QPoint, origin);
    QFETCH(QPoint, at);
    QFETCH(QRect, part);
    QFETCH(bool, copied);

    QImage due = store.copy();
    if (copied) {
        const QSizeF size = QSizeF(part.size()) / picture.devicePixelRatio();
        QPainter(&due).drawPixmap(QRectF(origin + at, size), picture, part);
    }
    QImage image = store.copy();
    StorePixels pixels(image);
    pixels.setOrigin(origin);
    QCOMPARE(pixels.copy(at, picture, part), copied);
    QCOMPARE(image, due);
}

void tst_StorePixels::aCellIsThatOfTheGrid_data()
{
    QTest::addColumn<QPoint>("cell");
    QTest::addColumn<QPoint>("corner"); // in the picture; negative: there is no such cell
    QTest::newRow("first") << QPoint(0, 0) << QPoint(0, 0);
    QTest::newRow("last") << QPoint(2, 3) << QPoint(20, 30);
    QTest::newRow("no column is the first") << QPoint(-1, 1) << QPoint(0, 10);
    QTest::newRow("no row") << QPoint(0, -1) << QPoint(-1, -1);
    QTest::newRow("past the rows") << QPoint(0, 4) << QPoint(-1, -1);
}

void tst_StorePixels::aCellIsThatOfTheGrid()
{
    QFETCH(QPoint, cell);
    QFETCH(QPoint, corner);
    const bool exists = corner.x() >= 0;
    const QPoint origin(20, 30);
    QImage image = store(Rgb32, 1);
    const QPixmap strip = picture(false, 1);
    StorePixels pixels(image);
    pixels.setOrigin(origin);
    pixels.copyCell(cell, strip, {3, 4});
    const QRgb expected = exists ? strip.toImage().pixel(corner) : QColor(Qt::darkGreen).rgb();
    QCOMPARE(image.pixel(origin), expected);
    QCOMPARE(image.pixel(origin + QPoint(10, 0)), QColor(Qt::darkGreen).rgb());
    QCOMPARE(image.pixel(origin - QPoint(1, 0)), QColor(Qt::darkGreen).rgb());
}

QTEST_MAIN(tst_StorePixels)
#include "tst_StorePixels.moc"

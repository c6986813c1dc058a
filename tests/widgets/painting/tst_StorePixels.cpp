// SPDX-License-Identifier: MIT
// What is drawn into a window's store is what a painter on the control would draw, on the control's
// pixels and on no others, whatever the scale, the store and the picture.
#include "widgets/painting/DevicePixels.h"
#include "widgets/painting/Picture.h"
#include "widgets/painting/ScaledCells.h"
#include "widgets/painting/StorePixels.h"

#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QTest>

namespace {

constexpr QSize StoreSize(60, 50); // device-independent
constexpr QSize CellSize(12, 9);   // device-independent
constexpr int Cells = 3;
constexpr auto Rgb32 = QImage::Format_RGB32;
constexpr auto Argb = QImage::Format_ARGB32_Premultiplied;

QImage store(QImage::Format format, qreal ratio)
{
    QImage image((QSizeF(StoreSize) * ratio).toSize(), format);
    image.setDevicePixelRatio(ratio);
    image.fill(QColor(0, 100, 0, format == Argb ? 100 : 255));
    return image;
}

/// Cells below one another in which every pixel has its own colour.
QPixmap strip(bool alpha, int ratio)
{
    QImage image(CellSize.width() * ratio, CellSize.height() * Cells * ratio, Argb);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y,
                                QColor(8 * x, 2 * y, x + y, alpha && x < 4 * ratio ? 90 : 255));
    }
    if (!alpha)
        image.convertTo(Rgb32);
    QPixmap made = QPixmap::fromImage(image);
    made.setDevicePixelRatio(ratio);
    return made;
}

/// The second cell at `corner` of a control.
Picture pictureOf(const QPixmap &strip, const QSize &control, const QPointF &corner)
{
    Picture picture(control);
    const QSize cell(strip.width(), strip.height() / Cells);
    picture.add(strip, QRect(QPoint(0, cell.height()), cell), corner);
    return picture;
}

} // namespace

class tst_StorePixels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void drawsWhatAPainterWould_data();
    void drawsWhatAPainterWould();
    void whatIsBehindIsReplaced();
    void partsMeetAndFillTheControl();
    void aCellIsScaledAlone();
    void scaledCellsAreBounded();
};

void tst_StorePixels::drawsWhatAPainterWould_data()
{
    QTest::addColumn<QImage>("store");
    QTest::addColumn<QPixmap>("strip");
    QTest::addColumn<QSize>("control");
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<QPointF>("corner");

    const QPoint place(7, 3);
    const QPointF none;
    for (const qreal ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
        for (const bool alpha : {false, true}) {
            for (const auto format : {Rgb32, Argb, QImage::Format_RGB16}) {
                const QByteArray kind = QByteArray::number(ratio) + (alpha ? " alpha" : "")
                                        + " in format " + QByteArray::number(format);
                const QImage in = store(format, ratio);
                QTest::newRow(kind) << in << strip(alpha, 1) << CellSize << place << none;
                QTest::newRow(kind + ", dense strip")
                    << in << strip(alpha, 2) << CellSize << place << none;
            }
            const QImage in = store(Rgb32, ratio);
            const QByteArray kind = QByteArray::number(ratio) + (alpha ? " alpha" : "");
            QTest::newRow(kind + ", in a larger control")
                << in << strip(alpha, 1) << QSize(17, 14) << place << QPointF(3, 2);
            QTest::newRow(kind + ", in a smaller control")
                << in << strip(alpha, 1) << QSize(7, 5) << place << none;
            QTest::newRow(kind + ", between pixels of its own")
                << in << strip(alpha, 2) << CellSize << place << QPointF(0.5, 1.5);
            QTest::newRow(kind + ", past the store")
                << in << strip(alpha, 1) << CellSize << QPoint(53, 45) << none;
            QTest::newRow(kind + ", before the store")
                << in << strip(alpha, 1) << CellSize << QPoint(-5, -2) << none;
        }
    }
    QTest::newRow("no picture") << store(Rgb32, 1) << QPixmap() << CellSize << place << none;
}

void tst_StorePixels::drawsWhatAPainterWould()
{
    QFETCH(QImage, store);
    QFETCH(QPixmap, strip);
    QFETCH(QSize, control);
    QFETCH(QPoint, place);
    QFETCH(QPointF, corner);

    const Picture picture = pictureOf(strip, control, corner);
    const qreal ratio = store.devicePixelRatio();
    const QRect pixels = DevicePixels(QPointF(place) * ratio, ratio, control).all();
    QImage due = store.copy();
    {
        // Clipped as the toolkit clips a control's paint event.
        QImage all = due.copy();
        QPainter painter(&all);
        painter.translate(place);
        picture.draw(painter);
        painter.end();
        all.setDevicePixelRatio(1);
        due.setDevicePixelRatio(1);
        QPainter clipped(&due);
        clipped.setCompositionMode(QPainter::CompositionMode_Source);
        clipped.drawImage(pixels, all, pixels);
    }
    QImage image = store.copy();
    {
        StorePixels drawn(image);
        drawn.draw(picture, place);
    }
    image.setDevicePixelRatio(1);
    QCOMPARE(image, due);
    if (!strip.isNull())
        QVERIFY(store.copy() != image);
}

void tst_StorePixels::whatIsBehindIsReplaced()
{
    for (const auto format : {Rgb32, Argb}) {
        QImage image = store(format, 1);
        QImage ground(CellSize, format);
        ground.fill(format == Argb ? QColor(0, 0, 80, 40) : QColor(Qt::blue));
        const QPixmap cells = strip(true, 1);
        const Picture picture = pictureOf(cells, CellSize, {});
        for (int twice = 0; twice < 2; ++twice)
            StorePixels(image).draw(picture, {10, 10}, &ground);
        QImage due = ground.copy();
        QPainter painter(&due);
        picture.draw(painter);
        painter.end();
        QCOMPARE(image.copy(QRect({10, 10}, CellSize)), due);
        QCOMPARE(image.pixel(9, 10), store(format, 1).pixel(9, 10));
    }
}

void tst_StorePixels::partsMeetAndFillTheControl()
{
    constexpr QSize control(53, 26);
    for (const qreal ratio : {1.25, 1.5, 1.75, 1.1}) {
        for (int x = 0; x < 8; ++x) {
            const DevicePixels pixels(QPointF(x, x) * ratio, ratio, control);
            int end = pixels.all().left();
            int from = 0;
            for (const int width : {13, 1, 26, 13}) {
                const QRect part = pixels.of(QRectF(from, 0, width, control.height()));
                QCOMPARE(part.left(), end);
                QCOMPARE(part.height(), pixels.all().height());
                end = part.right() + 1;
                from += width;
            }
            QCOMPARE(end, pixels.all().right() + 1);
        }
    }
}

void tst_StorePixels::aCellIsScaledAlone()
{
    QImage image(10, 30, Rgb32);
    image.fill(Qt::red);
    QPainter painter(&image);
    painter.fillRect(0, 10, 10, 10, Qt::blue);
    painter.end();
    const QPixmap strip = QPixmap::fromImage(image);
    QImage plain(QSize(17, 13), Rgb32);
    plain.fill(Qt::blue);
    QCOMPARE(scaledcells::find(strip, {0, 10, 10, 10}, plain.size()), plain);
}

void tst_StorePixels::scaledCellsAreBounded()
{
    const QPixmap strip = ::strip(false, 1);
    for (int height = 1; height < 40; ++height)
        scaledcells::find(strip, {QPoint(0, 0), CellSize}, {1000, 20 * height});
    QVERIFY(scaledcells::bytes() > 0);
    QVERIFY(scaledcells::bytes() <= scaledcells::MostBytes);
    const QSize huge(6000, 6000);
    QCOMPARE(scaledcells::find(strip, {QPoint(0, 0), CellSize}, huge).size(), huge);
    QVERIFY(scaledcells::bytes() <= scaledcells::MostBytes);
}

QTEST_MAIN(tst_StorePixels)
#include "tst_StorePixels.moc"

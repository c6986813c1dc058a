// SPDX-License-Identifier: MIT
#include "interfaces/utilities/NS_Utilities.h"
#include "tests/support/Table.h"

#include <QImage>
#include <QPainter>
#include <QTest>

namespace {

constexpr int Columns = 3;
constexpr int Rows = 4;
constexpr QSize Grid(Columns, Rows);
constexpr QSize Cell(9, 7); // device-independent; odd, so that no scale factor suits it
constexpr QSize Canvas(40, 30);
constexpr QRgb Untouched = qRgb(10, 20, 30);

QColor cellColour(int column, int row, int alpha = 255)
{
    return QColor(60 + column * 90, 30 + row * 70, (column + row) % 2 ? 250 : 5, alpha);
}

QPixmap strip(qreal ratio, int alpha = 255)
{
    const QSize cell = (QSizeF(Cell) * ratio).toSize();
    QPixmap picture(cell.width() * Columns, cell.height() * Rows);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    for (int column = 0; column < Columns; ++column) {
        for (int row = 0; row < Rows; ++row)
            painter.fillRect(QRect(QPoint(column * cell.width(), row * cell.height()), cell),
                             cellColour(column, row, alpha));
    }
    painter.end();
    picture.setDevicePixelRatio(ratio);
    return picture;
}

QImage canvas(qreal scale)
{
    QImage image((QSizeF(Canvas) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Untouched);
    return image;
}

QRect devicePixels(const QPoint &origin, const QSize &size, qreal scale)
{
    const QPoint topLeft(qRound(origin.x() * scale), qRound(origin.y() * scale));
    const QPoint end(qRound((origin.x() + size.width()) * scale),
                     qRound((origin.y() + size.height()) * scale));
    return {topLeft, end - QPoint(1, 1)};
}

/// Empty when exactly the pixels of `area` have the colour and all others are untouched.
QString firstStrangePixel(const QImage &image, const QRect &area, QRgb colour)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb expected = area.contains(x, y) ? colour : Untouched;
            if (image.pixel(x, y) != expected)
                return QString("at %1,%2: %3").arg(x).arg(y).arg(image.pixel(x, y), 0, 16);
        }
    }
    return {};
}

void addScales()
{
    QTest::addColumn<qreal>("scale");
    QTest::addColumn<qreal>("ratio");
    for (const qreal ratio : {1.0, 2.0, 3.0}) {
        for (const qreal scale : {1.0, 1.25, 1.5, 2.0})
            QTest::addRow("@%gx picture at %g", ratio, scale) << scale << ratio;
    }
}

} // namespace

class TestPartialPixmap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aCellCoversItsPixelsAndShowsNoNeighbour_data() { addScales(); }
    void aCellCoversItsPixelsAndShowsNoNeighbour();
    void cellsSideBySideMeetWithoutSeamOrOverlap_data() { addScales(); }
    void cellsSideBySideMeetWithoutSeamOrOverlap();
    void theRectangleOfACell_data();
    void theRectangleOfACell();
    void whatHasNoCellDrawsNothing();
    void aGreyCellIsTheTransformedCell();
    void thePaintersHintsAreLeftAlone();
};

void TestPartialPixmap::aCellCoversItsPixelsAndShowsNoNeighbour()
{
    QFETCH(qreal, scale);
    QFETCH(qreal, ratio);

    const QPixmap picture = strip(ratio);
    const QPoint middle(1, 2); // neighbours on all sides
    for (int at = 0; at < 8; ++at) {
        QImage image = canvas(scale);
        QPainter painter(&image);
        painter.translate(at, at + 3);
        NS_Utilities::drawPartialPixmap(painter, middle, picture, Grid, false);
        painter.end();
        const QString strange = firstStrangePixel(image, devicePixels({at, at + 3}, Cell, scale),
                                                  cellColour(1, 2).rgb());
        QVERIFY2(strange.isEmpty(), qPrintable(QString("offset %1, ").arg(at) + strange));
    }
}

void TestPartialPixmap::cellsSideBySideMeetWithoutSeamOrOverlap()
{
    QFETCH(qreal, scale);
    QFETCH(qreal, ratio);

    const QPixmap picture = strip(ratio, 100);
    const QPoint origin(3, 1);
    QImage image = canvas(scale);
    QPainter painter(&image);
    for (int i = 0; i < 6; ++i) {
        const QPoint place(i % 3 * Cell.width(), i / 3 * Cell.height());
        painter.save();
        painter.translate(origin + place);
        NS_Utilities::drawPartialPixmap(painter, {2, 1}, picture, Grid, false);
        painter.restore();
    }
    painter.end();
    const QRect whole = devicePixels(origin, {3 * Cell.width(), 2 * Cell.height()}, scale);
    const QRgb blended = image.pixel(whole.center());
    QVERIFY(blended != Untouched);
    const QString strange = firstStrangePixel(image, whole, blended);
    QVERIFY2(strange.isEmpty(), qPrintable(strange));
}

void TestPartialPixmap::theRectangleOfACell_data()
{
    Table<QPoint, QSize, QSize, QRect>()
        .row("x is the column", QPoint(2, 1), QSize(30, 40), Grid, QRect(20, 10, 10, 10))
        .row("negative column", QPoint(-1, 3), QSize(30, 40), Grid, QRect(0, 30, 10, 10))
        .row("remainder is left over", QPoint(1, 1), QSize(32, 43), Grid, QRect(10, 10, 10, 10))
        .row("column too high", QPoint(3, 0), QSize(30, 40), Grid, QRect())
        .row("row too high", QPoint(0, 4), QSize(30, 40), Grid, QRect())
        .row("negative row", QPoint(0, -1), QSize(30, 40), Grid, QRect())
        .row("no columns", QPoint(0, 0), QSize(30, 40), QSize(0, 4), QRect())
        .row("negative rows", QPoint(0, 0), QSize(30, 40), QSize(3, -4), QRect())
        .row("less than a pixel a cell", QPoint(0, 0), QSize(2, 40), Grid, QRect())
        .row("null picture", QPoint(0, 0), QSize(), Grid, QRect());
}

void TestPartialPixmap::theRectangleOfACell()
{
    const auto [cell, picture, grid, expected] = Table<QPoint, QSize, QSize, QRect>::fetch();

    QCOMPARE(NS_Utilities::partialPixmapRect(cell, QPixmap(picture), grid), expected);
}

void TestPartialPixmap::whatHasNoCellDrawsNothing()
{
    QImage image = canvas(1.5);
    const QImage before = image;
    QPainter painter(&image);
    NS_Utilities::drawPartialPixmap(painter, {0, 0}, QPixmap(), Grid, false);
    NS_Utilities::drawPartialPixmap(painter, {0, 0}, strip(1), {0, 0}, false);
    NS_Utilities::drawPartialPixmap(painter, {0, Rows}, strip(1), Grid, true);
    painter.end();
    QCOMPARE(image, before);
}

void TestPartialPixmap::aGreyCellIsTheTransformedCell()
{
    const QPixmap picture = strip(2);
    QImage image = canvas(2);
    QPainter painter(&image);
    NS_Utilities::drawPartialPixmap(painter, {1, 3}, picture, Grid, true);
    painter.end();
    const QRect source = NS_Utilities::partialPixmapRect({1, 3}, picture, Grid);
    const QImage grey = NS_Utilities::applyGreyTransformation(picture.copy(source));
    const QString strange =
        firstStrangePixel(image, QRect(QPoint(0, 0), Cell * 2), grey.pixel(0, 0));
    QVERIFY2(strange.isEmpty(), qPrintable(strange));
}

void TestPartialPixmap::thePaintersHintsAreLeftAlone()
{
    for (const bool smooth : {false, true}) {
        QImage image = canvas(1.25);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
        NS_Utilities::drawPartialPixmap(painter, {1, 1}, strip(2), Grid, false);
        QCOMPARE(painter.testRenderHint(QPainter::SmoothPixmapTransform), smooth);
    }
}

QTEST_MAIN(TestPartialPixmap)
#include "tst_PartialPixmap.moc"

// SPDX-License-Identifier: MIT
#include "images/ArtworkWriter.h"
#include "images/Catalogue.h"
#include "images/Drawing.h"
#include "images/KnobGeometry.h"
#include "tests/support/Table.h"

#include <QHash>
#include <QTest>

#include <algorithm>
#include <cmath>

using artwork::Artwork;

namespace {

struct Layout
{
    const char *name;
    int side;
    int columns;
    int rows;
};

// What the editor's screens rely on.
const Layout layouts[] = {
    {"knob-amber", 56, 1, 121},       {"knob-blue", 56, 1, 121},
    {"knob-green", 56, 1, 121},       {"knob-grey", 56, 1, 121},
    {"knob-red", 56, 1, 121},         {"knob-pan", 56, 1, 121},
    {"knob-eq", 56, 1, 121},          {"knob-att", 56, 1, 31},
    {"knob-stepper", 56, 1, 24},      {"knob-amber-d", 56, 1, 122},
    {"knob-colours", 56, 4, 61},      {"knob-small-grey", 36, 1, 121},
    {"knob-small-amber", 36, 1, 121}, {"knob-small-blue", 36, 1, 121},
    {"knob-small-pan", 36, 1, 121},
};

// Drawing a whole strip takes a while, and several tests look at the same one.
QImage rendered(const QString &name, int density)
{
    static QHash<QString, QImage> known;
    for (const Artwork &picture : artwork::catalogue()) {
        if (picture.name == name) {
            QImage &image = known[artwork::fileName(picture, density)];
            if (image.isNull())
                image = artwork::render(picture, density);
            image.setDevicePixelRatio(1);
            return image;
        }
    }
    return {};
}

QImage cellOf(const QImage &strip, int side, int row)
{
    return strip.copy(0, row * side, side, side);
}

// The edge of a cell is empty when pictures drawn at odd scale factors may sample across it.
bool hasEmptyEdge(const QImage &strip, const QRect &cell)
{
    for (int step = 0; step < cell.width(); ++step) {
        for (const QPoint &edge : {QPoint(step, 0), QPoint(step, cell.height() - 1),
                                   QPoint(0, step), QPoint(cell.width() - 1, step)}) {
            if (qAlpha(strip.pixel(cell.topLeft() + edge)) != 0)
                return false;
        }
    }
    return true;
}

bool isLit(const QImage &cell, const artwork::KnobGeometry &geometry, double angle)
{
    const double ratio = static_cast<double>(cell.width()) / geometry.cell.width();
    const QPointF centre(cell.width() / 2.0, cell.height() / 2.0);
    const QPointF place = centre + artwork::pointAt(angle, geometry.ringRadius) * ratio;
    return qGray(cell.pixel(static_cast<int>(place.x()), static_cast<int>(place.y()))) > 100;
}

// Direction in which the white line on the cap points.
double pointerAngle(const QImage &cell, double withinRadius)
{
    QPointF sum;
    for (int y = 0; y < cell.height(); ++y) {
        for (int x = 0; x < cell.width(); ++x) {
            const QPointF place(x + 0.5 - cell.width() / 2.0, y + 0.5 - cell.height() / 2.0);
            if (std::hypot(place.x(), place.y()) < withinRadius && qGray(cell.pixel(x, y)) > 225)
                sum += place;
        }
    }
    return qRadiansToDegrees(std::atan2(sum.x(), -sum.y()));
}

} // namespace

class tst_KnobStrip : public QObject
{
    Q_OBJECT

private slots:
    void stripIsMadeOfSeparateCells_data();
    void stripIsMadeOfSeparateCells();
    void ringIsLitFromItsOriginToTheValue_data();
    void ringIsLitFromItsOriginToTheValue();
    void indicatorPointsAtTheValue();
};

void tst_KnobStrip::stripIsMadeOfSeparateCells_data()
{
    QTest::addColumn<Layout>("layout");
    for (const Layout &layout : layouts)
        QTest::newRow(layout.name) << layout;
}

void tst_KnobStrip::stripIsMadeOfSeparateCells()
{
    QFETCH(Layout, layout);
    for (int density : artwork::densities) {
        const QImage strip = rendered(layout.name, density);
        const QSize cell = QSize(layout.side, layout.side) * density;
        QCOMPARE(strip.size(), QSize(cell.width() * layout.columns, cell.height() * layout.rows));
        for (int row = 0; row < layout.rows; ++row) {
            for (int column = 0; column < layout.columns; ++column) {
                const QPoint corner(column * cell.width(), row * cell.height());
                QVERIFY2(hasEmptyEdge(strip, {corner, cell}), qPrintable(QString::number(row)));
            }
        }
    }
}

void tst_KnobStrip::ringIsLitFromItsOriginToTheValue_data()
{
    Table<QString, int, double, double>()
        .row("minimum", "knob-amber", 0, -135.0, -135.0)
        .row("a third", "knob-grey", 40, -135.0, -45.0)
        .row("maximum", "knob-red", 120, -135.0, 135.0)
        .row("left", "knob-pan", 0, -135.0, 0.0)
        .row("centre", "knob-pan", 60, 0.0, 0.0)
        .row("boost", "knob-eq", 80, 0.0, 45.0)
        .row("few rows", "knob-att", 15, -135.0, 0.0)
        .row("below a disabled row", "knob-amber-d", 41, -135.0, -45.0)
        .row("small", "knob-small-blue", 80, -135.0, 45.0)
        .row("small, right", "knob-small-pan", 120, 0.0, 135.0);
}

void tst_KnobStrip::ringIsLitFromItsOriginToTheValue()
{
    const auto [name, row, from, to] = Table<QString, int, double, double>::fetch();
    // Nearer to an end of the arc the answer depends on how its edge falls between the pixels.
    constexpr double unclear = 5.0;
    for (int density : artwork::densities) {
        const auto &geometry = name.contains("small") ? artwork::smallKnob : artwork::largeKnob;
        const QImage cell = cellOf(rendered(name, density), geometry.cell.width() * density, row);
        for (double angle = -178.0; angle < 180.0; angle += 2.0) {
            if (std::min(std::abs(angle - from), std::abs(angle - to)) < unclear)
                continue;
            QVERIFY2(isLit(cell, geometry, angle) == (from < angle && angle < to),
                     qPrintable(QString::number(angle)));
        }
    }
}

void tst_KnobStrip::indicatorPointsAtTheValue()
{
    const QImage strip = rendered("knob-blue", 2);
    for (int row = 0; row <= 120; ++row) {
        const double expected = -135.0 + 2.25 * row;
        const double seen =
            pointerAngle(cellOf(strip, 112, row), 2 * artwork::largeKnob.bodyRadius);
        QVERIFY2(std::abs(seen - expected) < 1.5,
                 qPrintable(QStringLiteral("row %1: %2").arg(row).arg(seen)));
    }
}

QTEST_GUILESS_MAIN(tst_KnobStrip)
#include "tst_KnobStrip.moc"

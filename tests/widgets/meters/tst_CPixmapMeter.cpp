// SPDX-License-Identifier: MIT
// The picture meter: which picture a reading selects, from which part of the strip it is cut.
#include "testkit/TestStrip.h"
#include "tests/support/MeterRig.h"
#include "tests/support/Table.h"
#include "widgets/meters/CPixmapMeter.h"

namespace {

constexpr QSize Cell(12, 8);

/// Opens what the binding uses.
class OpenMeter : public CPixmapMeter
{
public:
    using CPixmapMeter::CPixmapMeter;
    using CPixmapMeter::meterLevelIndex;
};

using Rig = MeterRig<OpenMeter>;

QColor shownColour(CPixmapMeter &meter)
{
    return meter.grab().toImage().pixelColor(1, 1);
}

} // namespace

class tst_CPixmapMeter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readingsSelectThePicture_data();
    void readingsSelectThePicture();
    void thresholdsSelectAnIndex_data();
    void thresholdsSelectAnIndex();
    void theMemorysTableIsLookedUpAtAttaching();
    void picturesAreCutAlongTheDirection_data();
    void picturesAreCutAlongTheDirection();
    void aPictureBeyondTheLastIsTheFirst();
    void looksAreHeldAgainstTheNumberOfPictures();
    void countsBelowOneAreOne();
    void goingOnlineResetsToo();
};

void tst_CPixmapMeter::readingsSelectThePicture_data()
{
    Table<int, int>()
        .row("silence", 0, 0)
        .row("just below a threshold", 0xFF, 0)
        .row("at a threshold", 0x100, 1)
        .row("below the next", 0x7FF, 1)
        .row("at the next", 0x800, 2)
        .row("the highest code", 0x3FFF, 3);
}

void tst_CPixmapMeter::readingsSelectThePicture()
{
    const auto [code, picture] = Table<int, int>::fetch();
    Rig rig;
    rig.meter.setBoundList("100;800;2000");
    rig.meter.setCombinedImage(teststrip::make(1, 4, Cell));
    rig.meter.setnSubImages(4);
    QCOMPARE(rig.meter.size(), Cell);
    rig.read(0x3FFF);
    QCOMPARE(shownColour(rig.meter), teststrip::colour(0, 0)); // no thresholds before attaching
    rig.bind();
    rig.read(code);
    QCOMPARE(shownColour(rig.meter), teststrip::colour(0, picture));
}

void tst_CPixmapMeter::thresholdsSelectAnIndex_data()
{
    using Codes = std::vector<quint16>;
    Table<QString, Codes, int, int>()
        .row("none", "", {}, 0x3FFF, 0)
        .row("separators", ";;; ;", {}, 0, 1) // an item that is no number is 0
        .row("words", "high;100", {}, 0x50, 1)
        .row("too large", "12345;100", {}, 0, 1)
        .row("empty items are dropped", ";;100;;", {}, 0x100, 1)
        .row("more items than pictures", "1;2;3;4;5;6;7;8;9", {}, 0x3FFF, 3)
        .row("fewer items than pictures", "1", {}, 0x3FFF, 1)
        .row("the memory's table", "1;2;3", {10, 20, 30, 40, 50, 60}, 19, 1)
        .row("searched as far as there are pictures", "1;2;3", {10, 20, 30, 40, 50}, 0x3FFF, 3)
        .row("a table of one", "1;2;3", {50}, 0x3FFF, 1);
}

void tst_CPixmapMeter::thresholdsSelectAnIndex()
{
    const auto [list, table, code, index] = Table<QString, std::vector<quint16>, int, int>::fetch();
    Rig rig;
    rig.memory.meterTables[7] = table;
    rig.meter.setMeterTableId(7);
    rig.meter.setnSubImages(4);
    rig.meter.setBoundList(list);
    rig.bind();
    QCOMPARE(rig.meter.meterLevelIndex(static_cast<unsigned short>(code)), index);
    // In no order: any answer within the pictures.
    rig.meter.setBoundList("2000;100;3000");
    for (int each = 0; each <= 0x3FFF; each += 0x40) {
        const int found = rig.meter.meterLevelIndex(static_cast<unsigned short>(each));
        QVERIFY(found >= 0 && found < 4);
    }
}

void tst_CPixmapMeter::theMemorysTableIsLookedUpAtAttaching()
{
    Rig rig;
    rig.memory.meterTables[7] = {10, 20, 30};
    rig.meter.setnSubImages(4);
    rig.meter.setBoundList("1;2;3");
    rig.meter.setMeterTableId(7);
    rig.bind();
    rig.meter.setMeterTableId(8); // there is none
    QCOMPARE(rig.meter.meterLevelIndex(19), 1);
    rig.bind();
    QCOMPARE(rig.meter.meterLevelIndex(19), 3);
}

void tst_CPixmapMeter::picturesAreCutAlongTheDirection_data()
{
    Table<CPixmapMeter::SubDirection, QSize, QPoint>()
        .row("columns", CPixmapMeter::ColImages, QSize(2, 3), QPoint(1, 2))
        .row("rows", CPixmapMeter::RowImages, QSize(3, 2), QPoint(2, 1));
}

void tst_CPixmapMeter::picturesAreCutAlongTheDirection()
{
    const auto [direction, grid, cell] = Table<CPixmapMeter::SubDirection, QSize, QPoint>::fetch();
    Rig rig;
    rig.meter.setCombinedImage(teststrip::make(grid.width(), grid.height(), Cell, 2));
    rig.meter.setSubDirection(direction);
    rig.meter.setnSubImages(3);
    rig.meter.setnImageCategories(2);
    QCOMPARE(rig.meter.size(), Cell);
    rig.meter.setBoundList("10;20");
    rig.bind();
    rig.meter.setCurrentImage(1);
    rig.read(0x3FFF);
    const QColor expected = teststrip::colour(cell.x(), cell.y());
    QCOMPARE(shownColour(rig.meter), expected);
    QCOMPARE(rig.meter.erasePixmap().toImage().pixelColor(1, 1), expected);
}

void tst_CPixmapMeter::aPictureBeyondTheLastIsTheFirst()
{
    Rig rig;
    rig.meter.setCombinedImage(teststrip::make(1, 4, Cell));
    rig.meter.setnSubImages(4);
    rig.meter.setBoundList("1;2;3");
    rig.bind();
    rig.read(2);
    QCOMPARE(shownColour(rig.meter), teststrip::colour(0, 2));
    rig.meter.setnSubImages(2); // shown are two parts now, and attached are still three thresholds
    rig.meter.setBoundList("1;2");
    rig.read(0x3FFF);
    QCOMPARE(shownColour(rig.meter), teststrip::colour(0, 0));
}

void tst_CPixmapMeter::looksAreHeldAgainstTheNumberOfPictures()
{
    Rig rig;
    rig.meter.setCombinedImage(teststrip::make(1, 3, Cell));
    rig.meter.setnSubImages(3);
    rig.meter.setCurrentImage(-1);
    rig.meter.setCurrentImage(3);
    QVERIFY(rig.meter.testAttribute(Qt::WA_OpaquePaintEvent));
    rig.meter.setCurrentImage(2); // a column that this strip does not have
    QVERIFY(!rig.meter.testAttribute(Qt::WA_OpaquePaintEvent));
    rig.meter.grab();
}

void tst_CPixmapMeter::countsBelowOneAreOne()
{
    CPixmapMeter meter;
    for (const int count : {0, -5}) {
        meter.setnSubImages(3);
        meter.setnSubImages(count);
        QCOMPARE(meter.nSubImages(), 1);
        meter.setnImageCategories(count);
        QCOMPARE(meter.nImageCategories(), 1);
    }
    meter.setnSubImages(INT_MAX);
    QCOMPARE(meter.nSubImages(), 1);
}

void tst_CPixmapMeter::goingOnlineResetsToo()
{
    Rig rig;
    rig.meter.setCombinedImage(teststrip::make(1, 3, Cell));
    rig.meter.setnSubImages(3);
    rig.meter.setBoundList("10;20");
    rig.bind();
    for (const bool online : {true, false}) {
        rig.read(0x3FFF);
        QCOMPARE(shownColour(rig.meter), teststrip::colour(0, 2));
        rig.meter.onlineChange(online);
        QCOMPARE(shownColour(rig.meter), teststrip::colour(0, 0));
    }
}

QTEST_MAIN(tst_CPixmapMeter)
#include "tst_CPixmapMeter.moc"

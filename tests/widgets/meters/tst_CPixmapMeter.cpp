// SPDX-License-Identifier: MIT
// The picture meter: which picture a reading selects, from which part of the strip it is cut.
#include "tests/support/MeterRig.h"
#include "testkit/TestStrip.h"
#include "widgets/meters/CPixmapMeter.h"

#include <thread>

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
    void badThresholdsSelectSomething_data();
    void badThresholdsSelectSomething();
    void theMemorysTableIsSearchedAsFarAsThereArePictures();
    void aShortTableOfTheMemory_data();
    void aShortTableOfTheMemory();
    void picturesAreCutAlongTheDirection_data();
    void picturesAreCutAlongTheDirection();
    void stripsThatAreTooSmall_data();
    void stripsThatAreTooSmall();
    void aPictureBeyondTheLastIsTheFirst();
    void looksAreHeldAgainstTheNumberOfPictures();
    void countsBelowOneAreOne();
    void theNameIsNotTaken();
    void otherThreadsOnlyStoreTheReading();
    void onlyAnotherPictureCostsAPaint();
    void goingOnlineResetsToo();
    void watchesItsAddress();
};

void tst_CPixmapMeter::readingsSelectThePicture_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("picture");
    QTest::newRow("silence") << 0 << 0;
    QTest::newRow("just below a threshold") << 0xFF << 0;
    QTest::newRow("at a threshold") << 0x100 << 1;
    QTest::newRow("below the next") << 0x7FF << 1;
    QTest::newRow("at the next") << 0x800 << 2;
    QTest::newRow("the highest code") << 0x3FFF << 3;
}

void tst_CPixmapMeter::readingsSelectThePicture()
{
    QFETCH(int, code);
    QFETCH(int, picture);
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

void tst_CPixmapMeter::badThresholdsSelectSomething_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("index");
    QTest::newRow("none") << "" << 0x3FFF << 0;
    QTest::newRow("separators") << ";;; ;" << 0 << 1; // an item that is no number is 0
    QTest::newRow("words") << "high;100" << 0x50 << 1;
    QTest::newRow("too large") << "12345;100" << 0 << 1;
    QTest::newRow("empty items are dropped") << ";;100;;" << 0x100 << 1;
    QTest::newRow("more items than pictures") << "1;2;3;4;5;6;7;8;9" << 0x3FFF << 3;
    QTest::newRow("fewer items than pictures") << "1" << 0x3FFF << 1;
}

void tst_CPixmapMeter::badThresholdsSelectSomething()
{
    QFETCH(QString, list);
    QFETCH(int, code);
    Rig rig;
    rig.meter.setnSubImages(4);
    rig.meter.setBoundList(list);
    rig.bind();
    QTEST(rig.meter.meterLevelIndex(static_cast<unsigned short>(code)), "index");
    // In no order: any answer within the pictures.
    rig.meter.setBoundList("2000;100;3000");
    for (int each = 0; each <= 0x3FFF; each += 0x40) {
        const int index = rig.meter.meterLevelIndex(static_cast<unsigned short>(each));
        QVERIFY(index >= 0 && index < 4);
    }
}

void tst_CPixmapMeter::theMemorysTableIsSearchedAsFarAsThereArePictures()
{
    Rig rig;
    rig.memory.meterTables[7] = {10, 20, 30, 40, 50, 60, 70, 80, 90, 100};
    rig.meter.setnSubImages(4);
    rig.meter.setBoundList("1;2;3");
    rig.meter.setMeterTableId(7);
    rig.bind();
    QCOMPARE(rig.meter.meterLevelIndex(19), 1);
    QCOMPARE(rig.meter.meterLevelIndex(16383), 3);
    rig.meter.setMeterTableId(8); // there is none; and not before the next attach
    QCOMPARE(rig.meter.meterLevelIndex(19), 1);
    rig.bind();
    QCOMPARE(rig.meter.meterLevelIndex(19), 3);
}

void tst_CPixmapMeter::aShortTableOfTheMemory_data()
{
    QTest::addColumn<std::vector<quint16>>("table");
    QTest::addColumn<int>("highest");
    QTest::newRow("none: the own list") << std::vector<quint16>{} << 3;
    QTest::newRow("one") << std::vector<quint16>{50} << 1;
    QTest::newRow("two") << std::vector<quint16>{50, 60} << 2;
}

void tst_CPixmapMeter::aShortTableOfTheMemory()
{
    QFETCH(std::vector<quint16>, table);
    Rig rig;
    rig.memory.meterTables[7] = table;
    rig.meter.setMeterTableId(7);
    rig.meter.setnSubImages(4);
    rig.meter.setBoundList("1;2;3");
    rig.bind();
    QTEST(rig.meter.meterLevelIndex(16383), "highest");
}

void tst_CPixmapMeter::picturesAreCutAlongTheDirection_data()
{
    QTest::addColumn<CPixmapMeter::SubDirection>("direction");
    QTest::addColumn<QSize>("grid");
    QTest::addColumn<QPoint>("cell");
    QTest::newRow("columns") << CPixmapMeter::ColImages << QSize(2, 3) << QPoint(1, 2);
    QTest::newRow("rows") << CPixmapMeter::RowImages << QSize(3, 2) << QPoint(2, 1);
}

void tst_CPixmapMeter::picturesAreCutAlongTheDirection()
{
    QFETCH(CPixmapMeter::SubDirection, direction);
    QFETCH(QSize, grid);
    QFETCH(QPoint, cell);
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

void tst_CPixmapMeter::stripsThatAreTooSmall_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("none") << QSize();
    QTest::newRow("a pixel") << QSize(1, 1);
    QTest::newRow("less high than there are pictures") << QSize(12, 3);
    QTest::newRow("less wide than there are looks") << QSize(1, 40);
}

void tst_CPixmapMeter::stripsThatAreTooSmall()
{
    QFETCH(QSize, size);
    Rig rig;
    for (const auto direction : {CPixmapMeter::RowImages, CPixmapMeter::ColImages}) {
        rig.meter.setSubDirection(direction);
        rig.meter.setCombinedImage(size.isValid() ? QPixmap(size) : QPixmap());
        rig.meter.setnSubImages(4);
        rig.meter.setnImageCategories(2);
        rig.meter.setBoundList("1;2;3");
        rig.bind();
        for (const int code : {0, 1, 2, 0x3FFF}) {
            rig.meter.setCurrentImage(code & 3);
            rig.read(code);
            rig.meter.grab();
            rig.meter.erasePixmap();
            rig.meter.sizeHint();
        }
    }
    rig.meter.setCurrentImage(0);
    rig.meter.setCombinedImage(teststrip::make(2, 4, Cell));
    rig.meter.adjustParams();
    QCOMPARE(shownColour(rig.meter), teststrip::colour(0, 3));
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

void tst_CPixmapMeter::theNameIsNotTaken()
{
    const CPixmapMeter meter(nullptr, "lamp");
    QVERIFY(meter.objectName().isEmpty());
    QVERIFY(!meter.isUndoEnable());
}

void tst_CPixmapMeter::otherThreadsOnlyStoreTheReading()
{
    Rig rig;
    rig.meter.setCombinedImage(teststrip::make(1, 4, Cell));
    rig.meter.setnSubImages(4);
    rig.meter.setBoundList("1;2;3");
    rig.bind();
    std::thread([&] {
        rig.read(2);
        rig.read(3);
    }).join();
    QCOMPARE(rig.memory.observerEvents.load(), 2);
    QCOMPARE(shownColour(rig.meter), teststrip::colour(0, 0));
    rig.observe();
    QCOMPARE(shownColour(rig.meter), teststrip::colour(0, 3));
    std::thread([&] { rig.read(5); }).join();
    QCOMPARE(rig.memory.observerEvents.load(), 2);
}

void tst_CPixmapMeter::onlyAnotherPictureCostsAPaint()
{
    Rig rig;
    rig.meter.setCombinedImage(teststrip::make(1, 3, Cell));
    rig.meter.setnSubImages(3);
    rig.meter.setBoundList("10;20");
    rig.bind();
    rig.show();
    rig.read(0x15);
    QCOMPARE(rig.paintsSince(), 1);
    rig.read(0x1F);
    const Q_UINT8 other[] = {1, 0, 0, 0};
    rig.meter.process(other, TMemProxyBasic::ResetToDefault, 1);
    QCOMPARE(rig.paintsSince(), 0);
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

void tst_CPixmapMeter::watchesItsAddress()
{
    Rig rig;
    rig.memory.bind(rig.meter, 3, 7, 2);
    QCOMPARE(rig.memory.take(),
             QStringList({"setMeterWatch 1 3 7 2", "connectApiSignal 1 2onlineChanged( bool ) "
                                                   "1onlineChange( bool )"}));
    rig.meter.disconnectMemAPI();
    QCOMPARE(rig.memory.take(),
             QStringList({"setMeterWatch 0 3 7 2", "connectApiSignal 0 2onlineChanged( bool ) "
                                                   "1onlineChange( bool )"}));
    rig.meter.disconnectMemAPI();
    QCOMPARE(rig.memory.take(), QStringList());
}

QTEST_MAIN(tst_CPixmapMeter)
#include "tst_CPixmapMeter.moc"

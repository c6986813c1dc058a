// SPDX-License-Identifier: MIT
// What holds for every meter of levels: threads, paints, what it watches, pictures that do not fit.
#include "testkit/TestStrip.h"
#include "tests/support/MeterRig.h"
#include "tests/support/Table.h"
#include "widgets/meters/CMeter.h"
#include "widgets/meters/CPixmapMeter.h"
#include "widgets/meters/CThresholdMeter.h"

#include <thread>

namespace {

constexpr QSize Cell(12, 40);
// Two codes that show the same.
constexpr int Level = 59;
constexpr int SameAgain = 60;

void dress(CMeter &meter, const QPixmap &picture)
{
    meter.setMeterImage(picture);
    meter.setMeterBgndImage(QPixmap(picture.size()));
}

void dress(CPixmapMeter &meter, const QPixmap &picture)
{
    meter.setSubDirection(picture.width() > picture.height() ? CPixmapMeter::RowImages
                                                             : CPixmapMeter::ColImages);
    meter.setBoundList("10;20;7F");
    meter.setnSubImages(4);
    meter.setCombinedImage(picture);
    meter.adjustParams();
}

void dress(CThresholdMeter &meter, const QPixmap &picture)
{
    meter.setThresholdLevel(50);
    meter.setnSubImages(4);
    meter.setCombinedImage(picture);
    meter.adjustParams();
    meter.changeState(1);
}

/// A meter with a picture that fits; lamps are online and wanted.
template<class Meter>
class Rig : public MeterRig<Meter>
{
public:
    Rig()
    {
        this->memory.connection = IMemAPI::Online;
        this->memory.preferenceValues[IPreferences::ThresholdLamps] = true;
        dress(this->meter, teststrip::make(1, 4, Cell));
    }
    void bindAndDress()
    {
        this->bind();
        dress(this->meter, teststrip::make(1, 4, Cell));
    }
    QImage shown() { return this->meter.grab().toImage(); }
    /// Watches and connections made and ended since the last call.
    QString subscriptions()
    {
        return this->memory.take({"setMeterWatch", "connectApiSignal"}).join(u'|').remove(u' ');
    }
    static constexpr bool IsLamp = std::is_same_v<Meter, CThresholdMeter>;
};

/// Applies a rule to the meter of the present row.
template<class Rule>
void withMeter(const Rule &rule)
{
    const auto [which] = Table<int>::fetch();
    if (which == 0)
        rule(*std::make_unique<Rig<CMeter>>());
    else if (which == 1)
        rule(*std::make_unique<Rig<CPixmapMeter>>());
    else
        rule(*std::make_unique<Rig<CThresholdMeter>>());
}

} // namespace

class tst_EveryMeter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void otherThreadsOnlyStoreTheReading_data() { everyMeter(); }
    void otherThreadsOnlyStoreTheReading();
    void onlyAnotherPictureCostsAPaint_data() { everyMeter(); }
    void onlyAnotherPictureCostsAPaint();
    void watchesItsAddress_data() { everyMeter(); }
    void watchesItsAddress();
    void picturesThatDoNotFitAreSurvived_data() { everyMeter(); }
    void picturesThatDoNotFitAreSurvived();
    void theNameIsNotTaken();

private:
    static void everyMeter()
    {
        Table<int>().row("CMeter", 0).row("CPixmapMeter", 1).row("CThresholdMeter", 2);
    }
};

void tst_EveryMeter::otherThreadsOnlyStoreTheReading()
{
    withMeter([](auto &rig) {
        rig.bindAndDress();
        const QImage before = rig.shown();
        const int asked = rig.memory.observerEvents;
        std::thread([&] {
            rig.read(Level);
            rig.read(127);
        }).join();
        QCOMPARE(rig.memory.observerEvents - asked, 2);
        QCOMPARE(rig.shown(), before);
        rig.observe();
        const QImage after = rig.shown();
        QVERIFY(after != before);
        std::thread([&] { rig.read(127); }).join();
        QCOMPARE(rig.memory.observerEvents - asked, rig.IsLamp ? 3 : 2);
        rig.read(127);
        QCOMPARE(rig.shown(), after);
    });
}

void tst_EveryMeter::onlyAnotherPictureCostsAPaint()
{
    withMeter([](auto &rig) {
        rig.bindAndDress();
        rig.show();
        rig.read(Level);
        QCOMPARE(rig.paintsSince(), 1);
        rig.read(SameAgain);
        const Q_UINT8 loud[] = {0, 127, 0, 127};
        for (const int operation : {-1, 1, 2, 3, 4, 5})
            rig.meter.process(loud, operation, 1);
        QCOMPARE(rig.paintsSince(), 0);
        rig.read(127);
        QCOMPARE(rig.paintsSince(), 1);
    });
}

void tst_EveryMeter::watchesItsAddress()
{
    withMeter([](auto &rig) {
        const QImage dark = rig.shown();
        rig.memory.bind(rig.meter, 3, 7, 2);
        QCOMPARE(rig.subscriptions(),
                 "setMeterWatch1372|connectApiSignal12onlineChanged(bool)1onlineChange(bool)");
        QCOMPARE(rig.shown(), dark);
        rig.meter.disconnectMemAPI();
        QCOMPARE(rig.subscriptions(),
                 "setMeterWatch0372|connectApiSignal02onlineChanged(bool)1onlineChange(bool)");
        QVERIFY(!rig.meter.isAttached());
        rig.meter.disconnectMemAPI();
        if (!rig.IsLamp)
            QCOMPARE(rig.subscriptions(), QString());
    });
}

void tst_EveryMeter::picturesThatDoNotFitAreSurvived()
{
    withMeter([](auto &rig) {
        rig.bindAndDress();
        rig.read(127);
        const QImage right = rig.shown();
        for (const QSize size : {QSize(), QSize(1, 1), QSize(12, 3), QSize(3, 2), QSize(1, 40)}) {
            dress(rig.meter, size.isValid() ? QPixmap(size) : QPixmap());
            for (const int code : {0, 17, 60, 127, 0x3FFF}) {
                rig.read(code);
                rig.meter.grab();
                rig.meter.erasePixmap();
                rig.meter.sizeHint();
            }
        }
        rig.bindAndDress();
        rig.read(127);
        QCOMPARE(rig.shown(), right);
    });
}

void tst_EveryMeter::theNameIsNotTaken()
{
    const CPixmapMeter meter(nullptr, "lamp");
    const CThresholdMeter lamp(nullptr, "lamp");
    QVERIFY(meter.objectName().isEmpty() && lamp.objectName().isEmpty());
    QVERIFY(!meter.isUndoEnable());
    QCOMPARE(lamp.focusPolicy(), Qt::ClickFocus);
}

QTEST_MAIN(tst_EveryMeter)
#include "tst_EveryMeter.moc"

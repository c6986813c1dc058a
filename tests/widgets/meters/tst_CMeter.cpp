// SPDX-License-Identifier: MIT
// The level meter: what is lit for which reading, what a reading costs, how it is bound.
#include "tests/support/MeterRig.h"
#include "tests/support/Table.h"
#include "widgets/meters/CMeter.h"

#include <QAccessible>

namespace {

using Rig = MeterRig<CMeter>;

const QColor Lit(0, 200, 0);
const QColor Unlit(20, 20, 20);

QPixmap filled(const QSize &size, const QColor &colour, bool withAlpha = false)
{
    QImage image(size, withAlpha ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    image.fill(colour);
    return QPixmap::fromImage(image, Qt::NoOpaqueDetection);
}

void dress(CMeter &meter, const QSize &size, bool withAlpha = false)
{
    meter.setMeterBgndImage(filled(size, Unlit, withAlpha));
    meter.setMeterImage(filled(size, Lit, withAlpha));
}

QString lit(CMeter &meter)
{
    return stretchesOf(meter.grab().toImage(), meter.width() < meter.height(), Lit);
}

} // namespace

class tst_CMeter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readingsLightThePicture_data();
    void readingsLightThePicture();
    void aFractionalScreenShowsNoSeams();
    void withoutAnUnlitPictureTheBackgroundIsErased();
    void nothingIsDrawnWithoutALitPicture();
    void theLitPictureGivesSizeAndDirection();
    void aChangedColourLeavesTheSize();
    void onlyRefreshesAreReadings();
    void readingsThatShowNothingNewCostNoPaint();
    void theErasePixmapIsTheMeter();
    void selectorsWithoutAScaleKeepTheTable();
    void aReductionStartsPastItsScaleAndResetsToItsLastRow();
    void onlyGoingOfflineResets();
    void switchingPeakHoldOffForgetsTheMark();
    void withoutAnAddressItOnlyResets();
    void speaksItsLevel();
    void survivesAnySize_data();
    void survivesAnySize();
};

void tst_CMeter::readingsLightThePicture_data()
{
    Table<int, QSize, int, int, QString> table;
    const auto row = [&table](const char *name, int selector, QSize size, int level, int peak,
                              const char *lit) {
        table.row(name, selector, size, level, peak, lit);
    };
    const QSize standing(10, 136);
    row("silence", CMeter::eMtr_Normal, standing, 0, 0, "");
    row("the first step", CMeter::eMtr_Normal, standing, 47, 47, "135-135");
    row("a level", CMeter::eMtr_Normal, standing, 58, 58, "124-135");
    row("full scale", CMeter::eMtr_Normal, standing, 127, 127, "0-135");
    row("twice as high", CMeter::eMtr_Normal, {10, 272}, 58, 58, "248-271");
    row("half as high", CMeter::eMtr_Normal, {10, 68}, 58, 58, "62-67");
    row("half a pixel is none", CMeter::eMtr_Normal, {10, 68}, 47, 47, "");

    row("a held peak", CMeter::eMtr_Normal, standing, 0, 58, "124-124");
    row("a held peak of two pixels", CMeter::eMtr_Normal, standing, 0, 53, "129-130");
    row("a held peak above the bar", CMeter::eMtr_Normal, standing, 58, 127, "0-2 124-135");
    row("a peak below the bar", CMeter::eMtr_Normal, standing, 58, 47, "124-135");
    row("a scaled peak", CMeter::eMtr_Normal, {10, 272}, 0, 53, "258-261");
    row("half a pixel of peak is one", CMeter::eMtr_Normal, {10, 68}, 0, 48, "67-67");
    row("a peak at the bottom", CMeter::eMtr_Normal, {10, 68}, 0, 47, "");

    // A lying bar takes what a standing one leaves, and is measured by its height.
    row("lying, silence", CMeter::eMtr_Normal, {200, 136}, 0, 0, "0-199");
    row("lying, full scale", CMeter::eMtr_Normal, {200, 136}, 127, 0, "0-63");
    row("lying, scaled by the height", CMeter::eMtr_Normal, {300, 272}, 127, 0, "0-27");
    row("lying, full scale and peak", CMeter::eMtr_Normal, {200, 136}, 127, 127, "0-66");

    const QSize reduced(10, 111);
    row("no reduction", CMeter::eMtr_GR, reduced, 127, 0, "");
    row("the least reduction", CMeter::eMtr_GR, reduced, 124, 127, "0-2");
    row("nearly all", CMeter::eMtr_GR, reduced, 73, 0, "0-109");
    row("all", CMeter::eMtr_GR, reduced, 0, 127, "0-110");
    row("lying, no reduction", CMeter::eMtr_GR, {200, 111}, 127, 0, "88-199");
    row("lying, all", CMeter::eMtr_GR, {200, 111}, 0, 0, "199-199");
    row("reduction, half as high", CMeter::eMtr_GR_Eff, {10, 44}, 127, 0, "");

    row("a dark lamp", CMeter::eMtr_Sigma, {20, 20}, 126, 0, "");
    row("a lit lamp", CMeter::eMtr_Sigma, {20, 20}, 127, 0, "0-19");
    row("a lamp's held peak", CMeter::eMtr_Sigma, {20, 30}, 0, 127, "0-29");
    row("a lying lamp", CMeter::eMtr_Sigma, {40, 20}, 200, 0, "0-39");

    // Its steps are not summed up: full scale is no pixel, and any length is all of them.
    row("compressor lamp, reducing", CMeter::eMtr_CompGR, {20, 30}, 86, 0, "");
    row("compressor lamp, at rest", CMeter::eMtr_CompGR, {20, 30}, 127, 0, "0-29");
}

void tst_CMeter::readingsLightThePicture()
{
    const auto [selector, size, level, peak, expected] =
        Table<int, QSize, int, int, QString>::fetch();
    for (const bool withAlpha : {false, true}) {
        Rig rig;
        rig.meter.setMeterSelector(CMeter::EMeterSelector(selector));
        dress(rig.meter, size, withAlpha);
        rig.read(level, peak);
        const bool upright = size.width() < size.height();
        QCOMPARE(stretchesOf(rig.meter.grab().toImage(), upright, Lit), expected);
        QCOMPARE(rig.meter.testAttribute(Qt::WA_OpaquePaintEvent), !withAlpha);
    }
}

void tst_CMeter::aFractionalScreenShowsNoSeams()
{
    Rig rig;
    dress(rig.meter, {10, 136});
    for (const qreal ratio : {1.25, 1.5, 2.0}) {
        for (int level = 47; level < 127; level += 3) {
            rig.read(level, 127);
            QImage image((QSizeF(rig.meter.size()) * ratio).toSize(), QImage::Format_RGB32);
            image.setDevicePixelRatio(ratio);
            image.fill(Qt::red);
            QPainter painter(&image);
            rig.meter.repaintScreenPrimitive(painter);
            painter.end();
            const QString shown =
                stretchesOf(image, true, Lit) + ' ' + stretchesOf(image, true, Unlit);
            int pixels = 0;
            for (const QString &stretch : shown.split(' ', Qt::SkipEmptyParts))
                pixels += stretch.section('-', 1).toInt() - stretch.section('-', 0, 0).toInt() + 1;
            QVERIFY2(pixels == image.height(), qPrintable(shown));
        }
    }
}

void tst_CMeter::withoutAnUnlitPictureTheBackgroundIsErased()
{
    Rig rig;
    QPalette blue;
    blue.setColor(QPalette::Window, Qt::blue);
    rig.meter.setPalette(blue);
    rig.meter.setMeterImage(filled({10, 136}, Lit));
    rig.read(58, 0);
    QCOMPARE(stretchesOf(rig.meter.grab().toImage(), true, Qt::blue), QStringLiteral("0-123"));
    QVERIFY(rig.meter.testAttribute(Qt::WA_OpaquePaintEvent));
}

void tst_CMeter::nothingIsDrawnWithoutALitPicture()
{
    Rig rig;
    rig.meter.setMeterBgndImage(filled({10, 136}, Unlit));
    rig.read(127, 127);
    QCOMPARE(stretchesOf(rig.meter.grab().toImage(), true, Unlit), QString());
    QVERIFY(!rig.meter.testAttribute(Qt::WA_OpaquePaintEvent));
}

void tst_CMeter::theLitPictureGivesSizeAndDirection()
{
    CMeter meter;
    meter.setMeterImage(filled({10, 136}, Lit));
    QCOMPARE(meter.size(), QSize(10, 136));
    QCOMPARE(meter.minimumSize(), meter.maximumSize());
    QCOMPARE(meter.available(), 136);
    meter.setMeterImage(filled({40, 12}, Lit));
    QCOMPARE(meter.available(), 40);
    QPixmap sharp = filled({20, 272}, Lit);
    sharp.setDevicePixelRatio(2);
    meter.setMeterImage(sharp);
    QCOMPARE(meter.size(), QSize(10, 136));
    meter.setMeterImage({});
    QCOMPARE(meter.size(), QSize(10, 136));
}

void tst_CMeter::aChangedColourLeavesTheSize()
{
    Rig rig;
    dress(rig.meter, {10, 136});
    rig.read(58, 127);
    rig.meter.setChangeMeterImage(filled({10, 136}, Qt::yellow));
    QCOMPARE(stretchesOf(rig.meter.grab().toImage(), true, Qt::yellow),
             QStringLiteral("0-2 124-135"));
    rig.meter.setChangeMeterImage(filled({4, 50}, Qt::yellow));
    QCOMPARE(rig.meter.size(), QSize(10, 136));
}

void tst_CMeter::onlyRefreshesAreReadings()
{
    Rig rig;
    dress(rig.meter, {10, 136});
    const Q_UINT8 full[] = {0, 127, 0, 127};
    for (const int operation : {-1, 1, 2, 3, 4, 5})
        rig.meter.process(full, operation, 1);
    QCOMPARE(lit(rig.meter), QString());
    const Q_UINT8 fourteenBits[] = {1, 0, 0, 0};
    rig.meter.process(fourteenBits, TMemProxyBasic::Refresh, 0);
    QCOMPARE(lit(rig.meter), QStringLiteral("0-135"));
}

void tst_CMeter::readingsThatShowNothingNewCostNoPaint()
{
    Rig rig;
    dress(rig.meter, {10, 136});
    rig.show();
    rig.read(58, 60);
    QCOMPARE(rig.paintsSince(), 1);
    rig.read(58, 60);
    QCOMPARE(rig.paintsSince(), 0);
    rig.read(58, 65); // the peak alone
    QCOMPARE(rig.paintsSince(), 1);
    rig.read(125, 125);
    rig.paintsSince();
    rig.read(126, 126); // another row of the same length, reached by no pixel more
    QCOMPARE(rig.meter.value(), 62);
    QCOMPARE(rig.paintsSince(), 0);
}

void tst_CMeter::theErasePixmapIsTheMeter()
{
    Rig rig;
    dress(rig.meter, {10, 136});
    rig.read(58, 58);
    QCOMPARE(stretchesOf(rig.meter.erasePixmap().toImage(), true, Lit), QStringLiteral("124-135"));
    QPixmap other = filled({3, 3}, Qt::white);
    rig.meter.updateErasePixmap(&other);
    QCOMPARE(rig.meter.erasePixmap().toImage(), other.toImage());
    rig.read(127, 127);
    QCOMPARE(stretchesOf(rig.meter.erasePixmap().toImage(), true, Lit), QStringLiteral("0-135"));
}

void tst_CMeter::selectorsWithoutAScaleKeepTheTable()
{
    Rig rig;
    rig.meter.setMeterSelector(CMeter::eMtr_CompOut);
    QCOMPARE(rig.meter.maxValue(), 74);
    for (const auto selector :
         {CMeter::eMtr_Normal_Offset, CMeter::eMtr_GR_Offset, CMeter::EMeterSelector(57)}) {
        rig.read(100, 127);
        rig.meter.setMeterSelector(selector);
        QCOMPARE(rig.meter.maxValue(), 74);
        QCOMPARE(rig.meter.value(), 0);
        QVERIFY(!rig.meter.reductionMode());
    }
    QCOMPARE(rig.meter.meterLevelIndex(33), 2);
}

void tst_CMeter::aReductionStartsPastItsScaleAndResetsToItsLastRow()
{
    CMeter meter;
    meter.setMeterSelector(CMeter::eMtr_GR);
    QVERIFY(meter.reductionMode());
    QCOMPARE(meter.value(), 45);
    dress(meter, {10, 111});
    QCOMPARE(lit(meter), QString());
    meter.resetMeter();
    QCOMPARE(meter.value(), 44);
    QCOMPARE(lit(meter), QString());
}

void tst_CMeter::onlyGoingOfflineResets()
{
    Rig rig;
    dress(rig.meter, {10, 136});
    rig.read(58, 127);
    rig.meter.onlineChange(false); // it was
    rig.meter.onlineChange(true);
    QCOMPARE(lit(rig.meter), QStringLiteral("0-2 124-135"));
    rig.meter.onlineChange(false);
    QCOMPARE(lit(rig.meter), QString());
    rig.read(0, 127);
    QCOMPARE(lit(rig.meter), QStringLiteral("0-2"));
}

void tst_CMeter::switchingPeakHoldOffForgetsTheMark()
{
    Rig rig;
    dress(rig.meter, {10, 136});
    QVERIFY(rig.meter.peakHoldEnabled());
    rig.read(58, 127);
    rig.meter.setPeakHoldEnabled(false);
    QCOMPARE(lit(rig.meter), QStringLiteral("124-135"));
    rig.read(58, 100);
    QCOMPARE(lit(rig.meter), QStringLiteral("124-135"));
    rig.meter.setPeakHoldEnabled(true);
    QCOMPARE(lit(rig.meter), QStringLiteral("0-2 124-135"));
}

void tst_CMeter::withoutAnAddressItOnlyResets()
{
    Rig rig;
    rig.meter.setMemAPI(&rig.memory);
    rig.read(58, 127);
    rig.meter.connectMemAPI();
    QCOMPARE(rig.meter.value(), 0);
    rig.memory.readyNow = false;
    rig.read(58, 127);
    rig.meter.connectMemAPI();
    QCOMPARE(rig.meter.value(), 11);
    QCOMPARE(rig.memory.take(), QStringList());
}

void tst_CMeter::speaksItsLevel()
{
    Rig rig;
    rig.bind();
    rig.meter.setNamedAddress("kInputMeter/kLevel");
    rig.read(100, 127);
    const QAccessibleInterface *speaker = QAccessible::queryAccessibleInterface(&rig.meter);
    QCOMPARE(speaker->role(), QAccessible::Indicator);
    QCOMPARE(speaker->text(QAccessible::Name), QStringLiteral("Input Meter Level 3"));
    QCOMPARE(speaker->text(QAccessible::Value), QStringLiteral("<100>"));
    QCOMPARE(rig.meter.focusPolicy(), Qt::NoFocus);
}

void tst_CMeter::survivesAnySize_data()
{
    Table<QSize>()
        .row("no height", QSize(20, 0))
        .row("no width", QSize(0, 20))
        .row("a pixel", QSize(1, 1))
        .row("larger than the pictures", QSize(50, 400))
        .row("less high than the pictures", QSize(10, 3));
}

void tst_CMeter::survivesAnySize()
{
    const auto [size] = Table<QSize>::fetch();
    Rig rig;
    dress(rig.meter, {10, 136});
    rig.meter.setFixedSize(size);
    const auto readAll = [&rig] {
        for (const auto selector : {CMeter::eMtr_Normal, CMeter::eMtr_Sigma, CMeter::eMtr_CompGR,
                                    CMeter::eMtr_GR, CMeter::eMtr_Layer}) {
            rig.meter.setMeterSelector(selector);
            for (const int code : {0, 50, 127, 16383}) {
                rig.read(code, 127);
                rig.meter.grab();
                rig.meter.erasePixmap();
            }
        }
        rig.meter.setValue(1000);
        rig.meter.grab();
    };
    readAll();
    rig.meter.setMeterBgndImage(QPixmap(1, 1));
    readAll();
    rig.meter.setChangeMeterImage(QPixmap(2, 1));
    readAll();
}

QTEST_MAIN(tst_CMeter)
#include "tst_CMeter.moc"

// SPDX-License-Identifier: MIT
#include "companions/memory/ParameterMemory.h"
#include "tests/widgets/graphs/DynamicsRig.h"
#include "widgets/graphs/CCompCurve.h"

#include <QAccessible>

namespace {

using Rig = DynamicsRig<CCompCurve>;

/// Counts what a change costs.
class CountingCurve : public CCompCurve
{
public:
    int calls = 0;
    int paints = 0;

    void process(const Q_UINT8 *bytes, int operation, Q_UINT32 extra) override
    {
        ++calls;
        CCompCurve::process(bytes, operation, extra);
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++paints;
        CCompCurve::paintEvent(event);
    }
};

} // namespace

class tst_CCompCurve : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void followsFiveParametersOfTheBlock();
    void readsEverythingAndWritesNothing();
    void otherOperationsDoNothing();
    void everyParameterShapesTheCurve_data();
    void everyParameterShapesTheCurve();
    void thresholdIsHeldInItsBounds();
    void otherLawsDrawNothing();
    void standsOnItsPalettesBackground();
    void backgroundFollowsSizeAndPalette();
    void dotsAreWholePointsOnDenseScreens();
    void tellsTheThresholdWhenItChanges();
    void tellsLaterWhatWasBlocked();
    void oneChangeIsOneCallAndOnePaint();
    void nothingChangedIsNothingPainted();
    void speaksItsCurveInWords();
    void valuesBeyondReasonAreDrawn();
};

void tst_CCompCurve::followsFiveParametersOfTheBlock()
{
    Rig rig;
    rig.memory.bind(rig.graph, Rig::Group, Rig::Threshold, Rig::Element);
    QCOMPARE(rig.memory.take(),
             Rig::calls("attachProxy",
                        {Rig::Threshold, Rig::Gain, Rig::Knee, Rig::Ratio, Rig::Type}, " 0"));
    rig.graph.disconnectMemAPI();
    QCOMPARE(rig.memory.take(), Rig::calls("detachProxy", {Rig::Threshold, Rig::Gain, Rig::Knee,
                                                           Rig::Ratio, Rig::Type}));
    QVERIFY(!rig.graph.isAttached());
    rig.graph.disconnectMemAPI();
    QCOMPARE(rig.memory.take(), QStringList());
}

void tst_CCompCurve::readsEverythingAndWritesNothing()
{
    Rig rig;
    rig.bind();
    rig.refresh();
    const QStringList calls = rig.memory.take();
    for (const int index : {Rig::Threshold, Rig::Gain, Rig::Knee, Rig::Ratio}) {
        for (const char *read : {"readMinimum", "readMaximum", "readValue"})
            QVERIFY(
                calls.contains(QStringLiteral("%1 57 %2 2").arg(QLatin1String(read)).arg(index)));
    }
    QVERIFY(calls.contains("readValue 57 1 2"));
    QCOMPARE(calls.size(), 13);
}

void tst_CCompCurve::otherOperationsDoNothing()
{
    Rig rig;
    rig.bind();
    for (int operation = 1; operation <= 4; ++operation)
        rig.graph.process(nullptr, operation, 1);
    QCOMPARE(rig.memory.take(), QStringList());
    // Commands over the graph must not edit the threshold.
    QVERIFY(rig.graph.disabledUI());
}

void tst_CCompCurve::everyParameterShapesTheCurve_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("atTop");       // at +17 dB
    QTest::addColumn<int>("atThreshold"); // at -20 dB
    QTest::newRow("as it is: 20:1") << int(Rig::Ratio) << 14 << -18 << -20;
    QTest::newRow("threshold") << int(Rig::Threshold) << -300 << -27 << -29;
    QTest::newRow("ratio") << int(Rig::Ratio) << 5 << -1 << -20;
    QTest::newRow("knee") << int(Rig::Knee) << 5 << -18 << -23; // rises from -25
    QTest::newRow("gain") << int(Rig::Gain) << 100 << -8 << -10;
    QTest::newRow("expander") << int(Rig::Type) << 1 << 17 << -20;
    QTest::newRow("compander") << int(Rig::Type) << 4 << -18 << -21;
}

void tst_CCompCurve::everyParameterShapesTheCurve()
{
    QFETCH(int, index);
    QFETCH(int, value);
    Rig rig;
    rig.setValue(Rig::Type, 2);
    rig.setValue(Rig::Threshold, -200);
    rig.setValue(Rig::Ratio, 14);
    rig.bind();
    QCOMPARE(rig.levelAt(17), -18);
    rig.setValue(index, value);
    rig.refresh();
    QTEST(rig.levelAt(17), "atTop");
    QTEST(rig.levelAt(-20), "atThreshold");
}

void tst_CCompCurve::thresholdIsHeldInItsBounds()
{
    Rig rig;
    rig.setValue(Rig::Type, 2);
    rig.setValue(Rig::Ratio, 15);
    rig.set(Rig::Threshold, -540, -100, 0);
    rig.bind();
    QCOMPARE(rig.levelAt(10), -10);
    rig.setValue(Rig::Threshold, -720);
    rig.refresh();
    QCOMPARE(rig.levelAt(10), -54);
}

void tst_CCompCurve::otherLawsDrawNothing()
{
    Rig rig;
    rig.setValue(Rig::Type, 7);
    rig.bind();
    for (const int input : {-72, -20, 17})
        QCOMPARE(rig.levelAt(input), 99);
}

void tst_CCompCurve::standsOnItsPalettesBackground()
{
    CCompCurve curve;
    QCOMPARE(curve.sizeHint(), QSize(40, 30));
    QPixmap texture(60, 50);
    texture.fill(Qt::blue);
    const QColor colour = curve.palette().color(curve.backgroundRole());
    QVERIFY(curve.setProperty("paletteBackgroundPixmap", texture));
    QCOMPARE(curve.sizeHint(), QSize(60, 50));
    curve.resize(60, 50);
    QCOMPARE(curve.erasePixmap().toImage().pixelColor(59, 49), QColor(Qt::blue));
    curve.resize(80, 80);
    QCOMPARE(curve.erasePixmap().toImage().pixelColor(79, 79), colour);
    curve.setPaletteBackgroundPixmap({});
    QCOMPARE(curve.sizeHint(), QSize(40, 30));
    QCOMPARE(curve.erasePixmap().toImage().pixelColor(0, 0), colour);
}

void tst_CCompCurve::backgroundFollowsSizeAndPalette()
{
    CCompCurve curve;
    curve.setPalette(QPalette(Qt::red));
    const QColor before = curve.palette().color(curve.backgroundRole());
    curve.resize(50, 50);
    QCOMPARE(curve.erasePixmap().toImage().pixelColor(49, 49), before);
    curve.resize(80, 80);
    QCOMPARE(curve.erasePixmap().toImage().pixelColor(79, 79), before);
    curve.setPalette(QPalette(Qt::green));
    QCOMPARE(curve.erasePixmap().toImage().pixelColor(79, 79),
             curve.palette().color(curve.backgroundRole()));
}

void tst_CCompCurve::dotsAreWholePointsOnDenseScreens()
{
    Rig rig;
    rig.setValue(Rig::Type, 2);
    rig.bind();
    for (const double ratio : {1.25, 1.5, 2.0}) {
        QImage image(QSizeF(91 * ratio, 91 * ratio).toSize(), QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        QPainter painter(&image);
        rig.graph.repaintScreenPrimitive(painter);
        painter.end();
        // The identity: no column of pixels is without the curve.
        for (int x = 0; x < image.width(); ++x) {
            bool found = false;
            for (int y = 0; y < image.height(); ++y)
                found |= image.pixelColor(x, y) == QColor(255, 255, 0);
            QVERIFY(found);
        }
    }
}

void tst_CCompCurve::tellsTheThresholdWhenItChanges()
{
    Rig rig;
    QSignalSpy values(&rig.graph, &CCompCurve::memoryAPIValueChange);
    QSignalSpy texts(&rig.graph, &CCompCurve::textualValueChange);
    rig.bind();
    QCOMPARE(values.takeFirst().first().toInt(), 0);
    QCOMPARE(texts.takeFirst().first().toString(), QStringLiteral("<720>"));
    rig.setValue(Rig::Ratio, 3);
    rig.refresh();
    QCOMPARE(values.size(), 0);
    rig.setValue(Rig::Threshold, -55);
    rig.refresh();
    rig.refresh();
    QCOMPARE(values.size(), 1);
    rig.graph.process(nullptr, 0, 1);
    QCOMPARE(values.size(), 2);
}

void tst_CCompCurve::tellsLaterWhatWasBlocked()
{
    Rig rig;
    rig.bind();
    QSignalSpy values(&rig.graph, &CCompCurve::memoryAPIValueChange);
    {
        const QSignalBlocker blocker(rig.graph);
        for (const int threshold : {-1, -2, -3}) {
            rig.setValue(Rig::Threshold, threshold);
            rig.refresh();
        }
    }
    QCOMPARE(values.size(), 0);
    QTRY_COMPARE(values.size(), 1);
    QCOMPARE(values.first().first().toInt(), -3);
}

void tst_CCompCurve::oneChangeIsOneCallAndOnePaint()
{
    ParameterMemory memory;
    QVERIFY(memory.load(ParameterMemory::builtInModel()));
    CountingCurve curve;
    curve.resize(91, 91);
    curve.setNamedAddress(QStringLiteral("kInputDynamics2/kThreshold"));
    curve.show();
    QVERIFY(QTest::qWaitForWindowExposed(&curve));
    QCOMPARE(memory.bind(&curve, 4), 1);
    QCoreApplication::processEvents();
    const auto write = [&](int index, int value) {
        memory.writeValue(curve.group, index, curve.element, value, 0);
    };
    curve.calls = curve.paints = 0;
    write(13, 9);
    QTRY_COMPARE(curve.paints, 1);
    QCOMPARE(curve.calls, 1);
    write(1, 4);
    write(9, -300);
    write(13, 3);
    write(14, 60);
    write(15, 4);
    QTRY_COMPARE(curve.paints, 2);
    QTest::qWait(20);
    QCOMPARE(curve.calls, 2);
    QCOMPARE(curve.paints, 2);
}

void tst_CCompCurve::nothingChangedIsNothingPainted()
{
    Rig rig;
    CountingCurve curve;
    rig.memory.bind(curve, Rig::Group, Rig::Threshold, Rig::Element);
    curve.show();
    QVERIFY(QTest::qWaitForWindowExposed(&curve));
    curve.process(nullptr, 0, 0);
    QCoreApplication::processEvents();
    curve.paints = 0;
    curve.process(nullptr, 0, 0);
    curve.process(nullptr, 0, 1);
    QCoreApplication::processEvents();
    QCOMPARE(curve.paints, 0);
}

void tst_CCompCurve::speaksItsCurveInWords()
{
    Rig rig;
    rig.graph.setAccessibleName(QStringLiteral("Compressor curve"));
    const QAccessibleInterface *speaker = QAccessible::queryAccessibleInterface(&rig.graph);
    QVERIFY(speaker);
    QCOMPARE(speaker->role(), QAccessible::Chart);
    QCOMPARE(speaker->text(QAccessible::Name), QStringLiteral("Compressor curve"));
    QCOMPARE(speaker->text(QAccessible::Value), QString());
    rig.setValue(Rig::Ratio, 5);
    rig.setValue(Rig::Threshold, -80);
    rig.bind();
    QCOMPARE(speaker->text(QAccessible::Value),
             QStringLiteral("<0>, threshold <640>, ratio <5>, knee <0>, gain <0>"));
}

void tst_CCompCurve::valuesBeyondReasonAreDrawn()
{
    Rig rig;
    rig.bind();
    const int strange[] = {-2147483647, -40000, -32768, 32767, 70000, 2147483647};
    for (const int index : {1, 9, 13, 14, 15}) {
        for (const int value : strange) {
            for (const int bound : strange)
                rig.set(index, bound, -(bound + 1), value);
            rig.refresh();
            QCOMPARE(rig.graph.erasePixmap().size(), QSize(91, 91));
        }
    }
    rig.graph.resize(0, 0);
    rig.graph.erasePixmap();
}

QTEST_MAIN(tst_CCompCurve)
#include "tst_CCompCurve.moc"

// SPDX-License-Identifier: MIT
#include "companions/memory/ParameterMemory.h"
#include "tests/support/Table.h"
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
    void followsFiveParametersAndReadsThem();
    void everyParameterShapesTheCurve_data();
    void everyParameterShapesTheCurve();
    void thresholdIsHeldInItsBounds();
    void otherLawsDrawNothing();
    void standsOnItsPalettesBackground();
    void dotsAreWholePointsOnDenseScreens();
    void tellsTheThresholdWhenItChanges();
    void oneChangeIsOneCallAndOnePaint();
    void nothingChangedIsNothingPainted();
    void speaksItsCurveInWords();
    void valuesBeyondReasonAreDrawn();
};

void tst_CCompCurve::followsFiveParametersAndReadsThem()
{
    Rig rig;
    rig.memory.bind(rig.graph, Rig::Group, Rig::Threshold, Rig::Element);
    QCOMPARE(rig.memory.take(),
             Rig::calls("attachProxy",
                        {Rig::Threshold, Rig::Gain, Rig::Knee, Rig::Ratio, Rig::Type}, " 0"));
    rig.refresh();
    const QStringList calls = rig.memory.take({"read"});
    for (const int index : {Rig::Threshold, Rig::Gain, Rig::Knee, Rig::Ratio, Rig::Type})
        QVERIFY(calls.contains(QStringLiteral("readValue 57 %1 2").arg(index)));
    QCOMPARE(calls.size(), 13); // and the bounds of all but the type
    // Commands over the graph must not edit the threshold.
    QVERIFY(rig.graph.disabledUI());
}

void tst_CCompCurve::everyParameterShapesTheCurve_data()
{
    // atTop: at +17 dB; atThreshold: at -20 dB
    Table<int, int, int, int>()
        .row("as it is: 20:1", int(Rig::Ratio), 14, -18, -20)
        .row("threshold", int(Rig::Threshold), -300, -27, -29)
        .row("ratio", int(Rig::Ratio), 5, -1, -20)
        .row("knee", int(Rig::Knee), 5, -18, -23) // rises from -25
        .row("gain", int(Rig::Gain), 100, -8, -10)
        .row("expander", int(Rig::Type), 1, 17, -20)
        .row("compander", int(Rig::Type), 4, -18, -21);
}

void tst_CCompCurve::everyParameterShapesTheCurve()
{
    const auto [index, value, atTop, atThreshold] = Table<int, int, int, int>::fetch();
    Rig rig;
    rig.setValue(Rig::Type, 2);
    rig.setValue(Rig::Threshold, -200);
    rig.setValue(Rig::Ratio, 14);
    rig.bind();
    QCOMPARE(rig.levelAt(17), -18);
    rig.setValue(index, value);
    rig.refresh();
    QCOMPARE(rig.levelAt(17), atTop);
    QCOMPARE(rig.levelAt(-20), atThreshold);
}

void tst_CCompCurve::thresholdIsHeldInItsBounds()
{
    Rig rig;
    rig.setValue(Rig::Type, 2);
    rig.setValue(Rig::Ratio, 15);
    for (const auto &[stored, held] : {std::pair{0, -10}, {-720, -54}}) {
        rig.set(Rig::Threshold, -540, -100, stored);
        rig.bind();
        QCOMPARE(rig.levelAt(10), held);
    }
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
    const auto corner = [&curve] {
        const QImage image = curve.erasePixmap().toImage();
        return image.pixelColor(image.rect().bottomRight());
    };
    QCOMPARE(curve.sizeHint(), QSize(40, 30));
    QPixmap texture(60, 50);
    texture.fill(Qt::blue);
    QVERIFY(curve.setProperty("paletteBackgroundPixmap", texture));
    QCOMPARE(curve.sizeHint(), QSize(60, 50));
    curve.resize(60, 50);
    QCOMPARE(corner(), QColor(Qt::blue));
    curve.resize(80, 80);
    QCOMPARE(corner(), curve.palette().color(curve.backgroundRole()));
    curve.setPaletteBackgroundPixmap({});
    QCOMPARE(curve.sizeHint(), QSize(40, 30));
    curve.setPalette(QPalette(Qt::green));
    QCOMPARE(corner(), curve.palette().color(curve.backgroundRole()));
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

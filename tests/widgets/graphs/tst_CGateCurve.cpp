// SPDX-License-Identifier: MIT
#include "tests/support/Table.h"
#include "tests/widgets/graphs/DynamicsRig.h"
#include "widgets/graphs/CGateCurve.h"

#include <QAccessible>

namespace {

using Rig = DynamicsRig<CGateCurve>;

} // namespace

class tst_CGateCurve : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void followsThreeParametersAndReadsThem();
    void curveBreaksAtTheThreshold_data();
    void curveBreaksAtTheThreshold();
    void valuesAreHeldInTheirBounds();
    void standsOnItsPicture();
    void everyRefreshDrawsAnew();
    void tellsTheThresholdWhenItChanges();
    void speaksItsCurveInWords();
};

void tst_CGateCurve::followsThreeParametersAndReadsThem()
{
    Rig rig;
    rig.memory.bind(rig.graph, Rig::Group, Rig::Threshold, Rig::Element);
    QCOMPARE(rig.memory.take(),
             Rig::calls("attachProxy", {Rig::Threshold, Rig::Range, Rig::Type}, " 0"));
    rig.refresh();
    QCOMPARE(rig.memory.take({"read"}),
             QStringList({"readMinimum 57 9 2", "readMaximum 57 9 2", "readValue 57 9 2",
                          "readMinimum 57 10 2", "readMaximum 57 10 2", "readValue 57 10 2",
                          "readValue 57 1 2"}));
    QVERIFY(rig.graph.disabledUI());
}

void tst_CGateCurve::curveBreaksAtTheThreshold_data()
{
    // Threshold -26.9 dB, which counts as -26; range -30 dB; at -40, -27 and -10 dB.
    Table<int, int, int, int>()
        .row("gate", 0, -70, -57, -10)
        .row("ducking", 1, -40, -27, -40)
        .row("any other", 5, -40, -27, -40);
}

void tst_CGateCurve::curveBreaksAtTheThreshold()
{
    const auto [type, below, close, above] = Table<int, int, int, int>::fetch();
    Rig rig;
    rig.setValue(Rig::Type, type);
    rig.setValue(Rig::Threshold, -269);
    rig.setValue(Rig::Range, -30);
    rig.bind();
    QCOMPARE(rig.levelAt(-40), below);
    QCOMPARE(rig.levelAt(-27), close);
    QCOMPARE(rig.levelAt(-10), above);
    QCOMPARE(rig.levelAt(17), type == 0 ? 17 : -13);
}

void tst_CGateCurve::valuesAreHeldInTheirBounds()
{
    Rig rig;
    rig.set(Rig::Threshold, -400, -100, 50);
    rig.set(Rig::Range, -20, 0, -60);
    rig.bind();
    QCOMPARE(rig.levelAt(-12), -32);
    QCOMPARE(rig.levelAt(-9), -9);
}

void tst_CGateCurve::standsOnItsPicture()
{
    Rig rig;
    QCOMPARE(rig.graph.sizeHint(), QSize(40, 30));
    rig.bind();
    QVERIFY(rig.graph.erasePixmap().toImage().pixelColor(0, 0).lightness() < 40);
    QPixmap picture(182, 182);
    picture.setDevicePixelRatio(2);
    picture.fill(Qt::blue);
    rig.graph.setProperty("pixmap", picture);
    QCOMPARE(rig.graph.pixmap().cacheKey(), picture.cacheKey());
    QCOMPARE(rig.graph.sizeHint(), QSize(91, 91));
    QCOMPARE(rig.graph.erasePixmap().toImage().pixelColor(0, 0), QColor(Qt::blue));
}

void tst_CGateCurve::everyRefreshDrawsAnew()
{
    Rig rig;
    rig.bind();
    const qint64 before = rig.graph.erasePixmap().cacheKey();
    QCOMPARE(rig.graph.erasePixmap().cacheKey(), before);
    rig.refresh();
    QVERIFY(rig.graph.erasePixmap().cacheKey() != before);
}

void tst_CGateCurve::tellsTheThresholdWhenItChanges()
{
    Rig rig;
    rig.bind();
    QSignalSpy values(&rig.graph, &CGateCurve::memoryAPIValueChange);
    rig.setValue(Rig::Range, -3);
    rig.refresh();
    QCOMPARE(values.size(), 0);
    rig.setValue(Rig::Threshold, -9000);
    rig.refresh();
    QCOMPARE(values.takeFirst().first().toInt(), -720);
}

void tst_CGateCurve::speaksItsCurveInWords()
{
    Rig rig;
    rig.setValue(Rig::Threshold, -260);
    rig.setValue(Rig::Range, -56);
    rig.bind();
    const QAccessibleInterface *speaker = QAccessible::queryAccessibleInterface(&rig.graph);
    QCOMPARE(speaker->role(), QAccessible::Chart);
    QCOMPARE(speaker->text(QAccessible::Value), QStringLiteral("<0>, threshold <460>, range <14>"));
}

QTEST_MAIN(tst_CGateCurve)
#include "tst_CGateCurve.moc"

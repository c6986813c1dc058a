// SPDX-License-Identifier: MIT
#include "tests/companions/memory/MemoryRig.h"

#include <QtTest>

#include <cmath>
#include <limits>

namespace {

constexpr auto Fader = "kInputFader/kFader";

} // namespace

class tst_ParameterText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsValues_data();
    void showsValues();
    void readsTypedNumbers_data();
    void readsTypedNumbers();
    void stepsFromDetentToDetent_data();
    void stepsFromDetentToDetent();
};

void tst_ParameterText::showsValues_data()
{
    QTest::addColumn<int>("tableId");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("five");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, int tableId, int value, const QString &text,
                        bool five = false) {
        QTest::addRow("%s %d %d", name, tableId, value) << tableId << value << five << text;
    };
    row(Fader, 0, 1380, "0.0 dB"); // counted from the minimum
    row(Fader, -1, 0, "0.0 dB");   // not counted
    row(Fader, -7, 100, "+10.0 dB");
    row(Fader, 5, 63, "C");     // a table by its number
    row(Fader, 999, 1380, "0"); // no such table: the number itself
    row("kInputHPF/kOn", 0, 1, "ON");
    row("kInputHPF/kOn", -3, 1, "ON");
    row("kInputHPF/kOn", -3, 5, "OFF");
    row("kInputHPF/kOn", -3, 0, "OFF");
    row("kInputDynamics1/kKnee", -3, 5, "ON", true);
    row("kInputDynamics1/kKnee", -3, 1, "OFF", true);
    row("kInputDynamics1/kKnee", 0, 9, "9"); // beyond the list
    row("kSurround/kFrontRear", 0, 60, "-3");
    row("kSurround/kFrontRear", -1, -3, "-3");
    row("kInputDCA/kMask", 0, -2147483647 - 1, "0"); // the caller's difference has wrapped
}

void tst_ParameterText::showsValues()
{
    QFETCH(int, tableId);
    QFETCH(int, value);
    QFETCH(bool, five);
    QFETCH(QString, text);
    const Rig rig;
    const auto at = rig.address(QByteArray(QTest::currentDataTag()).split(' ').first());
    QString shown;
    QPixmap picture;
    rig.memory->valueText(0, tableId, shown, picture, value, five, at.group, at.index);
    QCOMPARE(shown, text);
    QVERIFY(picture.isNull());
}

void tst_ParameterText::readsTypedNumbers_data()
{
    QTest::addColumn<int>("tableId");
    QTest::addColumn<float>("number");
    QTest::addColumn<int>("value");
    const auto row = [](const char *name, int tableId, float number, int value) {
        QTest::addRow("%s %d %g", name, tableId, double(number)) << tableId << number << value;
    };
    row(Fader, 0, -6.0F, 1320);
    row(Fader, -7, -6.0F, -60);
    row(Fader, -7, 1e9F, 100);
    row(Fader, 0, -1e9F, 0);
    row(Fader, -7, std::numeric_limits<float>::infinity(), -1380);
    row("kOscillator/kFreq", -7, 1000, 68);
    row("kSurround/kFrontRear", -1, 12.6F, 13);
    row("kSurround/kFrontRear", 0, 12.6F, 76);
    row("kSurround/kFrontRear", -1, std::nanf(""), -63);
    row(Fader, 7, 20000, 120); // a table by its number
}

void tst_ParameterText::readsTypedNumbers()
{
    QFETCH(int, tableId);
    QFETCH(float, number);
    QFETCH(int, value);
    Rig rig;
    Probe probe(QByteArray(QTest::currentDataTag()).split(' ').first());
    rig.bind(probe);
    rig.memory->setNumberContext(&probe);
    QCOMPARE(rig.memory->numberToValue(number, tableId), value);
}

void tst_ParameterText::stepsFromDetentToDetent_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("to");
    const auto row = [](const char *name, int from, IMemAPI::Step step, int to) {
        QTest::addRow("%s %d by %d", name, from, int(step)) << from << int(step) << to;
    };
    row("kOscillator/kFreq", 8, IMemAPI::LineUp, 12);
    row("kOscillator/kFreq", 9, IMemAPI::LineUp, 12);
    row("kOscillator/kFreq", 9, IMemAPI::LineDown, 8);
    row("kOscillator/kFreq", 8, IMemAPI::LineDown, 4);
    row("kOscillator/kFreq", 120, IMemAPI::LineUp, 120);
    row("kOscillator/kFreq", 0, IMemAPI::PageDown, 0);
    row("kOscillator/kFreq", 8, IMemAPI::PageUp, 28);
    row("kOscillator/kFreq", 118, IMemAPI::PageUp, 120);
    row("kInputAtt/kAtt", -7, IMemAPI::LineUp, -6);
    row("kInputAtt/kAtt", -960, IMemAPI::LineDown, -960);
    row("kInputAtt/kAtt", 2147483647, IMemAPI::LineUp, 240);
}

void tst_ParameterText::stepsFromDetentToDetent()
{
    QFETCH(int, from);
    QFETCH(int, step);
    QFETCH(int, to);
    Rig rig;
    Probe probe(QByteArray(QTest::currentDataTag()).split(' ').first());
    rig.bind(probe);
    QCOMPARE(rig.memory->stepValue(&probe, from, IMemAPI::Step(step)), to);
}

QTEST_MAIN(tst_ParameterText)
#include "tst_ParameterText.moc"

// SPDX-License-Identifier: MIT
#include "tests/support/Table.h"
#include "widgets/graphs/DynamicsLaw.h"

#include <QTest>

class tst_DynamicsLaw : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ratioOneIsTheIdentityPlusGain();
    void levelsAreAsComputedByHand_data();
    void levelsAreAsComputedByHand();
    void kneeLowersWhatIsClose_data();
    void kneeLowersWhatIsClose();
    void factorsAreTheConsolesDecimals();
    void companderIsRaisedByItsReserve_data();
    void companderIsRaisedByItsReserve();
    void typesMeanLawsByGroup_data();
    void typesMeanLawsByGroup();
    void otherKindsHaveNoCurve();
    void anySettingsGiveLevels();
};

using Settings = DynamicsLaw::Settings;
Q_DECLARE_METATYPE(Settings)

void tst_DynamicsLaw::ratioOneIsTheIdentityPlusGain()
{
    for (int knee = 0; knee <= 5; ++knee) {
        const DynamicsLaw law({DynamicsLaw::Compressor, -200, 0, knee, 67, 180});
        for (int input = -72; input <= 18; ++input)
            QCOMPARE(law.output(input), input + 6);
    }
}

void tst_DynamicsLaw::levelsAreAsComputedByHand_data()
{
    QTest::addColumn<Settings>("settings");
    QTest::addColumn<int>("input");
    QTest::addColumn<int>("output");
    using Law = DynamicsLaw;
    const auto row = [](const char *name, const Settings &settings, int input, int output) {
        QTest::newRow(name) << settings << input << output;
    };
    const Settings compressor{Law::Compressor, -260, 6, 0, 0, 180};
    row("compressor, below", compressor, -27, -27);
    row("compressor, at the threshold", compressor, -26, -26);
    row("compressor, truncated upwards", compressor, 0, -15); // -15.6
    row("threshold in tenths, truncated", {Law::Compressor, -269, 15, 0, 0, 180}, 0, -26);
    row("limiter is flat", {Law::Compressor, -200, 15, 0, 0, 180}, 18, -20);
    row("gain in tenths, truncated", {Law::Compressor, -200, 15, 0, 59, 180}, 18, -15);
    row("truncated before the knee", {Law::Compressor, -200, 5, 2, 0, 180}, -19, -20); // -19.5
    row("knee at the threshold", {Law::Compressor, -200, 5, 5, 0, 180}, -20, -23);
    row("knee 15 dB away", {Law::Compressor, -200, 5, 5, 0, 180}, -5, -12);
    row("knee 15 dB below", {Law::Compressor, -200, 5, 5, 0, 180}, -35, -35);
    row("ratio beyond the table", {Law::Compressor, -200, 99, 0, 0, 180}, 18, -20);

    row("expander, above", {Law::Expander, -200, 5, 0, 0, 180}, -20, -20);
    row("expander, below", {Law::Expander, -200, 5, 0, 0, 180}, -30, -40);
    row("expander with gain", {Law::Expander, -200, 5, 0, 100, 180}, -30, -30);
    // Deliberate: an infinite ratio counts as 100:1.
    row("expander, infinite ratio", {Law::Expander, -200, 15, 0, 0, 180}, -21, -120);
    row("expander, its knee too", {Law::Expander, -200, 15, 1, 0, 180}, -21, -121);
    row("expander, limited after the gain", {Law::Expander, -200, 15, 0, 150, 180}, -22, -128);

    const Settings hard{Law::HardCompander, -200, 5, 2, 180, 180};
    const Settings soft{Law::SoftCompander, -200, 5, 2, 180, 180};
    row("compander, full scale stays", hard, 0, 0);
    row("compander, never above 0", hard, 10, 0);
    row("compander, at the threshold", hard, -20, -11);
    row("compander, inside the width", hard, -23, -14); // the knee reaches as far
    row("hard compander, below it", hard, -30, -48);
    row("soft compander, below it", soft, -30, -23);
    row("compander, limited", hard, -72, -128);
    row("compander, no knee at ratio one", {Law::HardCompander, -200, 0, 5, 180, 180}, -20, -20);
}

void tst_DynamicsLaw::levelsAreAsComputedByHand()
{
    QFETCH(Settings, settings);
    QFETCH(int, input);
    QTEST(DynamicsLaw(settings).output(input), "output");
}

void tst_DynamicsLaw::kneeLowersWhatIsClose_data()
{
    // allowances: 0, 1, 2, ... dB away
    Table<int, QList<int>>()
        .row("hard", 0, {0, 0})
        .row("1", 1, {2, 2, 2, 0})
        .row("2", 2, {2, 2, 2, 2, 2, 0})
        .row("3", 3, {4, 2, 2, 2, 2, 2, 2, 0})
        .row("4", 4, {4, 4, 4, 2, 2, 2, 2, 2, 2, 2, 2, 0})
        .row("5", 5, {6, 4, 4, 4, 4, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 0})
        .row("no such knee", 6, {0, 0});
}

void tst_DynamicsLaw::kneeLowersWhatIsClose()
{
    const auto [knee, allowances] = Table<int, QList<int>>::fetch();
    for (int distance = 0; distance < allowances.size(); ++distance) {
        QCOMPARE(DynamicsLaw::kneeAllowance(0.5, distance, knee), allowances[distance]);
        QCOMPARE(DynamicsLaw::kneeAllowance(1.0, distance, knee), 0);
    }
}

/// Deliberate: a third is not a third; the console's table decides where levels are truncated.
void tst_DynamicsLaw::factorsAreTheConsolesDecimals()
{
    QCOMPARE(DynamicsLaw::factorOf(7), 0.333333333333333);
    QVERIFY(DynamicsLaw::factorOf(7) < 1.0 / 3);
    QCOMPARE(DynamicsLaw::compressor(3, DynamicsLaw::factorOf(7), 0, 0), 0);
    QVERIFY(DynamicsLaw::factorOf(1) < 1 / 1.15 + 1e-9 && DynamicsLaw::factorOf(1) != 1 / 1.15);
}

void tst_DynamicsLaw::companderIsRaisedByItsReserve_data()
{
    // Ratio 2:1, input 10 dB above the threshold, gain from 0 to 18 dB.
    Table<int, int, int>()
        .row("full gain", -300, 180, -10)
        .row("5 dB less", -300, 130, -15)
        .row("at most 6 dB down", -300, 0, -28) // -15 + 18, less 25
        .row("the limit of 6 dB", -200, 0, -21)
        .row("at most 18 dB up", -540, 180, -31);
}

void tst_DynamicsLaw::companderIsRaisedByItsReserve()
{
    const auto [threshold, gain, output] = Table<int, int, int>::fetch();
    const DynamicsLaw law({DynamicsLaw::HardCompander, threshold, 5, 0, gain, 180});
    QCOMPARE(law.output(threshold / 10 + 10), output);
}

void tst_DynamicsLaw::typesMeanLawsByGroup_data()
{
    // kinds: of the types 0, 1, 2, ...
    Table<int, QList<int>>()
        .row("first dynamics", 54, {0, 1, 0, 1, 4})
        .row("second dynamics", 57, {0, 1, 0, 3, 2, 3, 0, 7})
        .row("mixes", 81, {0, 1, 0, 1, 2, 3, 6})
        .row("matrices", 98, {0, 1, 0, 1, 2, 3, 6})
        .row("stereo masters", 112, {0, 1, 0, 1, 2, 3, 6})
        .row("others", 3, {0, 1, 2, 3, 4});
}

void tst_DynamicsLaw::typesMeanLawsByGroup()
{
    const auto [group, kinds] = Table<int, QList<int>>::fetch();
    for (int type = 0; type < kinds.size(); ++type)
        QCOMPARE(DynamicsLaw::kindOf(group, type), kinds[type]);
}

void tst_DynamicsLaw::otherKindsHaveNoCurve()
{
    for (const int kind : {-1, 4, 6, 1000})
        QVERIFY(!DynamicsLaw({kind, -200, 5, 2, 0, 180}).hasCurve());
    for (const int kind : {0, 1, 2, 3})
        QVERIFY(DynamicsLaw({kind, -200, 5, 2, 0, 180}).hasCurve());
}

void tst_DynamicsLaw::anySettingsGiveLevels()
{
    const int values[] = {-32768, -540, -1, 0, 3, 15, 180, 32767};
    for (const int kind : {0, 1, 2, 3}) {
        for (const int threshold : values) {
            for (const int code : values) {
                for (const int gain : values) {
                    const DynamicsLaw law({kind, threshold, code, code, gain, -gain});
                    for (const int input : {-72, 0, 18})
                        QVERIFY(std::abs(law.output(input)) < 1000000);
                }
            }
        }
    }
}

QTEST_GUILESS_MAIN(tst_DynamicsLaw)
#include "tst_DynamicsLaw.moc"

// SPDX-License-Identifier: MIT
#include "companions/memory/ConsoleModel.h"
#include "companions/memory/ParameterMemory.h"
#include "companions/memory/TextTable.h"

#include <QtTest>

#include <cmath>
#include <limits>

namespace {

const TextTable &table(const QByteArray &name)
{
    static const QMap<QByteArray, TextTable> tables = [] {
        TextTable fader(TextTable::Linear{-138, 0.1, 1, "dB", "-", "+", {}, "-∞"});
        TextTable pan(TextTable::Linear{-63, 1, 0, {}, "L", "R", "C", {}});
        TextTable delay(TextTable::Linear{0, 0.1, 1, "ms", "-", {}, {}, {}});
        fader.requirePositions(1481);
        pan.requirePositions(127);
        delay.requirePositions(10001);
        return QMap<QByteArray, TextTable>{
            {"fader", fader},
            {"pan", pan},
            {"delay", delay},
            {"open", TextTable(TextTable::Linear{-1, 0.5, 1, {}, "-", {}, {}, {}})},
            {"frequency", TextTable(TextTable::Logarithmic{20, 20000, 121, "Hz", "kHz"})},
            {"ratio", TextTable(TextTable::List{{"1.0:1", "2.5:1", "20:1", "∞:1"}})},
            {"words", TextTable(TextTable::List{{"GATE", "DUCKING", "COMPRESSOR"}})}};
    }();
    return tables.find(name).value();
}

} // namespace

class tst_TextTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsPositions_data();
    void showsPositions();
    void findsTheNearestPosition_data();
    void findsTheNearestPosition();
    void typingWhatIsShownLeadsBackInEveryShippedTable();
};

void tst_TextTable::showsPositions_data()
{
    QTest::addColumn<qint64>("position");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, qint64 position, const QString &text) {
        QTest::addRow("%s %lld", name, position) << position << text;
    };
    row("fader", 0, "-∞");
    row("fader", 1, "-137.9 dB");
    row("fader", 1380, "0.0 dB"); // what rounds to nothing has no sign
    row("fader", 1480, "+10.0 dB");
    row("fader", -1, {});
    row("pan", 0, "L63");
    row("pan", 63, "C");
    row("pan", 126, "R63");
    row("delay", 10000, "1000.0 ms"); // beyond what is kept
    row("open", 3, "0.5");
    row("frequency", 0, "20.0 Hz");
    row("frequency", 68, "1.00 kHz"); // 1002 Hz
    row("frequency", 120, "20.0 kHz");
    row("frequency", 121, {});
    row("ratio", 3, "∞:1");
    row("ratio", 4, {});
}

void tst_TextTable::showsPositions()
{
    QFETCH(qint64, position);
    QFETCH(QString, text);
    const TextTable &shown = table(QByteArray(QTest::currentDataTag()).split(' ').first());
    QCOMPARE(shown.text(position), text);
    QCOMPARE(shown.text(position).isNull(), text.isNull());
}

void tst_TextTable::findsTheNearestPosition_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<qint64>("position");
    const auto row = [](const char *name, double number, qint64 position) {
        QTest::addRow("%s %g", name, number) << number << position;
    };
    const double infinity = std::numeric_limits<double>::infinity();
    row("fader", -6.04, 1320);
    row("fader", 99, 1480);
    row("fader", -999, 0);
    row("fader", infinity, 0);
    row("fader", std::nan(""), 0);
    row("pan", 63, 126);
    row("open", 1e30, std::numeric_limits<int>::max());
    row("frequency", 1000, 68);
    row("frequency", 0, 0);
    row("frequency", -5, 0);
    row("frequency", 1e9, 120);
    row("ratio", 2, 1);
    row("ratio", 100, 2);
    row("words", 1.4, 1);
    row("words", 9, 2);
}

void tst_TextTable::findsTheNearestPosition()
{
    QFETCH(double, number);
    QFETCH(qint64, position);
    QCOMPARE(table(QByteArray(QTest::currentDataTag()).split(' ').first()).nearestPosition(number),
             position);
}

void tst_TextTable::typingWhatIsShownLeadsBackInEveryShippedTable()
{
    const auto shipped = ConsoleModel::read(ParameterMemory::builtInModel());
    QVERIFY(shipped);
    const QRegularExpression form("^([L+-]?)([0-9.]+)( kHz| s$)?");
    for (const ConsoleModel::Parameter &parameter : shipped->parameters()) {
        const TextTable *own = shipped->textTable(parameter.textTable);
        for (qint64 position = 0; own && position < own->positions(); ++position) {
            const QString text = own->text(position);
            const QRegularExpressionMatch shown = form.match(text);
            if (!shown.hasMatch() || text.contains("fps"))
                continue;
            const bool below = shown.captured(1) == "-" || shown.captured(1) == "L";
            const double number = shown.captured(2).toDouble() * (below ? -1 : 1)
                                  * (shown.captured(3).isEmpty() ? 1 : 1000);
            const qint64 back = own->nearestPosition(number);
            QVERIFY2(own->text(back) == text, qPrintable(shipped->addressOf(parameter) + ' ' + text
                                                         + " became " + own->text(back)));
        }
    }
}

QTEST_GUILESS_MAIN(tst_TextTable)
#include "tst_TextTable.moc"

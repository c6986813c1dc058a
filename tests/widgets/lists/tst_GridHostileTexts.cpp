// SPDX-License-Identifier: MIT
// Text properties come from form files, in which anything may be: what they hold must never end the
// editor, keep it busy, or undo what was good before.
#include "tests/support/GridRig.h"

#include <QRandomGenerator>

#include <ctime>

namespace {

const QByteArrayList textProperties{"cellWidths", "cellHeights", "gridWidths", "gridHeights",
                                    "bitOrder", "disabledRects", "channelTitles", "fieldTitles"};

/// Pieces that the lists are made of, and pieces that they are not made of.
QString randomText(QRandomGenerator &random)
{
    static const QStringList pieces{
        "0", "1", "7", "31", "32", "50", "-1", "2147483647", "99999999999999999999", ",", ";", ":", "(",
        ")", "..", " ", "\t", "\n", "(1,1,2,2)", "0,7:3,2,1,0", "CH 1..48", "x", u8"\u0663", u8"\u00a0",
        QString(QChar(0xD800)), QString(QChar(0)), "%1", "&"};
    QString text;
    for (int length = random.bounded(40); length > 0; --length)
        text += pieces[random.bounded(int(pieces.size()))];
    return text;
}

/// Everything that depends on the texts is asked for.
void useGrid(GridRig &rig)
{
    CGrid &grid = rig.grid;
    grid.grab();
    for (int row = -1; row <= grid.rows(); ++row) {
        for (int column = -1; column <= grid.cols(); ++column) {
            QRect cell;
            grid.index2PixelRect({column, row}, cell);
            grid.connectionChange(row, column, true);
            grid.valueAt(row, column);
        }
    }
    for (int column = 0; column < grid.cols(); ++column) {
        const int size = grid.cellRight(column) - grid.cellLeft(column);
        const int line = grid.cellLeft(column + 1) - grid.cellRight(column);
        QVERIFY(size >= 2 && size <= 50 && line >= 1 && line <= 14);
    }
}

} // namespace

class tst_GridHostileTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void randomTexts();
    void whatWasGoodStays();
    void longTextsAreReadInOnePass_data();
    void longTextsAreReadInOnePass();
};

void tst_GridHostileTexts::randomTexts()
{
    QRandomGenerator random(61);
    for (int round = 0; round < 150; ++round) {
        GridRig rig(round % 2);
        rig.bind();
        for (int i = 0; i < 6; ++i) {
            const QByteArray &name = textProperties[random.bounded(int(textProperties.size()))];
            const QString text = randomText(random);
            QVERIFY(rig.grid.setProperty(name, text));
            QCOMPARE(rig.grid.property(name).toString(), text);
            if (random.bounded(4) == 0)
                rig.grid.setVerCount(random.bounded(-2, 12));
        }
        useGrid(rig);
    }
}

void tst_GridHostileTexts::whatWasGoodStays()
{
    QRandomGenerator random(62);
    GridRig rig;
    rig.bind();
    rig.grid.setBitOrder(QStringLiteral("0,7:5,4,3,2,1,0"));
    rig.grid.setDisabledRects(QStringLiteral("(2,2,2,2)"));
    for (int round = 0; round < 300; ++round) {
        rig.grid.setBitOrder(randomText(random));
        rig.grid.setDisabledRects(randomText(random));
    }
    QVERIFY(rig.grid.isCellDisabled(3, 3));
    rig.value(7).value = 1 << 5;
    QVERIFY(rig.grid.valueAt(0, 7));
}

void tst_GridHostileTexts::longTextsAreReadInOnePass_data()
{
    QTest::addColumn<QString>("piece");
    for (const char *piece : {" ", ",", ";", ":", "9", "(", "(1,1,1,1)", "0,7:", "1..9 ", ";9:,"})
        QTest::newRow(piece) << QString::fromLatin1(piece);
}

void tst_GridHostileTexts::longTextsAreReadInOnePass()
{
    QFETCH(QString, piece);
    const QString text = piece.repeated(500'000);
    // The processor's time: a busy machine is no fault of the text's.
    const std::clock_t start = std::clock();
    GridRig rig;
    for (const QByteArray &name : textProperties)
        rig.grid.setProperty(name, text);
    rig.grid.grab();
    const double seconds = double(std::clock() - start) / CLOCKS_PER_SEC;
    QVERIFY2(seconds < 20, qPrintable(QString::number(seconds)));
}

QTEST_MAIN(tst_GridHostileTexts)
#include "tst_GridHostileTexts.moc"

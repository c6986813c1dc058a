// SPDX-License-Identifier: MIT
// Text properties come from form files, in which anything may be: it must not keep the editor busy. What
// else hostile texts could do is looked for in fuzz/GridTexts.cpp.
#include "tests/support/GridRig.h"

#include <ctime>

namespace {

const QByteArrayList textProperties{"cellWidths", "cellHeights",   "gridWidths",    "gridHeights",
                                    "bitOrder",   "disabledRects", "channelTitles", "fieldTitles"};

} // namespace

class tst_GridHostileTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void longTextsAreReadInOnePass_data();
    void longTextsAreReadInOnePass();
};

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

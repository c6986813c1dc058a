// SPDX-License-Identifier: MIT
#include "testkit/RecordingMemory.h"
#include "tests/support/PaintWatch.h"
#include "tests/support/Table.h"
#include "widgets/buttons/StateDisplayBit.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

#include <thread>

namespace {

QPixmap plain(const QColor &colour, const QSize &size, int ratio = 1)
{
    QPixmap picture(size * ratio);
    picture.fill(colour);
    picture.setDevicePixelRatio(ratio);
    return picture;
}

/// A column of lamps, red when lit and blue when dark, at (3, 5, 2) of a recording memory.
struct Rig
{
    explicit Rig(int lamps, const QSize &size = {20, 42}, int ratio = 1)
    {
        window.resize(100, 400);
        display.setnSubImages(lamps);
        display.setCombinedOnImage(plain(Qt::red, size, ratio));
        display.setCombinedOffImage(plain(Qt::blue, size, ratio));
        parameter(0).minimum = std::numeric_limits<int>::min();
        parameter(0).maximum = std::numeric_limits<int>::max();
    }
    void bind()
    {
        memory.bind(display, 3, 5, 2);
        memory.take();
    }
    RecordingMemory::Parameter &parameter(int number) { return memory.at(3, 5 + number, 2); }
    void change(int value)
    {
        parameter(0).value = value;
        display.process(nullptr, 0, 0);
    }
    /// The rows of the picture as runs: "r10 b32".
    QString rows() const
    {
        const QImage picture = display.erasePixmap().toImage();
        QStringList runs;
        for (int y = 0, from = 0; y < picture.height(); ++y) {
            if (y + 1 < picture.height() && picture.pixel(5, y + 1) == picture.pixel(5, from))
                continue;
            runs << QStringLiteral("%1%2")
                        .arg(picture.pixelColor(5, from) == QColor(Qt::red) ? "r" : "b")
                        .arg(y + 1 - from);
            from = y + 1;
        }
        return runs.join(u' ');
    }

    RecordingMemory memory;
    QWidget window;
    StateDisplayBit display{&window, "lamps"};
};

} // namespace

class tst_StateDisplayBit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsAsRequired();
    void composesStripsFromTheLitPicture_data();
    void composesStripsFromTheLitPicture();
    void picturesOfDifferentSizesChangeNothing();
    void showsNothingWithoutAMemory();
    void multiModeCollectsAndWatchesARun();
    void detachesWhatItAttached();
    void drawsWhatTheMemoryHoldsNotWhatItWasTold();
    void oneChangedBitRepaintsOneStrip_data();
    void oneChangedBitRepaintsOneStrip();
    void tellsAndSpeaksTheBits();
};

void tst_StateDisplayBit::startsAsRequired()
{
    Rig rig(260);
    QCOMPARE(rig.display.nSubImages(), 4);
    QCOMPARE(rig.display.objectName(), QString());
    QCOMPARE(rig.display.focusPolicy(), Qt::ClickFocus);
    QCOMPARE(rig.display.numDefaultKind(), 0);
    QVERIFY(!rig.display.isUndoEnable() && !rig.display.multiMode() && rig.display.disabledUI());
    rig.bind();
    std::thread([&] { rig.display.setValue(1); }).join();
    QCOMPARE(rig.display.value(), 0);
}

void tst_StateDisplayBit::composesStripsFromTheLitPicture_data()
{
    Table<int, int, QString>()
        .row("none", 4, 0, "b42")
        .row("lowest on top", 4, 1, "r10 b32")
        .row("a rest that stays dark", 4, 0xF, "r40 b2")
        .row("more bits than lamps", 2, 0xFE, "b21 r21")
        .row("all of 32 bits", 32, -1, "r32 b10")
        .row("the sign bit", 32, std::numeric_limits<int>::min(), "b31 r1 b10")
        .row("more lamps than bits", 42, -1, "r32 b10")
        .row("more lamps than rows", 255, -1, "b42")
        .row("no lamps", 0, -1, "");
}

void tst_StateDisplayBit::composesStripsFromTheLitPicture()
{
    const auto [lamps, bits, rows] = Table<int, int, QString>::fetch();
    Rig rig(lamps);
    rig.parameter(0).value = bits;
    rig.bind();
    QCOMPARE(rig.rows(), rows);
    rig.change(0);
    rig.change(bits);
    QCOMPARE(rig.rows(), rows);
}

void tst_StateDisplayBit::picturesOfDifferentSizesChangeNothing()
{
    Rig rig(2, {20, 20});
    rig.bind();
    rig.change(1);
    QCOMPARE(rig.rows(), "r10 b10");
    rig.display.setCombinedOnImage(plain(Qt::red, {20, 30}));
    QCOMPARE(rig.display.size(), QSize(20, 30));
    rig.change(2);
    QCOMPARE(rig.rows(), "r10 b10");
    rig.display.setCombinedOffImage(plain(Qt::blue, {20, 30}));
    QCOMPARE(rig.rows(), "b15 r15");
    rig.display.setnSubImages(3);
    QCOMPARE(rig.rows(), "b10 r10 b10");
}

void tst_StateDisplayBit::showsNothingWithoutAMemory()
{
    Rig rig(4);
    rig.display.setValue(5);
    QCOMPARE(rig.display.value(), 5);
    QVERIFY(rig.display.erasePixmap().isNull());
    rig.parameter(0).value = 5;
    rig.bind();
    QCOMPARE(rig.rows(), "r10 b10 r10 b12");
}

void tst_StateDisplayBit::multiModeCollectsAndWatchesARun()
{
    Rig rig(3, {20, 30});
    rig.display.setMultiMode(true);
    rig.parameter(1).value = 7;
    rig.memory.bind(rig.display, 3, 5, 2);
    QStringList wanted;
    for (const int index : {5, 6, 7})
        wanted << QStringLiteral("attachProxy %1 0").arg(packedAddress(3, qint16(index), 2));
    QCOMPARE(rig.memory.take({"attachProxy"}), wanted);
    QCOMPARE(rig.display.value(), 2);
    QCOMPARE(rig.rows(), "b10 r10 b10");
    rig.parameter(2).value = 1;
    rig.display.process(nullptr, 0, 0);
    QCOMPARE(rig.rows(), "b10 r20");
}

void tst_StateDisplayBit::detachesWhatItAttached()
{
    Rig rig(3, {20, 30});
    rig.display.setMultiMode(true);
    rig.bind();
    rig.display.setMultiMode(false);
    rig.display.setnSubImages(1);
    rig.display.disconnectMemAPI();
    QStringList wanted;
    for (const int index : {5, 6, 7})
        wanted << QStringLiteral("detachProxy %1").arg(packedAddress(3, qint16(index), 2));
    QCOMPARE(rig.memory.take({"detachProxy"}), wanted);
    QVERIFY(!rig.display.isAttached());
}

void tst_StateDisplayBit::drawsWhatTheMemoryHoldsNotWhatItWasTold()
{
    Rig rig(4);
    rig.bind();
    rig.parameter(0).value = 2;
    rig.display.setValue(1);
    QCOMPARE(rig.display.value(), 1);
    QCOMPARE(rig.rows(), "b10 r10 b22");
}

void tst_StateDisplayBit::oneChangedBitRepaintsOneStrip_data()
{
    Table<int>().row("one pixel per point", 1).row("two pixels per point", 2);
}

void tst_StateDisplayBit::oneChangedBitRepaintsOneStrip()
{
    const auto [ratio] = Table<int>::fetch();
    Rig rig(32, {20, 320}, ratio);
    rig.bind();
    rig.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&rig.window));
    PaintWatch paints(rig.display);
    paints.take();
    unsigned bits = 0;
    for (const int lamp : {0, 31, 17, 0}) {
        bits ^= 1U << lamp;
        rig.change(static_cast<int>(bits));
        QCOMPARE(paints.take(), QRegion(0, lamp * 10, 20, 10));
    }
    rig.change(static_cast<int>(bits));
    QCOMPARE(paints.take(), QRegion());
    // The strips add up to the whole.
    const QImage kept = rig.display.erasePixmap().toImage();
    rig.display.setnSubImages(32);
    QCOMPARE(rig.display.erasePixmap().toImage(), kept);
}

void tst_StateDisplayBit::tellsAndSpeaksTheBits()
{
    Rig rig(4);
    rig.display.setAccessibleName("Phantom power");
    rig.bind();
    const QSignalSpy bits(&rig.display, &StateDisplayBit::memoryAPIValueChange);
    const QSignalSpy text(&rig.display, &StateDisplayBit::textualValueChange);
    const QAccessibleInterface *speaker = QAccessible::queryAccessibleInterface(&rig.display);
    QCOMPARE(speaker->role(), QAccessible::Indicator);
    QCOMPARE(speaker->text(QAccessible::Name), "Phantom power");
    QCOMPARE(speaker->text(QAccessible::Value), "none on");
    rig.change(0b1001);
    rig.change(0b1001);
    QCOMPARE(speaker->text(QAccessible::Value), "1, 4 on");
    QCOMPARE(bits, QList<QVariantList>({{9}}));
    QCOMPARE(text, QList<QVariantList>({{"1, 4 on"}}));
}

QTEST_MAIN(tst_StateDisplayBit)
#include "tst_StateDisplayBit.moc"

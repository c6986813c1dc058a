// SPDX-License-Identifier: MIT
// The dial and its parameter: what it asks of the memory, in which order, and what it tells of it.
#include "tests/support/DialRig.h"
#include "tests/support/Table.h"

#include <thread>

namespace {

/// Everything that a dial tells, in order.
class Listener : public QObject
{
public:
    explicit Listener(CDial &dial)
    {
        connect(&dial, &CDial::memoryAPIValueChange, this,
                [this](int value) { heard.append(QStringLiteral("value %1").arg(value)); });
        connect(&dial, &CDial::textualValueChange, this,
                [this](const QString &text) { heard.append(QStringLiteral("text ") + text); });
        connect(&dial, &CDial::pixmapValueChange, this,
                [this](const QPixmap &) { heard.append(QStringLiteral("pixmap")); });
        connect(&dial, &CDial::altAddressMode, this, [this](bool minimum) {
            heard.append(minimum ? QStringLiteral("at minimum") : QStringLiteral("above"));
        });
    }
    QStringList take() { return std::exchange(heard, {}); }
    QStringList heard;
};

} // namespace

class tst_CDialBinding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void attachRegistersAndShowsTheStoredValue();
    void aSmallerRangeIsNotWrittenBack();
    void anEditIsWrittenExactlyOnceAndThenTold();
    void theStoredValueIsToldWhereTheMemoryHeldIt();
    void extraOneForcesTheSignals();
    void otherThreadsOnlyAskForARepeat();
    void blockedEditsAreStillWritten();
    void textsAreAskedForWithTheRightNumbers_data();
    void textsAreAskedForWithTheRightNumbers();
    void picturesTakeThePlaceOfTexts();
    void alternativeModeReplacesTheIndexAtTheNextAttach();
    void alternativeModeWithoutAnIndexSelectsNothing();
    void alternativeModeTellsOnAndOff();
    void translationTablesWorkBothWays();
};

void tst_CDialBinding::attachRegistersAndShowsTheStoredValue()
{
    DialRig rig(0, 100, 40);
    Listener listener(rig.dial);
    rig.memory.bind(rig.dial, 3, 7, 2);
    const QString attach = QStringLiteral("attachProxy %1 0").arg(packedAddress(3, 7, 2));
    QCOMPARE(rig.memory.take({"attachProxy", "read", "writeValue"}),
             QStringList({attach, "readMinimum 3 7 2", "readMaximum 3 7 2", "readValue 3 7 2"}));
    QCOMPARE(rig.dial.value(), 40);
    QCOMPARE(rig.dial.maximum(), 100);
    QCOMPARE(listener.heard.last(3), QStringList({"value 40", "text <40>", "above"}));
}

void tst_CDialBinding::aSmallerRangeIsNotWrittenBack()
{
    DialRig rig(0, 100, 40);
    rig.bind();
    rig.parameter().maximum = 20;
    rig.dial.process(nullptr, 0, 0);
    QCOMPARE(rig.dial.value(), 20);
    QCOMPARE(rig.writes(), QStringList());
}

void tst_CDialBinding::anEditIsWrittenExactlyOnceAndThenTold()
{
    DialRig rig(0, 100, 40);
    rig.bind();
    Listener listener(rig.dial);
    QSignalSpy toldAfterwards(&rig.dial, &CDial::valueChanged);
    rig.dial.setValue(41);
    QCOMPARE(rig.memory.take(), QStringList({"undoToken 0 1", "writeValue 3 7 2 = 41 token 9",
                                             "readValue 3 7 2", "valueText 2 0 41 0 3 7"}));
    QCOMPARE(listener.take(), QStringList({"value 41", "text <41>", "above"}));
    QCOMPARE(toldAfterwards.count(), 1);
    rig.dial.setValue(41);
    QCOMPARE(rig.memory.take(), QStringList());
    // The memory's echo of the edit changes nothing.
    rig.dial.process(nullptr, 0, 0);
    QCOMPARE(listener.take(), QStringList());
}

void tst_CDialBinding::theStoredValueIsToldWhereTheMemoryHeldIt()
{
    DialRig rig(0, 100, 40);
    rig.bind();
    rig.parameter().maximum = 50;
    Listener listener(rig.dial);
    rig.dial.setValue(80);
    QCOMPARE(listener.heard.first(), QStringLiteral("value 50"));
}

void tst_CDialBinding::extraOneForcesTheSignals()
{
    DialRig rig(0, 100, 40);
    rig.bind();
    Listener listener(rig.dial);
    rig.dial.process(nullptr, 0, 0);
    QCOMPARE(listener.take(), QStringList());
    rig.dial.process(nullptr, 0, 1);
    QCOMPARE(listener.take(), QStringList({"value 40", "text <40>", "above"}));
    rig.dial.setfxValueTransform(true);
    rig.dial.process(nullptr, 0, 0);
    QCOMPARE(listener.take().size(), 3);
}

void tst_CDialBinding::otherThreadsOnlyAskForARepeat()
{
    DialRig rig(0, 100, 40);
    rig.bind();
    Listener listener(rig.dial);
    rig.parameter().value = 60;
    std::thread([&] {
        rig.dial.process(nullptr, 0, 1);
        rig.dial.process(nullptr, 0, 1);
        rig.dial.process(nullptr, 0, 0);
    }).join();
    QCOMPARE(rig.memory.observerEvents.load(), 3);
    QCOMPARE(rig.dial.value(), 40);
    QCOMPARE(rig.memory.take(), QStringList());
    // The repeat: once for the change, once for what was asked for.
    rig.dial.process(nullptr, 0, 0);
    QCOMPARE(listener.take().size(), 6);
    rig.dial.process(nullptr, 0, 0);
    QCOMPARE(listener.take(), QStringList());
}

void tst_CDialBinding::blockedEditsAreStillWritten()
{
    DialRig rig(0, 100, 40);
    rig.bind();
    {
        const QSignalBlocker blocker(rig.dial);
        rig.dial.setValue(55);
        QCOMPARE(rig.writes().size(), 1);
    }
    Listener listener(rig.dial);
    QTRY_COMPARE(listener.heard.size(), 3);
    QCOMPARE(rig.writes(), QStringList());
}

void tst_CDialBinding::textsAreAskedForWithTheRightNumbers_data()
{
    // The element offset is 4.
    Table<int, int, int, QString>()
        .row("own table", 0, 0, 100, "valueText 6 0 3 0 3 7")
        .row("counted from a negative minimum", 0, -20, 100, "valueText 6 0 23 0 3 7")
        .row("negative table, unshifted", -7, -20, 100, "valueText 6 -7 3 0 3 7")
        .row("on/off with 5", -3, 0, 5, "valueText 6 -3 3 1 3 7")
        .row("on/off with 1", -3, 0, 4, "valueText 6 -3 3 0 3 7")
        .row("other table with 5", -2, 0, 5, "valueText 6 -2 3 0 3 7");
}

void tst_CDialBinding::textsAreAskedForWithTheRightNumbers()
{
    const auto [table, minimum, maximum, call] = Table<int, int, int, QString>::fetch();
    DialRig rig(minimum, maximum, 2);
    rig.dial.setTableId(table);
    rig.memory.bind(rig.dial, 3, 7, 2, 4);
    rig.memory.take();
    rig.dial.setValue(3);
    QCOMPARE(rig.memory.take({"valueText"}), QStringList{call});
}

void tst_CDialBinding::picturesTakeThePlaceOfTexts()
{
    DialRig rig(0, 100, 40);
    rig.bind();
    rig.memory.pictureOfValue = QPixmap(4, 4);
    Listener listener(rig.dial);
    rig.dial.setValue(41);
    QCOMPARE(listener.take(), QStringList({"value 41", "pixmap", "above"}));
}

void tst_CDialBinding::alternativeModeReplacesTheIndexAtTheNextAttach()
{
    DialRig rig(0, 100, 40);
    rig.memory.at(3, 30, 2).value = 66;
    rig.dial.setAlternativeIndex(30);
    rig.memory.bind(rig.dial, 3, 7, 2, 4);
    rig.memory.take();
    rig.dial.changeAltAddressMode(true);
    rig.dial.changeAltAddressMode(true);
    QCOMPARE(rig.memory.take(), QStringList{"selectAltAddress 6"});
    QCOMPARE(rig.dial.index, qint16(7));
    rig.dial.connectMemAPI();
    QCOMPARE(rig.dial.index, qint16(30));
    QCOMPARE(rig.dial.value(), 66);
}

void tst_CDialBinding::alternativeModeWithoutAnIndexSelectsNothing()
{
    DialRig rig(0, 100, 0);
    rig.bind();
    Listener listener(rig.dial);
    rig.dial.changeAltAddressMode(true);
    QCOMPARE(rig.memory.take(), QStringList());
    // The switch is shown at the next refresh, though the value stays.
    rig.dial.process(nullptr, 0, 0);
    QCOMPARE(listener.take(), QStringList({"value 0", "text OFF", "at minimum"}));
    rig.dial.process(nullptr, 0, 0);
    QCOMPARE(listener.take(), QStringList());
    QCOMPARE(rig.dial.index, qint16(7));
}

void tst_CDialBinding::alternativeModeTellsOnAndOff()
{
    DialRig rig(0, 100, 40);
    rig.bind();
    rig.dial.changeAltAddressMode(true);
    rig.memory.take();
    Listener listener(rig.dial);
    rig.dial.handle_changeAltNamedValue(99);
    QCOMPARE(listener.take(), QStringList({"value 40", "text ON", "above"}));
    QCOMPARE(rig.memory.take({"valueText"}), QStringList());
}

void tst_CDialBinding::translationTablesWorkBothWays()
{
    DialRig rig(10, 90, 30);
    CDial::TranslationTable table{};
    for (int i = 0; i < CDial::TranslationOffset; ++i) {
        table[size_t(i)] = 10 + i / 2;
        table[size_t(CDial::TranslationOffset + i)] = 100 + i;
    }
    rig.dial.setTranslationTable(table);
    rig.bind();
    QCOMPARE(rig.dial.value(), 20);
    rig.dial.setValue(21);
    QCOMPARE(rig.writes(), QStringList{"writeValue 3 7 2 = 121 token 9"});
    // Beyond its 45 entries the table says nothing.
    rig.parameter().value = 80;
    rig.dial.process(nullptr, 0, 0);
    QCOMPARE(rig.dial.value(), 70);
}

QTEST_MAIN(tst_CDialBinding)
#include "tst_CDialBinding.moc"

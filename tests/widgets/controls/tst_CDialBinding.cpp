// SPDX-License-Identifier: MIT
// The dial and its parameter: what it asks of the memory, in which order, and what it tells of it.
#include "interfaces/ParamStream.h"
#include "interfaces/optserver/CAppServer.h"
#include "tests/support/DialRig.h"

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

QByteArray copied(int group, int index, int value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    CDial source;
    source.group = qint16(group);
    source.index = qint16(index);
    source.element = 5;
    TParamInfoWriter(source, value, &stream, -1);
    return bytes;
}

void processWith(CDial &dial, QByteArray &bytes, int operation)
{
    QDataStream stream(&bytes, operation == 3 ? QIODevice::WriteOnly : QIODevice::ReadOnly);
    dial.process(reinterpret_cast<const Q_UINT8 *>(&stream), operation, 0);
}

/// Counts how often the event loop goes round.
class TurnCounter : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        turns += event->type() == TMarshallEvent::eventType();
        return false;
    }
    int turns = 0;
};

} // namespace

class tst_CDialBinding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void attachRegistersAndShowsTheStoredValue();
    void nothingHappensWithoutAReadyMemory();
    void detachIsToldOnlyOnce();
    void refreshNeverWritesBack();
    void anEditIsWrittenExactlyOnceAndThenTold();
    void theStoredValueIsToldWhereTheMemoryHeldIt();
    void operationsTakeTheirValue_data();
    void operationsTakeTheirValue();
    void copyWritesTheStoredValue();
    void damagedPastesLeaveTheStoredValue_data();
    void damagedPastesLeaveTheStoredValue();
    void extraOneForcesTheSignals();
    void otherThreadsOnlyAskForARepeat();
    void blockedSignalsCostNoEmissionAndNoSpinning();
    void blockedEditsAreStillWritten();
    void textsAreAskedForWithTheRightNumbers_data();
    void textsAreAskedForWithTheRightNumbers();
    void picturesTakeThePlaceOfTexts();
    void alternativeModeReplacesTheIndexAtTheNextAttach();
    void alternativeModeWithoutAnIndexSelectsNothing();
    void alternativeModeTellsOnAndOff();
    void translationTablesWorkBothWays();
    void aTableOfTheConsoleHidesMissingParameters();
    void leavesTheMemoryBeforeItDies();
    void survivesItsMemory();
    void diesInsideItsOwnEmission();
};

void tst_CDialBinding::attachRegistersAndShowsTheStoredValue()
{
    DialRig rig(0, 100, 40);
    Listener listener(rig.dial);
    rig.memory.bind(rig.dial, 3, 7, 2);
    const QStringList calls = rig.memory.take({"attachProxy", "read", "writeValue"});
    QCOMPARE(calls.mid(0, 4),
             QStringList({QStringLiteral("attachProxy %1 0").arg(packedAddress(3, 7, 2)),
                          "readMinimum 3 7 2", "readMaximum 3 7 2", "readValue 3 7 2"}));
    QCOMPARE(calls.size(), 4);
    QCOMPARE(rig.dial.value(), 40);
    QCOMPARE(rig.dial.maximum(), 100);
    QCOMPARE(listener.heard.mid(listener.heard.size() - 3),
             QStringList({"value 40", "text <40>", "above"}));
    QVERIFY(!rig.dial.isSilent());
}

void tst_CDialBinding::nothingHappensWithoutAReadyMemory()
{
    DialRig rig(0, 100, 40);
    rig.bind();
    rig.memory.readyNow = false;
    Listener listener(rig.dial);
    rig.parameter().value = 70;
    rig.dial.process(nullptr, 0, 1);
    rig.dial.setValue(60);
    rig.dial.acceptNum(3);
    rig.dial.disconnectMemAPI();
    QCOMPARE(rig.memory.take(), QStringList());
    QCOMPARE(listener.heard, QStringList());
    QCOMPARE(rig.dial.value(), 60);
    QVERIFY(!rig.dial.isAttached());
    CDial loose;
    loose.process(nullptr, 0, 1);
    loose.connectMemAPI();
    loose.setValue(5);
    QCOMPARE(loose.value(), 5);
}

void tst_CDialBinding::detachIsToldOnlyOnce()
{
    DialRig rig(0, 100, 40);
    rig.bind();
    rig.dial.disconnectMemAPI();
    rig.dial.disconnectMemAPI();
    QCOMPARE(rig.memory.take(), QStringList{
        QStringLiteral("detachProxy %1").arg(packedAddress(3, 7, 2))});
    QCOMPARE(rig.dial.value(), 40);
}

void tst_CDialBinding::refreshNeverWritesBack()
{
    DialRig rig(0, 100, 40);
    rig.bind();
    Listener listener(rig.dial);
    for (int operation : {0, 1, 2, 3, 4, 17}) {
        rig.parameter().value += 5;
        rig.dial.process(nullptr, operation, 0);
    }
    rig.parameter().maximum = 20;
    rig.dial.process(nullptr, 0, 0);
    QCOMPARE(rig.dial.value(), 20);
    QCOMPARE(rig.writes(), QStringList());
    QVERIFY(!listener.heard.isEmpty());
}

void tst_CDialBinding::anEditIsWrittenExactlyOnceAndThenTold()
{
    DialRig rig(0, 100, 40);
    rig.bind();
    Listener listener(rig.dial);
    QSignalSpy toldAfterwards(&rig.dial, &CDial::valueChanged);
    rig.dial.setValue(41);
    QCOMPARE(rig.memory.take(),
             QStringList({"undoToken 0 1", "writeValue 3 7 2 = 41 token 9", "readValue 3 7 2",
                          "valueText 2 0 41 0 3 7"}));
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

void tst_CDialBinding::operationsTakeTheirValue_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<bool>("alternativeExists");
    QTest::addColumn<bool>("pasteAccepted");
    QTest::addColumn<int>("value");
    QTest::newRow("refresh") << 0 << true << true << 40;
    QTest::newRow("reset") << 1 << true << true << 11;
    QTest::newRow("paste") << 2 << true << true << 77;
    QTest::newRow("paste refused") << 2 << true << false << 40;
    QTest::newRow("alternative default") << 4 << true << true << 22;
    QTest::newRow("no alternative default") << 4 << false << true << 11;
    QTest::newRow("unknown operation") << 9 << true << true << 40;
}

void tst_CDialBinding::operationsTakeTheirValue()
{
    QFETCH(int, operation);
    QFETCH(bool, alternativeExists);
    QFETCH(bool, pasteAccepted);
    DialRig rig(0, 100, 5);
    rig.bind();
    RecordingMemory::Parameter &own = rig.parameter();
    own.value = 40;
    own.plainDefault = 11;
    own.alternativeDefault = 22;
    own.hasAlternative = alternativeExists;
    rig.memory.acceptsPaste = pasteAccepted;
    QByteArray bytes = copied(3, 7, 77);
    processWith(rig.dial, bytes, operation);
    QTEST(rig.dial.value(), "value");
    if (operation == 2)
        QCOMPARE(rig.memory.take({"applyParamInfo"}),
                 QStringList{"applyParamInfo 3 7 2 = 77"});
}

void tst_CDialBinding::copyWritesTheStoredValue()
{
    DialRig rig(0, 100, 40);
    rig.bind();
    QByteArray bytes;
    processWith(rig.dial, bytes, 3);
    QDataStream stream(bytes);
    const TParamInfoReader reader(&stream);
    QVERIFY(reader.isValid());
    QCOMPARE(reader.info(), (TParamInfo{3, 2, 7, 40}));
}

void tst_CDialBinding::damagedPastesLeaveTheStoredValue_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut off") << copied(3, 7, 77).left(9);
    QTest::newRow("something else") << QByteArray(40, 'x');
}

void tst_CDialBinding::damagedPastesLeaveTheStoredValue()
{
    QFETCH(QByteArray, bytes);
    DialRig rig(0, 100, 40);
    rig.bind();
    processWith(rig.dial, bytes, 2);
    QCOMPARE(rig.dial.value(), 40);
    QCOMPARE(rig.memory.take({"applyParamInfo"}), QStringList());
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

void tst_CDialBinding::blockedSignalsCostNoEmissionAndNoSpinning()
{
    DialRig rig(0, 100, 40);
    rig.bind();
    Listener listener(rig.dial);
    TurnCounter counter;
    CAppServer::s_marshallDispatcher->installEventFilter(&counter);
    rig.dial.blockSignals(true);
    for (int value : {50, 60, 70}) {
        rig.parameter().value = value;
        rig.dial.process(nullptr, 0, 1);
    }
    QTest::qWait(120);
    QCOMPARE(listener.take(), QStringList());
    QVERIFY2(counter.turns <= 3, qPrintable(QString::number(counter.turns)));
    rig.dial.blockSignals(false);
    QTRY_COMPARE(listener.heard.size(), 3);
    QTest::qWait(60);
    QCOMPARE(listener.take(), QStringList({"value 70", "text <70>", "above"}));
    CAppServer::s_marshallDispatcher->removeEventFilter(&counter);
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
    QTest::addColumn<int>("table");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<QString>("call");
    // The element offset is 4.
    QTest::newRow("own table") << 0 << 0 << 100 << QStringLiteral("valueText 6 0 3 0 3 7");
    QTest::newRow("counted from a negative minimum")
        << 0 << -20 << 100 << QStringLiteral("valueText 6 0 23 0 3 7");
    QTest::newRow("negative table, unshifted")
        << -7 << -20 << 100 << QStringLiteral("valueText 6 -7 3 0 3 7");
    QTest::newRow("on/off with 5") << -3 << 0 << 5 << QStringLiteral("valueText 6 -3 3 1 3 7");
    QTest::newRow("on/off with 1") << -3 << 0 << 4 << QStringLiteral("valueText 6 -3 3 0 3 7");
    QTest::newRow("other table with 5") << -2 << 0 << 5 << QStringLiteral("valueText 6 -2 3 0 3 7");
}

void tst_CDialBinding::textsAreAskedForWithTheRightNumbers()
{
    QFETCH(int, table);
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(QString, call);
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

void tst_CDialBinding::aTableOfTheConsoleHidesMissingParameters()
{
    DialRig rig(0, 100, 40);
    rig.bind();
    rig.show();
    rig.memory.exists = false;
    rig.dial.process(nullptr, 0, 0);
    QVERIFY(!rig.dial.isVisible());
    rig.memory.exists = true;
    rig.dial.process(nullptr, 0, 0);
    QVERIFY(rig.dial.isVisible());
    rig.dial.hide();
    rig.dial.process(nullptr, 0, 0);
    QVERIFY(!rig.dial.isVisible());
    rig.dial.show();
    rig.dial.setDisableAutoHide(true);
    rig.memory.exists = false;
    rig.dial.process(nullptr, 0, 0);
    QVERIFY(rig.dial.isVisible());
}

void tst_CDialBinding::leavesTheMemoryBeforeItDies()
{
    RecordingMemory memory;
    {
        CDial dial;
        memory.bind(dial, 3, 7, 2);
        memory.take();
    }
    QCOMPARE(memory.take({"detachProxy", "releaseProxy"}),
             QStringList({QStringLiteral("detachProxy %1").arg(packedAddress(3, 7, 2)),
                          "releaseProxy"}));
}

void tst_CDialBinding::survivesItsMemory()
{
    CDial dial;
    {
        RecordingMemory memory;
        memory.bind(dial, 3, 7, 2);
    }
    dial.process(nullptr, 0, 1);
    dial.setValue(3);
    QVERIFY(!dial.memAPIReady() && !dial.isAttached());
}

void tst_CDialBinding::diesInsideItsOwnEmission()
{
    RecordingMemory memory;
    auto *dial = new CDial;
    memory.bind(*dial, 3, 7, 2);
    connect(dial, &CDial::memoryAPIValueChange, this, [&dial] { delete std::exchange(dial, nullptr); });
    dial->process(nullptr, 0, 1);
    QVERIFY(!dial);
}

QTEST_MAIN(tst_CDialBinding)
#include "tst_CDialBinding.moc"

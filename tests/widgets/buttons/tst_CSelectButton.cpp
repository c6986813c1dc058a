// SPDX-License-Identifier: MIT
#include "companions/memory/ParameterMemory.h"
#include "interfaces/CSimpleNotifier.h"
#include "testkit/RecordingMemory.h"
#include "tests/support/KeyStrip.h"
#include "tests/support/Table.h"
#include "widgets/buttons/CSelectButton.h"

#include <QAccessible>
#include <QTest>
#include <QUndoStack>

#include <thread>

using keystrip::shown;
using teststrip::colour;

namespace {

/// A select key that counts how often it is painted.
class CountedKey : public CSelectButton
{
public:
    using CSelectButton::CSelectButton;
    int takePaints() { return std::exchange(m_paints, 0); }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++m_paints;
        CSelectButton::paintEvent(event);
    }

private:
    int m_paints = 0;
};

/// Counts the passes in which a window is painted.
class PassCounter : public QObject
{
public:
    explicit PassCounter(QWidget &window) { window.installEventFilter(this); }
    int passes = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        passes += event->type() == QEvent::UpdateRequest ? 1 : 0;
        return false;
    }
};

/// A row of select keys on the built-in console.
struct Row
{
    explicit Row(int count)
    {
        const bool loaded = memory->load(ParameterMemory::builtInModel());
        Q_ASSERT(loaded);
        Q_UNUSED(loaded)
        const QPixmap strip = keystrip::make(4);
        for (int channel = 0; channel < count; ++channel) {
            auto *key = new CountedKey(&window);
            key->setNamedAddress(QStringLiteral("kSelectedChannel/kChannel"));
            key->setnSubImages(4);
            key->setCombinedImage(strip);
            key->move(channel % 20 * keystrip::Cell.width(),
                      channel / 20 * keystrip::Cell.height());
            memory->bindProxy(key, channel);
            keys.append(key);
        }
        QCoreApplication::processEvents();
    }
    void show()
    {
        window.resize(20 * keystrip::Cell.width(), 300);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCoreApplication::processEvents();
        paints();
    }
    void set(const QString &name, int element, int value)
    {
        IMemAPI::TSingleBaseAddress at;
        QVERIFY(memory->resolve(name, element, at));
        memory->writeValue(at.group, at.index, at.element, value, 0);
        QCoreApplication::processEvents();
    }
    void select(int channel) { set(QStringLiteral("kSelectedChannel/kChannel"), 0, channel); }
    int selected() const { return memory->readValue(210, 0, 0, 0, 0); }
    /// The channels whose keys blink.
    QList<int> blinking() const
    {
        return numbers([](CountedKey &key) { return key.blinkingMode(); });
    }
    /// The channels whose keys were painted since the last call.
    QList<int> paints() const
    {
        return numbers([](CountedKey &key) { return key.takePaints() > 0; });
    }
    QList<int> on() const
    {
        return numbers([](CountedKey &key) { return key.isOn(); });
    }
    template<class Test>
    QList<int> numbers(Test test) const
    {
        QList<int> found;
        for (CountedKey *key : keys) {
            if (key && test(*key))
                found.append(key->channelNumber());
        }
        return found;
    }

    std::unique_ptr<ParameterMemory> memory = std::make_unique<ParameterMemory>();
    QWidget window;
    QList<QPointer<CountedKey>> keys;
};

const QString inputPair = QStringLiteral("kInputPair/kPair");
const QString inputGroup = QStringLiteral("kGroupID_Input/kGroupID");

} // namespace

class tst_CSelectButton : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numberIsOffsetsPlusElement_data();
    void numberIsOffsetsPlusElement();
    void unboundKeyHasANumberOfItsOwn();
    void callsTheMemoryInOrder();
    void clickSelectsTheChannel();
    void litKeyStaysLitAndWritesNothing();
    void blinksForLinkedChannels_data();
    void blinksForLinkedChannels();
    void linksFollowTheirParameters();
    void showsThePhaseOfTheClock();
    void selectionChangeRepaintsWhatChanged();
    void blinkStepIsOnePass();
    void leavingTheMemoryEndsBlinking();
    void operationsBeyondPasteDoNothing();
    void otherThreadSelects();
    void mayDieAnyTime_data();
    void mayDieAnyTime();
    void speaksOfItsChannel();
};

void tst_CSelectButton::numberIsOffsetsPlusElement_data()
{
    Table<unsigned, int, int, int>()
        .row("input 6", 0U, 0, 5, 5)
        .row("mix 3 behind 48 inputs", 48U, 0, 2, 50)
        .row("second layer", 0U, 24, 5, 29)
        .row("16 bits", 0xFFFFU, 1, 2, 2);
}

void tst_CSelectButton::numberIsOffsetsPlusElement()
{
    const auto [base, offset, element, number] = Table<unsigned, int, int, int>::fetch();
    RecordingMemory memory;
    CSelectButton key;
    key.setselBaseOffset(base);
    QCOMPARE(key.channelNumber(), 0x7FFF);
    memory.bind(key, 21, 4, element, offset);
    QCOMPARE(key.channelNumber(), number);
    QCOMPARE(key.element, qint16(0));
    QCOMPARE(key.selBaseOffset(), base);
    // Attached again at the same address it is the same channel.
    key.applyConnection(0);
    key.applyConnection(1);
    QCOMPARE(key.channelNumber(), number);
    key.setselBaseOffset(7);
    QCOMPARE(key.channelNumber(), number);
}

void tst_CSelectButton::unboundKeyHasANumberOfItsOwn()
{
    RecordingMemory memory;
    CSelectButton key;
    key.setMemAPI(&memory);
    key.connectMemAPI();
    QCOMPARE(memory.take({"attachProxy", "createNotifier"}), QStringList());
    QCOMPARE(key.channelNumber(), 0x7FFF);
    QVERIFY(!key.isOn());
    key.setMemAPI(nullptr);
}

void tst_CSelectButton::callsTheMemoryInOrder()
{
    RecordingMemory memory;
    CSelectButton key;
    memory.bind(key, 21, 4, 5);
    const QString pairs = QStringLiteral("FEkInputPair/kPair;10FEkMixPair/kPair;"
                                         "08FEkMatrixPair/kPair;03FEkStereoPair/kPair");
    const QString groups =
        QStringLiteral("FEkGroupID_Input/kGroupID;10FEkGroupID_Mix/kGroupID;"
                       "08FEkGroupID_Matrix/kGroupID;03FEkGroupID_Stereo/kGroupID");
    QCOMPARE(memory.take({"attachProxy", "createNotifier"}),
             QStringList({QStringLiteral("attachProxy %1 0").arg(packedAddress(21, 4, 0)),
                          "createNotifier " + pairs + " 51pairModeChanged(int)",
                          "createNotifier " + groups + " 51selGroupChanged(int)",
                          "createNotifier " + groups + " 51chGroupChanged(int)"}));
    QTest::mouseClick(&key, Qt::LeftButton);
    QCOMPARE(memory.take({"writeValue"}), QStringList{"writeValue 21 4 0 = 5 token 9"});
}

void tst_CSelectButton::clickSelectsTheChannel()
{
    Row row(4);
    row.show();
    QCOMPARE(row.on(), QList<int>{0});
    QTest::mouseClick(row.keys[2].data(), Qt::LeftButton);
    QCOMPARE(row.selected(), 2);
    QCoreApplication::processEvents();
    QCOMPARE(row.on(), QList<int>{2});
    row.memory->undoStack()->undo();
    QCoreApplication::processEvents();
    QCOMPARE(row.on(), QList<int>{0});
    QTest::keyClick(row.keys[3].data(), Qt::Key_Space);
    QCOMPARE(row.selected(), 3);
}

void tst_CSelectButton::litKeyStaysLitAndWritesNothing()
{
    Row row(2);
    row.show();
    const int steps = row.memory->undoStack()->count();
    QTest::mouseClick(row.keys[0].data(), Qt::LeftButton);
    QTest::keyClick(row.keys[0].data(), Qt::Key_Space);
    QVERIFY(row.keys[0]->isOn());
    QCOMPARE(row.memory->undoStack()->count(), steps);
    QTest::qWait(150);
    QCOMPARE(shown(*row.keys[0]), colour(0, keystrip::On));
}

void tst_CSelectButton::blinksForLinkedChannels_data()
{
    QTest::addColumn<QList<int>>("paired");
    QTest::addColumn<QList<int>>("grouped"); // in group 3
    QTest::addColumn<int>("selected");
    QTest::addColumn<QList<int>>("blinking");
    using Channels = QList<int>;
    const Channels none;
    QTest::newRow("pair, even half selected") << Channels{4, 5} << none << 4 << Channels{5};
    QTest::newRow("pair, odd half selected") << Channels{4, 5} << none << 5 << Channels{4};
    QTest::newRow("3 and 4 are no partners") << Channels{3, 4} << none << 4 << none;
    QTest::newRow("only its own pair mode counts") << Channels{4} << none << 4 << none;
    QTest::newRow("group") << none << Channels{1, 6, 7} << 6 << Channels{1, 7};
    QTest::newRow("other channel selected") << none << Channels{1, 6, 7} << 2 << none;
    QTest::newRow("group 0 is no group") << none << none << 2 << none;
    QTest::newRow("both") << Channels{6, 7} << Channels{1, 6} << 6 << Channels{1, 7};
}

void tst_CSelectButton::blinksForLinkedChannels()
{
    QFETCH(QList<int>, paired);
    QFETCH(QList<int>, grouped);
    QFETCH(int, selected);
    Row row(8);
    for (const int channel : paired)
        row.set(inputPair, channel, 1);
    for (const int channel : grouped)
        row.set(inputGroup, channel, 3);
    row.select(selected);
    QTEST(row.blinking(), "blinking");
    // And the same when the links are made after the selection.
    Row later(8);
    later.select(selected);
    for (const int channel : paired)
        later.set(inputPair, channel, 1);
    for (const int channel : grouped)
        later.set(inputGroup, channel, 3);
    QTEST(later.blinking(), "blinking");
}

void tst_CSelectButton::linksFollowTheirParameters()
{
    // 48 inputs, 16 mixes, 8 matrices and 3 stereo masters: one count of channels.
    Row row(75);
    row.set(QStringLiteral("kMixPair/kPair"), 3, 1);
    row.set(QStringLiteral("kGroupID_Stereo/kGroupID"), 2, 5);
    row.set(QStringLiteral("kGroupID_Matrix/kGroupID"), 0, 5);
    row.select(50);
    QCOMPARE(row.blinking(), QList<int>{51});
    row.select(64);
    QCOMPARE(row.blinking(), QList<int>{74});
    row.set(QStringLiteral("kGroupID_Matrix/kGroupID"), 0, 0);
    QCOMPARE(row.blinking(), QList<int>());
}

void tst_CSelectButton::showsThePhaseOfTheClock()
{
    Row row(2);
    row.show();
    row.set(inputPair, 1, 1);
    CountedKey &key = *row.keys[1];
    QVERIFY(key.blinkingMode());
    for (const bool lit : {true, false, true}) {
        row.memory->stepBlinkClock(lit);
        QCOMPARE(shown(key), colour(0, lit ? keystrip::On : keystrip::Off));
    }
    // Steady again, at once.
    row.set(inputPair, 1, 0);
    QCOMPARE(shown(key), colour(0, keystrip::Off));
    row.paints();
    row.memory->stepBlinkClock(false);
    QCOMPARE(row.paints(), QList<int>());
}

void tst_CSelectButton::selectionChangeRepaintsWhatChanged()
{
    Row row(96);
    row.set(inputPair, 10, 1);
    row.set(inputGroup, 20, 2);
    row.set(inputGroup, 21, 2);
    row.show();
    row.select(30);
    QCOMPARE(row.paints(), QList<int>({0, 30}));
    row.select(11);
    QCOMPARE(row.paints(), QList<int>({11, 30}));
    QCOMPARE(row.blinking(), QList<int>{10});
    row.select(20);
    QCOMPARE(row.paints(), QList<int>({10, 11, 20})); // 10 stops blinking
    QCOMPARE(row.blinking(), QList<int>{21});
}

void tst_CSelectButton::blinkStepIsOnePass()
{
    // As many keys as on four layers of a large console, all of one group.
    Row row(0);
    QList<CountedKey *> all;
    for (int i = 0; i < 200; ++i) {
        auto *key = new CountedKey(&row.window);
        key->setNamedAddress(QStringLiteral("kSelectedChannel/kChannel"));
        key->setnSubImages(4);
        key->setCombinedImage(keystrip::make(4));
        key->move(i % 20 * keystrip::Cell.width(), i / 20 * keystrip::Cell.height());
        row.memory->bindProxy(key, 1 + i % 47);
        all.append(key);
    }
    for (int channel = 0; channel < 48; ++channel)
        row.set(inputGroup, channel, 1);
    row.show();
    QVERIFY(std::all_of(all.begin(), all.end(), [](auto *key) { return key->blinkingMode(); }));
    for (CountedKey *key : all) {
        key->takePaints();
        QVERIFY(key->findChildren<QTimer *>().isEmpty());
    }
    PassCounter counter(row.window);
    row.memory->stepBlinkClock(true);
    // Painted when the clock's signal has returned, each once, all together.
    QVERIFY(std::all_of(all.begin(), all.end(), [](auto *key) { return key->takePaints() == 1; }));
    QCOMPARE(counter.passes, 1);
    QCOMPARE(row.memory->blinkClock(nullptr, 0)->children().size(), 1);
    // One that is asked by itself is painted at once, too.
    all.first()->doBlink();
    QCOMPARE(all.first()->takePaints(), 1);
}

void tst_CSelectButton::leavingTheMemoryEndsBlinking()
{
    Row row(2);
    row.show();
    row.set(inputPair, 1, 1);
    row.memory->stepBlinkClock(true);
    row.keys[1]->disconnectMemAPI();
    QVERIFY(!row.keys[1]->blinkingMode());
    QCOMPARE(shown(*row.keys[1]), colour(0, keystrip::Off));
    QVERIFY(row.keys[1]->findChildren<CSimpleNotifier *>().isEmpty());
    row.memory.reset();
    QTest::mouseClick(row.keys[0].data(), Qt::LeftButton);
    row.keys[0]->checkBlinkState();
}

void tst_CSelectButton::operationsBeyondPasteDoNothing()
{
    RecordingMemory memory;
    CSelectButton key;
    memory.at(21, 4, 0).value = 5;
    memory.bind(key, 21, 4, 5);
    QVERIFY(key.isOn());
    memory.at(21, 4, 0).value = 3;
    key.process(nullptr, TMemProxy::ResetToAlternativeDefault, 0);
    QVERIFY(key.isOn());
    key.process(nullptr, TMemProxy::Refresh, 0);
    QVERIFY(!key.isOn());
}

void tst_CSelectButton::otherThreadSelects()
{
    Row row(4);
    std::thread([&] { row.memory->writeValue(210, 0, 0, 3, 0); }).join();
    QTRY_COMPARE(row.on(), QList<int>{3});
}

void tst_CSelectButton::mayDieAnyTime_data()
{
    QTest::addColumn<QString>("when");
    for (const char *when : {"clicked", "told of another selection", "group changes", "blinking",
                             "event queued", "with its memory"})
        QTest::newRow(when) << QString(when);
}

void tst_CSelectButton::mayDieAnyTime()
{
    QFETCH(QString, when);
    Row row(8);
    row.show();
    for (const int channel : {0, 1, 2, 3})
        row.set(inputGroup, channel, 4);
    const auto killAll = [&] { qDeleteAll(row.keys); };
    CountedKey *key = row.keys[1];
    if (when == "clicked") {
        connect(key, &COnOffButton::stateChanged, this, killAll);
        QTest::mouseClick(key, Qt::LeftButton);
    } else if (when == "told of another selection") {
        connect(row.keys[0], &COnOffButton::textualValueChange, this, killAll);
        row.select(5);
    } else if (when == "group changes") {
        // The first one to hear of it takes the others along.
        auto *notifier = CSimpleNotifier::Create(*row.memory, key, inputGroup, 0,
                                                 SLOT(deleteLater()), nullptr, nullptr);
        Q_UNUSED(notifier)
        row.set(inputGroup, 0, 0);
        killAll();
    } else if (when == "blinking") {
        row.memory->stepBlinkClock(true);
        delete key;
        row.memory->stepBlinkClock(false);
        killAll();
    } else if (when == "event queued") {
        for (const QPointer<CountedKey> &each : row.keys)
            row.memory->postObserverEvent(each);
        killAll();
    } else {
        row.memory.reset();
        row.keys[1]->doBlink();
        killAll();
    }
    QTest::qWait(150);
    QCOMPARE(row.numbers([](CountedKey &) { return true; }), QList<int>());
}

void tst_CSelectButton::speaksOfItsChannel()
{
    Row row(3);
    QAccessibleInterface *speaker = QAccessible::queryAccessibleInterface(row.keys[2].data());
    QCOMPARE(speaker->text(QAccessible::Name), QStringLiteral("Selected Channel Channel 3"));
    QCOMPARE(speaker->text(QAccessible::Value), QStringLiteral("CH 1"));
    QVERIFY(!speaker->state().checked);
}

QTEST_MAIN(tst_CSelectButton)
#include "tst_CSelectButton.moc"

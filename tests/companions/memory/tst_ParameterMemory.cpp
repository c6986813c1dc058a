// SPDX-License-Identifier: MIT
#include "companions/memory/ConsoleModel.h"
#include "interfaces/CSimpleNotifier.h"
#include "tests/companions/memory/MemoryRig.h"

#include <QSignalSpy>
#include <QUndoStack>
#include <QtTest>

#include <thread>

namespace {

constexpr auto Fader = "kInputFader/kFader";
constexpr auto Groups = "FEkGroupID_Input/kGroupID;10FEkGroupID_Mix/kGroupID;"
                        "08FEkGroupID_Matrix/kGroupID;03FEkGroupID_Stereo/kGroupID";

class Receiver : public QObject
{
    Q_OBJECT

public:
    QList<int> values;
    int plainCalls = 0;
    QList<bool> onlines;
    std::function<void()> then;

public Q_SLOTS:
    void take(int value)
    {
        values.append(value);
        if (then)
            then();
    }
    void plain() { ++plainCalls; }
    void takeText(const QString &) {}
    void onlineChange(bool online) { onlines.append(online); }
};

} // namespace

class tst_ParameterMemory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resolvesNames_data();
    void resolvesNames();
    void bindsParentsBeforeChildren();
    void namesThatDoNotResolveStayInert();
    void controlsWithoutANameAreSkipped();
    void aControlWhoseElementIsMissingHides();
    void boundAgainFollowsTheNewElementOnly();
    void widgetsDestroyedWhileBinding();
    void renamedControlsFollowTheirNewName();
    void alternativeAddressReattaches();
    void valuesAreHeldInBounds_data();
    void valuesAreHeldInBounds();
    void defaults();
    void appliesCopiedParameters();
    void showsValues_data();
    void showsValues();
    void readsTypedNumbers_data();
    void readsTypedNumbers();
    void stepsFromDetentToDetent_data();
    void stepsFromDetentToDetent();
    void notifiersTellTheirReceivers();
    void notifiersFollowTheSelectedChannel();
    void notifiersThatCannotBe();
    void notifiersPointedElsewhere();
    void notifiersDeletedByTheirReceiver();
    void connectsItsSignals_data();
    void connectsItsSignals();
    void tellsWhenTheConsoleComesAndGoes();
    void clocksComeOnTheGuiThread();
    void findsPhantomPowerByThePatch_data();
    void findsPhantomPowerByThePatch();
    void readsExtraAddressing_data();
    void readsExtraAddressing();
    void meterTablesAndPreferences();
    void withoutAModelNothingIsThere();
};

void tst_ParameterMemory::resolvesNames_data()
{
    QTest::addColumn<int>("element");
    QTest::addColumn<QString>("found");
    const auto row = [](const char *name, int element, const char *found) {
        QTest::addRow("%s for %d", name, element) << element << QString(found);
    };
    row("kInputHA/kGain", 7, "10 0 7");
    row("05kInputHA/kGain", 7, "10 0 5");
    row("2FkInputHA/kGain", 7, "10 0 47");
    row("FEkInputHA/kGain", 7, "10 0 7");
    row("FEkBackupInputHA/kHAConnected", 3, "420 2 3");
    row("00kHX612Host/kHX612HostID", 9, "431 0 0");
    row("0FkSetupHX612/kHX612Port", 0, "430 0 15");
    row("kInputHA/kGain", 48, "none");
    row("kInputHA/kGain", -1, "none");
    row("30kInputHA/kGain", 0, "none");
    row("0akInputHA/kGain", 0, "none"); // a unit is written in capitals
    row("kInputHA", 0, "none");
    row("kInputHA/kGain/kGain", 0, "none");
    row("", 0, "none");
    row("FE", 0, "none");
    row(Groups, 0, "204 0 0");
    row(Groups, 47, "204 0 47");
    row(Groups, 48, "205 0 0");
    row(Groups, 63, "205 0 15");
    row(Groups, 64, "206 0 0");
    row(Groups, 74, "207 0 2");
    row(Groups, 75, "none");
    row("FEkInputPair/kPair ; 10FEkMixPair/kPair", 50, "201 0 2");
    row("FEkInputPair/kPair;FEkMixPair", 50, "none");        // no parameter after the count
    row("FEkInputPair/kPair;kMixPair/kPair", 50, "none");    // no count
    row("FEkInputPair/kPair;02FEkNone/kPair;10FEkMixPair/kPair", 51, "201 0 1");
}

void tst_ParameterMemory::resolvesNames()
{
    QFETCH(int, element);
    QFETCH(QString, found);
    const Rig rig;
    const QString name = QString(QTest::currentDataTag()).section(" for ", 0, 0);
    IMemAPI::TSingleBaseAddress at;
    QString result = "none";
    if (rig.memory->resolve(name, element, at))
        result = QString("%1 %2 %3").arg(at.group).arg(at.index).arg(at.element);
    QCOMPARE(result, found);
}

void tst_ParameterMemory::bindsParentsBeforeChildren()
{
    Rig rig;
    QWidget root;
    QStringList order;
    const auto add = [&](const char *name, QWidget *parent) {
        auto *probe = new Probe(Fader, parent);
        probe->onConnect = [&order, name] { order.append(name); };
        return probe;
    };
    Probe *first = add("first", &root);
    auto *panel = new QWidget(&root);
    add("second", panel);
    add("in first", first);
    add("third", &root);
    QCOMPARE(rig.memory->bind(&root, 4, 100), 4);
    QCOMPARE(order, (QStringList{"first", "in first", "second", "third"}));
    QCOMPARE(std::pair(first->element, first->elementOffset()), std::pair(qint16(4), qint16(100)));
    rig.turn();
    QCOMPARE(first->take(), 1);
}

void tst_ParameterMemory::namesThatDoNotResolveStayInert()
{
    Rig rig;
    Probe probe("03kInputEQ/kLowGian");
    QTest::ignoreMessage(QtWarningMsg,
                         "No parameter \"kInputEQ/kLowGian\" in the console model; the nearest "
                         "name is \"kInputEQ/kLowGain\".");
    QVERIFY(!rig.memory->bindProxy(&probe));
    QVERIFY(!probe.memAPI() && !probe.isAttached() && !probe.memoryRecord());
}

void tst_ParameterMemory::controlsWithoutANameAreSkipped()
{
    QTest::failOnWarning(QRegularExpression(".*"));
    Rig rig;
    QWidget root;
    new Probe({}, &root);
    auto *served = new Probe({}, &root);
    served->servedAnyway = true;
    QCOMPARE(rig.memory->bind(&root), 1);
    QVERIFY(served->memAPI() && served->isAttached());
}

void tst_ParameterMemory::aControlWhoseElementIsMissingHides()
{
    QTest::failOnWarning(QRegularExpression(".*"));
    Rig rig;
    QWidget root;
    auto *probe = new Probe(Fader, &root);
    probe->onProcess = [&] { probe->setWidgetShowState(probe); };
    rig.memory->bind(&root, 60);
    rig.turn();
    QVERIFY(probe->isHidden());
    rig.memory->bind(&root, 40);
    rig.turn();
    QVERIFY(!probe->isHidden());
}

void tst_ParameterMemory::boundAgainFollowsTheNewElementOnly()
{
    Rig rig;
    Probe probe(Fader);
    rig.bind(probe, 1);
    rig.bind(probe, 2);
    rig.write(Fader, 1, -1);
    rig.turn();
    QCOMPARE(probe.take(), 0);
    rig.write(Fader, 2, -2);
    rig.turn();
    QCOMPARE(probe.take(), 1);
    Rig other;
    other.bind(probe, 3);
    rig.write(Fader, 2, -3);
    rig.turn();
    QCOMPARE(probe.take(), 0);
}

void tst_ParameterMemory::widgetsDestroyedWhileBinding()
{
    Rig rig;
    QWidget root;
    auto *first = new Probe(Fader, &root);
    auto *second = new Probe(Fader, &root);
    auto *third = new Probe(Fader, &root);
    new Probe(Fader, second);
    first->onConnect = [second] { delete second; };
    third->onConnect = [first] { delete first; };
    QCOMPARE(rig.memory->bind(&root), 2);
    rig.turn();
    QCOMPARE(third->take(), 1);
}

void tst_ParameterMemory::renamedControlsFollowTheirNewName()
{
    Rig rig;
    Probe probe(Fader);
    rig.bind(probe, 9);
    probe.setNamedAddress("kInputOn/kOn");
    rig.turn();
    QCOMPARE(probe.take(), 1);
    QCOMPARE(std::pair(probe.group, probe.element), std::pair(qint16(18), qint16(9)));
    rig.write(Fader, 9, -1);
    rig.turn();
    QCOMPARE(probe.take(), 0);

    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^No parameter \"kInputOn/kOff\""));
    probe.setNamedAddress("kInputOn/kOff");
    QVERIFY(!probe.isAttached());
    probe.setNamedAddress(Fader);
    QVERIFY(probe.isAttached());
}

void tst_ParameterMemory::alternativeAddressReattaches()
{
    Rig rig;
    Probe probe("kInputHA/kGain");
    rig.memory->bindProxy(&probe, 5, 100);
    int connected = 0;
    probe.onConnect = [&] {
        ++connected;
        probe.index = 1; // as a control does that has an alternative index
    };
    rig.memory->selectAltAddress(&probe, probe.element + probe.elementOffset());
    QCOMPARE(connected, 1);
    rig.turn();
    probe.take();
    rig.write("kInputHA/k48V", 5, 1);
    rig.turn();
    QCOMPARE(probe.take(), 1);
    QCOMPARE(probe.seen, 1);
    probe.onConnect = nullptr;
    rig.memory->selectAltAddress(&probe, probe.element + probe.elementOffset());
    QCOMPARE(std::pair(probe.index, probe.element), std::pair(qint16(0), qint16(5)));
    rig.write("kInputHA/k48V", 5, 0);
    rig.turn();
    QCOMPARE(probe.seen, rig.read("kInputHA/kGain", 5));
}

void tst_ParameterMemory::valuesAreHeldInBounds_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("stored");
    QTest::newRow("inside") << -7 << -7;
    QTest::newRow("above") << 9999 << 100;
    QTest::newRow("below") << std::numeric_limits<int>::min() << -1380;
}

void tst_ParameterMemory::valuesAreHeldInBounds()
{
    QFETCH(int, value);
    QFETCH(int, stored);
    const Rig rig;
    QCOMPARE(rig.write(Fader, 2, value), int(IMemAPI::Ok));
    QCOMPARE(rig.read(Fader, 2), stored);
    QCOMPARE(rig.read(Fader, 3), -1380);
    for (const auto &[group, index, element] :
         {std::tuple(17, 0, 48), {17, 1, 0}, {17, -1, 0}, {-1, 0, 0}, {1023, 0, 0}, {1024, 0, 0},
          {17, 0, -1}, {999, 2047, 2047}}) {
        QVERIFY(rig.memory->writeValue(group, index, element, 0, 0) < 0);
        QCOMPARE(rig.memory->readValue(group, index, element, 0, 0), 0);
        QCOMPARE(rig.memory->readMinimum(group, index, element, 0), 0);
        QVERIFY(!rig.memory->parameterExists(group, index, element));
    }
}

void tst_ParameterMemory::defaults()
{
    const Rig rig;
    const auto fader = rig.address(Fader);
    const auto patch = rig.address("kPatchInInput/kPatchIn");
    int unavailable = -1;
    const auto &memory = *rig.memory;
    QCOMPARE(memory.readDefault(fader.group, fader.index, 0, true, &unavailable), 0);
    QCOMPARE(unavailable, 0);
    QCOMPARE(memory.readDefault(fader.group, fader.index, 0, false, nullptr), -1380);
    QCOMPARE(memory.readDefault(patch.group, patch.index, 30, true, &unavailable), 31);
    QCOMPARE(unavailable, 1);
    QCOMPARE(rig.read("kPatchInInput/kPatchIn", 47), 48);
    QCOMPARE(memory.readDefault(fader.group, fader.index, 48, false, nullptr), 0);
}

void tst_ParameterMemory::appliesCopiedParameters()
{
    Rig rig;
    const auto at = rig.address(Fader);
    TParamInfo info{at.group, 6, at.index, 500};
    QVERIFY(!rig.memory->applyParamInfo(at.group, at.index + 1, info, 0));
    TParamInfo elsewhere{at.group, 48, at.index, 500};
    QVERIFY(!rig.memory->applyParamInfo(at.group, at.index, elsewhere, 0));
    QVERIFY(rig.memory->applyParamInfo(at.group, at.index, info, 0));
    QCOMPARE(info.value, 100); // as stored
    QCOMPARE(rig.read(Fader, 6), 100);
    rig.memory->undoStack()->undo();
    QCOMPARE(rig.read(Fader, 6), -1380);
}

void tst_ParameterMemory::showsValues_data()
{
    QTest::addColumn<int>("tableId");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("five");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, int tableId, int value, const QString &text,
                        bool five = false) {
        QTest::addRow("%s %d %d", name, tableId, value) << tableId << value << five << text;
    };
    row(Fader, 0, 1380, "0.0 dB");      // counted from the minimum
    row(Fader, -1, 0, "0.0 dB");        // not counted
    row(Fader, -7, 100, "+10.0 dB");
    row(Fader, 5, 63, "C");             // a table by its number
    row(Fader, 999, 1380, "0");         // no such table: the number itself
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

void tst_ParameterMemory::showsValues()
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

void tst_ParameterMemory::readsTypedNumbers_data()
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

void tst_ParameterMemory::readsTypedNumbers()
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

void tst_ParameterMemory::stepsFromDetentToDetent_data()
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

void tst_ParameterMemory::stepsFromDetentToDetent()
{
    QFETCH(int, from);
    QFETCH(int, step);
    QFETCH(int, to);
    Rig rig;
    Probe probe(QByteArray(QTest::currentDataTag()).split(' ').first());
    rig.bind(probe);
    QCOMPARE(rig.memory->stepValue(&probe, from, IMemAPI::Step(step)), to);
}

void tst_ParameterMemory::notifiersTellTheirReceivers()
{
    Rig rig;
    Receiver receiver;
    const IMemAPI::TSingleAddress at{{17, 2, 0}, 0, 0};
    auto *byName = CSimpleNotifier::Create(*rig.memory, &receiver, "FEkInputFader/kFader", 7,
                                           "1take( int )", nullptr, nullptr);
    auto *byFields = CSimpleNotifier::Create(*rig.memory, &receiver, &at, 5, SLOT(plain()),
                                             nullptr, nullptr);
    QVERIFY(byName && byFields && byName->parent() == &receiver);
    rig.turn();
    QCOMPARE(std::pair(receiver.values, receiver.plainCalls), std::pair(QList<int>{-1380}, 1));
    std::thread([&] { rig.write(Fader, 7, -30); }).join();
    rig.write(Fader, 7, -20);
    rig.turn();
    QCOMPARE(std::pair(receiver.values, receiver.plainCalls), std::pair(QList<int>{-1380, -20}, 2));
    byFields->setValue(-5);
    QCOMPARE(byName->value(), -5);
    rig.memory->undoStack()->undo();
    QCOMPARE(byName->value(), -20);
    rig.memory.reset();
    QCOMPARE(byName->value(), 0);
    byName->setValue(1);
}

void tst_ParameterMemory::notifiersFollowTheSelectedChannel()
{
    Rig rig;
    Receiver receiver;
    auto *notifier = CSimpleNotifier::Create(*rig.memory, &receiver, Groups, 3, SLOT(take(int)),
                                             nullptr, nullptr);
    rig.write("kGroupID_Input/kGroupID", 3, 1);
    rig.write("kGroupID_Mix/kGroupID", 2, 4);
    rig.memory->selectAltAddress(notifier->valueHolder(), 50);
    QCOMPARE(notifier->value(), 4);
    rig.turn();
    rig.write("kGroupID_Input/kGroupID", 3, 2);
    rig.turn();
    QCOMPARE(receiver.values, QList<int>{4});
    rig.memory->selectAltAddress(notifier->valueHolder(), 200); // no such channel
    QCOMPARE(notifier->value(), 0);
    rig.memory->selectAltAddress(notifier->valueHolder(), 3);
    QCOMPARE(notifier->value(), 2);
}

void tst_ParameterMemory::notifiersThatCannotBe()
{
    Rig rig;
    Receiver receiver;
    const auto create = [&](const char *name, int element, const char *slot) {
        return CSimpleNotifier::Create(*rig.memory, &receiver, name, element, slot, nullptr,
                                       nullptr);
    };
    QVERIFY(!create(Groups, 75, SLOT(take(int))));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^No parameter \"kNone/kPair\""));
    QVERIFY(!create("FEkNone/kPair", 0, SLOT(take(int))));
    for (const char *slot : {SLOT(none(int)), SLOT(takeText(QString))}) {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^Receiver \\(\"\"\\) has no slot"));
        QVERIFY(!create(Fader, 0, slot));
    }
    const IMemAPI::TSingleAddress nowhere{{999, 0, 0}, 0, 0};
    QVERIFY(!CSimpleNotifier::Create(*rig.memory, &receiver, &nowhere, 0, SLOT(take(int)), nullptr,
                                     nullptr));
    QVERIFY(receiver.children().isEmpty());
    const std::unique_ptr<CSimpleNotifier> mute(create(Fader, 0, nullptr));
    QCOMPARE(mute->value(), -1380); // a holder of a value, nothing more
}

void tst_ParameterMemory::notifiersPointedElsewhere()
{
    Rig rig;
    Receiver receiver;
    auto *notifier = CSimpleNotifier::Create(*rig.memory, &receiver, Fader, 0, SLOT(take(int)),
                                             nullptr, nullptr);
    QCOMPARE(CSimpleNotifier::Create(*rig.memory, &receiver, "kInputOn/kOn", 0, SLOT(take(int)),
                                     notifier, nullptr),
             notifier);
    rig.turn();
    rig.write(Fader, 0, -1);
    rig.turn();
    QCOMPARE(receiver.values, QList<int>{1});
}

void tst_ParameterMemory::notifiersDeletedByTheirReceiver()
{
    Rig rig;
    Receiver receiver;
    CSimpleNotifier *notifiers[2];
    for (CSimpleNotifier *&each : notifiers)
        each = CSimpleNotifier::Create(*rig.memory, &receiver, Fader, 0, SLOT(take(int)), nullptr,
                                       nullptr);
    receiver.then = [&] {
        for (CSimpleNotifier *&each : notifiers)
            delete std::exchange(each, nullptr);
    };
    rig.turn();
    QCOMPARE(receiver.values.size(), 1);
    QVERIFY(receiver.children().isEmpty());
}

void tst_ParameterMemory::connectsItsSignals_data()
{
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<bool>("connects");
    const auto row = [](const char *name, const char *signal, const char *slot, bool connects) {
        QTest::newRow(name) << QByteArray(signal) << QByteArray(slot) << connects;
    };
    row("as the macros write", "2onlineChanged(bool)", "1onlineChange(bool)", true);
    row("white space", "2 onlineChanged( bool )", "1onlineChange( bool )", true);
    row("without codes", "frequentServiceEvent()", "plain()", true);
    row("no such slot", "2onlineChanged(bool)", "1none(bool)", false);
    row("no such signal", "2none()", "1plain()", false);
    row("not one of the memory's", "2destroyed()", "1plain()", false);
    row("a slot that wants more", "2frequentServiceEvent()", "1onlineChange(bool)", false);
}

void tst_ParameterMemory::connectsItsSignals()
{
    QFETCH(QByteArray, signal);
    QFETCH(QByteArray, slot);
    QFETCH(bool, connects);
    Rig rig;
    Receiver receiver;
    const auto set = [&](bool on) {
        return rig.memory->connectApiSignal(on, signal, &receiver, slot);
    };
    QCOMPARE(set(true), connects);
    QCOMPARE(set(true), connects);
    Q_EMIT rig.memory->onlineChanged(true);
    Q_EMIT rig.memory->frequentServiceEvent();
    QCOMPARE(receiver.onlines.size() + receiver.plainCalls, connects ? 1 : 0);
    QCOMPARE(set(false), connects);
    Q_EMIT rig.memory->onlineChanged(true);
    Q_EMIT rig.memory->frequentServiceEvent();
    QCOMPARE(receiver.onlines.size() + receiver.plainCalls, connects ? 1 : 0);
}

void tst_ParameterMemory::tellsWhenTheConsoleComesAndGoes()
{
    Rig rig;
    Receiver receiver;
    rig.memory->connectApiSignal(true, SIGNAL(onlineChanged(bool)), &receiver,
                                 SLOT(onlineChange(bool)));
    std::thread([&] {
        rig.memory->setConnectionState(IMemAPI::LinkUp);
        rig.memory->setConnectionState(IMemAPI::Online);
        rig.memory->setConnectionState(IMemAPI::Online | 4);
    }).join();
    QCOMPARE(rig.memory->connectionState(), int(IMemAPI::Online) | 4);
    QVERIFY(receiver.onlines.isEmpty());
    rig.turn();
    rig.memory->setConnectionState(IMemAPI::InSync);
    rig.turn();
    QCOMPARE(receiver.onlines, (QList<bool>{true, false}));
}

void tst_ParameterMemory::clocksComeOnTheGuiThread()
{
    Rig rig;
    Receiver receiver;
    rig.memory->connectApiSignal(true, SIGNAL(frequentServiceEvent()), &receiver, SLOT(plain()));
    bool lit = true;
    const QSignalSpy blinks(rig.memory->blinkClock(&lit, 0), SIGNAL(timeout()));
    QVERIFY(!lit);
    std::thread([&] {
        for (int i = 0; i < 100; ++i)
            rig.memory->tickService();
        rig.memory->stepBlinkClock(true);
    }).join();
    QCOMPARE(std::pair(receiver.plainCalls, blinks.size()), std::pair(0, qsizetype(0)));
    rig.turn();
    QCOMPARE(std::pair(receiver.plainCalls, blinks.size()), std::pair(1, qsizetype(1)));
    rig.memory->blinkClock(&lit, 0);
    QVERIFY(lit);
}

void tst_ParameterMemory::findsPhantomPowerByThePatch_data()
{
    QTest::addColumn<int>("source");
    QTest::addColumn<int>("movedUnit");
    QTest::addColumn<int>("firstSource");
    QTest::addColumn<int>("host");
    QTest::addColumn<int>("element");
    QTest::newRow("first port of unit 0") << 1 << 2 << 17 << 0 << 0;
    QTest::newRow("last port of unit 1") << 16 << 2 << 17 << 0 << 15;
    QTest::newRow("unit moved to other sources") << 141 << 2 << 140 << 0 << 17;
    QTest::newRow("between units") << 17 << 2 << 140 << 0 << -1;
    QTest::newRow("unit not connected") << 3 << 0 << 0 << 0 << -1;
    QTest::newRow("not patched") << 0 << 2 << 17 << 0 << -1;
    QTest::newRow("local source") << 150 << 2 << 17 << 0 << -1;
    QTest::newRow("operated by another console") << 1 << 2 << 17 << 3 << -1;
}

void tst_ParameterMemory::findsPhantomPowerByThePatch()
{
    QFETCH(int, source);
    QFETCH(int, movedUnit);
    QFETCH(int, firstSource);
    QFETCH(int, host);
    QFETCH(int, element);
    Rig rig;
    Probe probe("kInputHA/k48V");
    rig.bind(probe, 20);
    rig.write("kPatchInInput/kPatchIn", 20, source);
    rig.write("kSetupHX612/kHX612Port", movedUnit, firstSource);
    rig.write("kHX612Host/kHX612HostID", 0, host);
    IMemAPI::TSingleBaseAddress at{-1, -1, -1};
    QCOMPARE(rig.memory->resolvePhantomAddress(&probe, -1, -1, at), element >= 0);
    QCOMPARE(at.element, element);
    if (element < 0)
        return;
    QCOMPARE(rig.memory->nameOf(at.group, at.index), QString("kHeadAmp/k48V"));
    QVERIFY(rig.memory->resolvePhantomAddress(&probe, 4, 0, at));
    QCOMPARE(rig.memory->labelOf(at.group, at.index, at.element),
             QString("Head Amp %1 Gain").arg(element + 5));
    QVERIFY(!rig.memory->resolvePhantomAddress(&probe, 2000, 0, at));
}

void tst_ParameterMemory::readsExtraAddressing_data()
{
    QTest::addColumn<int>("element");
    QTest::addColumn<int>("index");
    QTest::newRow("8,1") << 8 << 1;
    QTest::newRow(" 12 , 3 ") << 12 << 3;
    QTest::newRow("8") << 8 << -1;
    QTest::newRow("8,") << 8 << -1;
    for (const char *wrong : {"", "x", "1,2,3", "-1,2", "99999", "1;2"})
        QTest::newRow(*wrong ? wrong : "nothing") << -1 << -1;
}

void tst_ParameterMemory::readsExtraAddressing()
{
    QFETCH(int, element);
    QFETCH(int, index);
    const Rig rig;
    const QString text = QTest::currentDataTag();
    IMemAPI::TXtraInfo info{text == "nothing" ? QString() : text};
    QCOMPARE(rig.memory->resolveXtraInfo(info) == 0, element >= 0);
    QCOMPARE(int(info.baseElement), element);
    QCOMPARE(int(info.baseIndex), index);
}

void tst_ParameterMemory::meterTablesAndPreferences()
{
    Rig rig;
    int count = -1;
    const quint16 *codes = rig.memory->meterTableById(1, &count, 0);
    QVERIFY(codes && count > 1 && codes[0] < codes[count - 1]);
    QVERIFY(!rig.memory->meterTableById(99, &count, 0));
    QCOMPARE(count, 0);
    IPreferences *preferences = rig.memory->preferences();
    QVERIFY(preferences->preference(IPreferences::ThresholdLamps).toBool());
    QVERIFY(!preferences->preference(1234).isValid());
    rig.memory->setPreference(IPreferences::ThresholdLamps, false);
    QCOMPARE(preferences->preference(IPreferences::ThresholdLamps), QVariant(false));
}

void tst_ParameterMemory::withoutAModelNothingIsThere()
{
    ParameterMemory memory;
    Probe probe(Fader);
    Receiver receiver;
    IMemAPI::TSingleBaseAddress at;
    QVERIFY(!memory.isReady());
    QVERIFY(!memory.bindProxy(&probe) && memory.bind(&probe) == 0);
    QVERIFY(!memory.resolve(Fader, 0, at) && memory.nearestName(Fader).isEmpty());
    QVERIFY(memory.writeValue(17, 0, 0, 1, 0) < 0);
    QVERIFY(!memory.meterTableById(1, nullptr, 0));
    QVERIFY(!CSimpleNotifier::Create(memory, &receiver, Fader, 0, SLOT(take(int)), nullptr,
                                     nullptr));
    QVERIFY(!memory.resolvePhantomAddress(&probe, 0, 0, at));
    QCOMPARE(memory.numberToValue(3, -1), 0);
    memory.alert(-1, -1, -1);
    memory.attachProxy(&probe, packedAddress(17, 0, 0), 0);
    QCoreApplication::sendPostedEvents();
}

QTEST_MAIN(tst_ParameterMemory)
#include "tst_ParameterMemory.moc"

// SPDX-License-Identifier: MIT
#include "interfaces/CSimpleNotifier.h"
#include "tests/companions/memory/MemoryRig.h"

#include <QtTest>
#include <QUndoStack>

namespace {

constexpr auto Fader = "kInputFader/kFader";

} // namespace

class tst_ParameterMemory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bindsParentsBeforeChildren();
    void namesThatDoNotResolveStayInert();
    void controlsWithoutANameAreSkipped();
    void aControlWhoseElementIsMissingHides();
    void boundAgainFollowsTheNewElementOnly();
    void widgetsDestroyedWhileBinding();
    void renamedControlsFollowTheirNewName();
    void alternativeAddressReattaches();
    void addressesBesideTheModelHoldNothing();
    void defaults();
    void appliesCopiedParameters();
    void meterTablesAndPreferences();
    void withoutAModelNothingIsThere();
};

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

void tst_ParameterMemory::addressesBesideTheModelHoldNothing()
{
    const Rig rig;
    for (const auto &[group, index, element] : {std::tuple(17, 0, 48),
                                                {17, 1, 0},
                                                {17, -1, 0},
                                                {-1, 0, 0},
                                                {1023, 0, 0},
                                                {1024, 0, 0},
                                                {17, 0, -1},
                                                {999, 2047, 2047}}) {
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
    IMemAPI::TSingleBaseAddress at;
    QVERIFY(!memory.isReady());
    QVERIFY(!memory.bindProxy(&probe) && memory.bind(&probe) == 0);
    QVERIFY(!memory.resolve(Fader, 0, at) && memory.nearestName(Fader).isEmpty());
    QVERIFY(memory.writeValue(17, 0, 0, 1, 0) < 0);
    QVERIFY(!memory.meterTableById(1, nullptr, 0));
    QVERIFY(!CSimpleNotifier::Create(memory, &probe, Fader, 0, SLOT(update()), nullptr, nullptr));
    QVERIFY(!memory.resolvePhantomAddress(&probe, 0, 0, at));
    QCOMPARE(memory.numberToValue(3, -1), 0);
    memory.alert(-1, -1, -1);
    memory.attachProxy(&probe, packedAddress(17, 0, 0), 0);
    QCoreApplication::sendPostedEvents();
}

QTEST_MAIN(tst_ParameterMemory)
#include "tst_ParameterMemory.moc"

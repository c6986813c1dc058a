// SPDX-License-Identifier: MIT
#include "interfaces/CSimpleNotifier.h"
#include "testkit/RecordingMemory.h"
#include "tests/support/PatchRig.h"
#include "tests/support/Table.h"
#include "widgets/buttons/C48V.h"
#include "widgets/controls/C48VDial.h"

#include <QSignalSpy>
#include <QUndoStack>

namespace {

constexpr int Units = 16;
const QString address = QStringLiteral("kInputHA/k48V");

} // namespace

class tst_C48V : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void followsThePatch();
    void followsPortsAndHost_data();
    void followsPortsAndHost();
    void detachingEndsTheSubscriptions();
    void subscribesInOrder();
    void extraAddressingIsReadLate();
    void clickSwitchesWhereThePatchLeads();
    void copiesPastesAndResetsThere();
    void defaultIsTheChannelsOwn();
    void writes_data();
    void writes();
    void shows_data();
    void shows();
    void mayDieWhileItsPatchChanges();
    void dialFollowsThePatch();
};

void tst_C48V::followsThePatch()
{
    PatchRig rig;
    C48V key(&rig.window);
    rig.setPhantom(20, 1);
    rig.bind(key, address, 4);
    QVERIFY(key.isEnabled() && !key.isOn());
    rig.patch(4, 20);
    QVERIFY(key.isOn());
    rig.setPhantom(20, 0);
    QVERIFY(!key.isOn());
    // No head amp there, and none of its own.
    rig.patch(4, 140);
    QVERIFY(!key.isEnabled());
    rig.patch(4, 0);
    QVERIFY(!key.isEnabled());
    // What happens at the port that it left is none of its business.
    rig.setPhantom(20, 1);
    QVERIFY(!key.isOn());
    rig.patch(4, 20);
    QVERIFY(key.isEnabled() && key.isOn());
}

void tst_C48V::followsPortsAndHost_data()
{
    Table<QString, int, int, bool, bool>()
        .row("unit 1 moves away", "kSetupHX612/kHX612Port", 0, 150, false, false)
        .row("unit 1 moves by one", "kSetupHX612/kHX612Port", 0, 2, true, true)
        .row("last unit moves", "kSetupHX612/kHX612Port", 15, 0, true, false)
        .row("another host", "kHX612Host/kHX612HostID", 0, 3, false, false);
}

void tst_C48V::followsPortsAndHost()
{
    const auto [name, element, value, enabled, on] = Table<QString, int, int, bool, bool>::fetch();
    PatchRig rig;
    C48V key(&rig.window);
    rig.setPhantom(4, 1); // the fourth port; input 5 is at the fifth
    rig.bind(key, address, 4);
    rig.set(name, element, value);
    QCOMPARE(key.isEnabled(), enabled);
    QCOMPARE(key.isOn(), on);
}

void tst_C48V::detachingEndsTheSubscriptions()
{
    PatchRig rig;
    C48V key(&rig.window);
    rig.bind(key, address, 4);
    for (int source = 1; source < 20; ++source)
        rig.patch(4, source);
    QCOMPARE(key.findChildren<CSimpleNotifier *>().size(), Units + 2);
    key.disconnectMemAPI();
    QVERIFY(key.findChildren<CSimpleNotifier *>().isEmpty());
    rig.setPhantom(20, 1);
    rig.patch(4, 20);
    QVERIFY(!key.isOn());
    key.applyConnection(1);
    QVERIFY(key.isOn());
    QCOMPARE(key.findChildren<CSimpleNotifier *>().size(), Units + 2);
}

void tst_C48V::subscribesInOrder()
{
    RecordingMemory memory;
    memory.phantom = IMemAPI::TSingleBaseAddress{20, 6, 1};
    C48V key;
    memory.bind(key, 3, 7, 2);
    const QStringList calls = memory.take({"createNotifier", "attachProxy", "readValue"});
    const QString slot = QStringLiteral("1handle_patchInChange(int)");
    QCOMPARE(calls.filter(QStringLiteral("createNotifier")).size(), Units + 2);
    QCOMPARE(calls.at(0), "createNotifier 00kSetupHX612/kHX612Port 0" + slot);
    QCOMPARE(calls.at(15), "createNotifier 0FkSetupHX612/kHX612Port 15" + slot);
    QCOMPARE(calls.at(16), "createNotifier 00kHX612Host/kHX612HostID 0" + slot);
    QCOMPARE(calls.at(17), "createNotifier FEkPatchInInput/kPatchIn 2" + slot);
    QCOMPARE(calls.at(18), QStringLiteral("attachProxy %1 0").arg(packedAddress(20, 1, 6)));
    QVERIFY(calls.mid(19).filter(QStringLiteral("readValue 20 1 6")).size() > 0);
}

void tst_C48V::extraAddressingIsReadLate()
{
    PatchRig rig;
    C48V key(&rig.window);
    key.setXtraInfo(QStringLiteral("8,2"));
    QCOMPARE(key.baseElement(), qint16(-1));
    rig.bind(key, address, 4);
    QCOMPARE(key.baseElement(), qint16(8));
    QCOMPARE(key.baseIndex(), qint16(2));
    QCOMPARE(key.valueAddress().index, qint16(2));
    QCOMPARE(key.valueAddress().element, qint16(12));
    key.setXtraInfo(QStringLiteral("8,2"));
    QCOMPARE(key.baseElement(), qint16(8));
    key.setXtraInfo(QStringLiteral("nonsense"));
    rig.patch(4, 6);
    QCOMPARE(key.baseElement(), qint16(-1));
    QCOMPARE(key.valueAddress().element, qint16(5));
}

void tst_C48V::clickSwitchesWhereThePatchLeads()
{
    PatchRig rig;
    C48V key(&rig.window);
    rig.bind(key, address, 4);
    rig.patch(4, 33);
    QTest::mouseClick(&key, Qt::LeftButton);
    QCOMPARE(rig.phantom(33), 1);
    QCOMPARE(rig.get(address, 4), 0);
    rig.memory.undoStack()->undo();
    QCOMPARE(rig.phantom(33), 0);
    rig.patch(4, 0);
    QTest::qWait(150);
    QTest::mouseClick(&key, Qt::LeftButton);
    QCOMPARE(rig.phantom(33), 0);
}

void tst_C48V::copiesPastesAndResetsThere()
{
    PatchRig rig;
    C48V from(&rig.window);
    C48V to(&rig.window);
    rig.setPhantom(5, 1);
    rig.bind(from, address, 4);
    rig.bind(to, address, 9);
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    from.copyParameters(out, 0);
    QDataStream look(bytes);
    QCOMPARE(TParamInfoReader(&look).info(), (TParamInfo{432, 4, 1, 1}));
    const QDataStream in(bytes);
    to.pasteParameters(in, 0);
    QVERIFY(to.isOn());
    QCOMPARE(rig.phantom(10), 1);
    to.reset2defaults(0);
    QVERIFY(!to.isOn());
    QCOMPARE(rig.phantom(10), 0);
    TParamInfo info;
    QVERIFY(from.getInformation(info));
    QCOMPARE(info, (TParamInfo{432, 4, 1, 1}));
}

void tst_C48V::defaultIsTheChannelsOwn()
{
    RecordingMemory memory;
    memory.phantom = IMemAPI::TSingleBaseAddress{20, 6, 1};
    memory.at(3, 7, 2).plainDefault = 1;
    C48V key;
    memory.bind(key, 3, 7, 2);
    key.process(nullptr, TMemProxy::ResetToDefault, 0);
    QVERIFY(key.isOn());
}

void tst_C48V::writes_data()
{
    Table<int, bool, int, int>()
        .row("plain", 0, false, 1, 0)
        .row("inverted", 0, true, 0, 1)
        .row("clip 3", 3, false, 3, 0)
        .row("inverted clip 3", 3, true, 0, 3);
}

void tst_C48V::writes()
{
    const auto [clip, inverted, on, off] = Table<int, bool, int, int>::fetch();
    RecordingMemory memory;
    memory.phantom = IMemAPI::TSingleBaseAddress{20, 6, 1};
    C48V key;
    key.setBoolClipValue(clip);
    key.setInvertedLogic(inverted);
    memory.bind(key, 3, 7, 2);
    memory.take();
    const QString line = QStringLiteral("writeValue 20 1 6 = %1 token 9");
    key.handleStateChanged(COnOffButton::On);
    key.handleStateChanged(COnOffButton::Off);
    QCOMPARE(memory.take({"writeValue"}), QStringList({line.arg(on), line.arg(off)}));
}

void tst_C48V::shows_data()
{
    Table<int, bool, int, bool>()
        .row("plain 0", 0, false, 0, false)
        .row("plain 1", 0, false, 1, true)
        .row("anything but 0 counts as 1", 0, false, 7, true)
        .row("inverted 7", 0, true, 7, false)
        .row("clip 3 is never reached", 3, false, 3, false)
        .row("inverted clip 3", 3, true, 3, true);
}

void tst_C48V::shows()
{
    const auto [clip, inverted, value, on] = Table<int, bool, int, bool>::fetch();
    RecordingMemory memory;
    memory.phantom = IMemAPI::TSingleBaseAddress{20, 6, 1};
    memory.at(20, 1, 6).value = value;
    C48V key;
    key.setBoolClipValue(clip);
    key.setInvertedLogic(inverted);
    memory.bind(key, 3, 7, 2);
    QCOMPARE(key.isOn(), on);
    QCOMPARE(memory.take({"writeValue"}), QStringList());
}

void tst_C48V::mayDieWhileItsPatchChanges()
{
    PatchRig rig;
    const QPointer<C48V> key = new C48V(&rig.window);
    rig.bind(*key, address, 4);
    rig.setPhantom(20, 1);
    connect(key, &COnOffButton::stateChanged, this, [&] { delete key; });
    rig.patch(4, 20);
    QVERIFY(!key);
    rig.patch(4, 21);
}

void tst_C48V::dialFollowsThePatch()
{
    PatchRig rig;
    C48VDial dial(&rig.window);
    rig.setPhantom(20, 1);
    rig.bind(dial, address, 4);
    QCOMPARE(dial.maximum(), 1);
    QCOMPARE(dial.value(), 0);
    const QSignalSpy texts(&dial, &CDial::textualValueChange);
    rig.patch(4, 20);
    QCOMPARE(dial.value(), 1);
    QCOMPARE(texts.last().first().toString(), QStringLiteral("ON"));
    dial.setValue(0);
    QCOMPARE(rig.phantom(20), 0);
    rig.patch(4, 0);
    QVERIFY(!dial.isEnabled());
    QCOMPARE(dial.findChildren<CSimpleNotifier *>().size(), Units + 2);
    dial.disconnectMemAPI();
    QVERIFY(dial.findChildren<CSimpleNotifier *>().isEmpty());
}

QTEST_MAIN(tst_C48V)
#include "tst_C48V.moc"

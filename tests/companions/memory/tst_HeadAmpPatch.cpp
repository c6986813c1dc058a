// SPDX-License-Identifier: MIT
#include "tests/companions/memory/MemoryRig.h"
#include "tests/support/Table.h"

#include <QtTest>

class tst_HeadAmpPatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsPhantomPowerByThePatch_data();
    void findsPhantomPowerByThePatch();
    void readsExtraAddressing_data();
    void readsExtraAddressing();
};

void tst_HeadAmpPatch::findsPhantomPowerByThePatch_data()
{
    Table<int, int, int, int, int>()
        .row("first port of unit 0", 1, 2, 17, 0, 0)
        .row("last port of unit 1", 16, 2, 17, 0, 15)
        .row("unit moved to other sources", 141, 2, 140, 0, 17)
        .row("between units", 17, 2, 140, 0, -1)
        .row("unit not connected", 3, 0, 0, 0, -1)
        .row("not patched", 0, 2, 17, 0, -1)
        .row("local source", 150, 2, 17, 0, -1)
        .row("operated by another console", 1, 2, 17, 3, -1);
}

void tst_HeadAmpPatch::findsPhantomPowerByThePatch()
{
    const auto [source, movedUnit, firstSource, host, element] =
        Table<int, int, int, int, int>::fetch();
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

void tst_HeadAmpPatch::readsExtraAddressing_data()
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

void tst_HeadAmpPatch::readsExtraAddressing()
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

QTEST_MAIN(tst_HeadAmpPatch)
#include "tst_HeadAmpPatch.moc"

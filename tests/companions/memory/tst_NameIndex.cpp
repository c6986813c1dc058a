// SPDX-License-Identifier: MIT
#include "companions/memory/NameIndex.h"
#include "tests/companions/memory/MemoryRig.h"

#include <QtTest>

namespace {

constexpr auto Groups = "FEkGroupID_Input/kGroupID;10FEkGroupID_Mix/kGroupID;"
                        "08FEkGroupID_Matrix/kGroupID;03FEkGroupID_Stereo/kGroupID";

} // namespace

class tst_NameIndex : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resolvesNames_data();
    void resolvesNames();
    void givesEachNameItsChannels();
};

void tst_NameIndex::resolvesNames_data()
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
    row("FEkInputPair/kPair;FEkMixPair", 50, "none");     // no parameter after the count
    row("FEkInputPair/kPair;kMixPair/kPair", 50, "none"); // no count
    row("FEkInputPair/kPair;02FEkNone/kPair;10FEkMixPair/kPair", 51, "201 0 1");
}

void tst_NameIndex::resolvesNames()
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

void tst_NameIndex::givesEachNameItsChannels()
{
    const Rig rig;
    const NameIndex names(rig.memory->model());
    const auto ranges = [&names](const QString &list) {
        QStringList texts;
        for (const IMemAPI::TSingleAddress &each : names.channelRanges(list))
            texts.append(QString("%1 %2 %3: %4+%5")
                             .arg(each.group)
                             .arg(each.index)
                             .arg(each.element)
                             .arg(each.firstChannel)
                             .arg(each.channelCount));
        return texts;
    };
    QCOMPARE(ranges("kPatchInInput/kPatchIn"), QStringList("400 0 0: 0+48"));
    QCOMPARE(ranges(Groups),
             QStringList({"204 0 0: 0+48", "205 0 0: 48+16", "206 0 0: 64+8", "207 0 0: 72+3"}));
    QCOMPARE(ranges("FEkInputPair/kPair;02kNone/kPair;10FEkMixPair/kPair"),
             QStringList("200 0 0: 0+48"));
    QCOMPARE(ranges("kNone/kPair"), QStringList());
}

QTEST_MAIN(tst_NameIndex)
#include "tst_NameIndex.moc"

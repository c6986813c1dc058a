// SPDX-License-Identifier: MIT
#include "console/Housekeeping.h"
#include "tests/support/Table.h"

#include "tests/console/ConsoleFixture.h"

#include <QTest>

class tst_Housekeeping : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void halvesOfAPairGoTogether();
    void inputsHearWhetherTheyHaveAHeadAmp_data();
    void inputsHearWhetherTheyHaveAHeadAmp();
    void orderNeedsNoChanges();

private:
    void set(const char *name, int element, int value)
    {
        setValue(*m_memory, name, element, value);
    }
    int get(const char *name, int element) const;

    std::unique_ptr<ParameterMemory> m_memory;
    std::unique_ptr<Housekeeping> m_housekeeping;
};

void tst_Housekeeping::init()
{
    m_housekeeping.reset();
    m_memory = loadedMemory();
    m_housekeeping = std::make_unique<Housekeeping>(*m_memory);
    m_housekeeping->carryOut();
}

int tst_Housekeeping::get(const char *name, int element) const
{
    IMemAPI::TSingleBaseAddress at;
    m_memory->resolve(QLatin1String(name), element, at);
    return m_memory->readValue(at.group, at.index, at.element, 0, 0);
}

void tst_Housekeeping::halvesOfAPairGoTogether()
{
    const auto pair = [this](int element) { return get("kInputPair/kPair", element); };
    set("kInputPair/kPair", 4, 1);
    QCOMPARE(m_housekeeping->carryOut(), 1);
    QVERIFY(pair(4) && pair(5) && !pair(3) && !pair(6));
    set("kInputPair/kPair", 5, 0);
    m_housekeeping->carryOut();
    QVERIFY(!pair(4) && !pair(5));
    // The third stereo master has no partner: nothing to keep.
    set("kStereoPair/kPair", 2, 1);
    QCOMPARE(m_housekeeping->carryOut(), 0);
}

void tst_Housekeeping::inputsHearWhetherTheyHaveAHeadAmp_data()
{
    Table<int, int>()
        .row("none", 0, 0)
        .row("first port", 1, 1)
        .row("last port", 128, 1)
        .row("behind the last port", 129, 0)
        .row("highest source", 160, 0);
}

void tst_Housekeeping::inputsHearWhetherTheyHaveAHeadAmp()
{
    const auto [source, connected] = Table<int, int>::fetch();
    set("kPatchInInput/kPatchIn", 7, source);
    m_housekeeping->carryOut();
    QCOMPARE(get("kBackupInputHA/kHAConnected", 7), connected);
    // The units' ports may move, too.
    set("kSetupHX612/kHX612Port", 15, 153);
    set("kPatchInInput/kPatchIn", 7, 160);
    m_housekeeping->carryOut();
    QCOMPARE(get("kBackupInputHA/kHAConnected", 7), 1);
}

void tst_Housekeeping::orderNeedsNoChanges()
{
    m_housekeeping->setUpShow();
    m_housekeeping->carryOut();
    QCOMPARE(m_housekeeping->carryOut(), 0);
    QCOMPARE(get("kInputPair/kPair", 12), 1);
    QCOMPARE(get("kGroupID_Input/kGroupID", 2), 1);
}

QTEST_MAIN(tst_Housekeeping)
#include "tst_Housekeeping.moc"

// SPDX-License-Identifier: MIT
#include "interfaces/CSimpleNotifier.h"
#include "tests/support/PatchRig.h"
#include "widgets/controls/CHADial.h"

#include <QSignalSpy>

namespace {

const QString gain = QStringLiteral("kInputHA/kGain");
const QString connected = QStringLiteral("kBackupInputHA/kHAConnected");

} // namespace

class tst_CHADial : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isThereWhileItsChannelHasAHeadAmp();
    void looksAgainWhenThePatchChanges();
    void everyAttachAddsAPairOfSubscriptions();
    void stillIsADial();
    void mayDieWhenItIsToldSo();
};

void tst_CHADial::isThereWhileItsChannelHasAHeadAmp()
{
    PatchRig rig;
    CHADial dial(&rig.window);
    rig.set(connected, 4, 0);
    const QSignalSpy told(&dial, &CHADial::changePatchIn);
    rig.bind(dial, gain, 4);
    QVERIFY(dial.isHidden());
    QCOMPARE(told.last().first().toBool(), false);
    rig.set(connected, 5, 1); // another channel's
    QVERIFY(dial.isHidden());
    rig.set(connected, 4, 1);
    QVERIFY(!dial.isHidden());
    QCOMPARE(told.last().first().toBool(), true);
}

void tst_CHADial::looksAgainWhenThePatchChanges()
{
    PatchRig rig;
    CHADial dial(&rig.window);
    rig.bind(dial, gain, 4);
    QVERIFY(!dial.isHidden());
    dial.hide();
    rig.patch(4, 9);
    QVERIFY(!dial.isHidden());
}

void tst_CHADial::everyAttachAddsAPairOfSubscriptions()
{
    PatchRig rig;
    CHADial dial(&rig.window);
    rig.bind(dial, gain, 4);
    QCOMPARE(dial.findChildren<CSimpleNotifier *>().size(), 2);
    rig.bind(dial, gain, 4);
    QCOMPARE(dial.findChildren<CSimpleNotifier *>().size(), 4);
}

void tst_CHADial::stillIsADial()
{
    PatchRig rig;
    CHADial dial(&rig.window);
    rig.bind(dial, gain, 4);
    QCOMPARE(dial.value(), -10);
    QTest::keyClick(&dial, Qt::Key_Up);
    QCOMPARE(rig.get(gain, 4), -9);
}

void tst_CHADial::mayDieWhenItIsToldSo()
{
    PatchRig rig;
    const QPointer<CHADial> dial = new CHADial(&rig.window);
    rig.bind(*dial, gain, 4);
    connect(dial, &CHADial::changePatchIn, this, [&] { delete dial; });
    rig.set(connected, 4, 0);
    QVERIFY(!dial);
    rig.set(connected, 4, 1);
}

QTEST_MAIN(tst_CHADial)
#include "tst_CHADial.moc"

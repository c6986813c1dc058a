// SPDX-License-Identifier: MIT
#include "console/TransportClock.h"

#include <QTest>

class TestTransportClock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsThirtyFramesASecond_data();
    void countsThirtyFramesASecond();
    void saysWhenTheFrameChanges();
};

void TestTransportClock::countsThirtyFramesASecond_data()
{
    QTest::addColumn<int>("milliseconds");
    QTest::addColumn<QString>("expected");

    QTest::newRow("start") << 0 << "0:0:0.0";
    QTest::newRow("still the first frame") << 33 << "0:0:0.0";
    QTest::newRow("second frame") << 34 << "0:0:0.1";
    QTest::newRow("last frame of a second") << 999 << "0:0:0.29";
    QTest::newRow("second") << 1000 << "0:0:1.0";
    QTest::newRow("hour") << 3'600'000 << "1:0:0.0";
    QTest::newRow("last frame of a day") << 86'399'999 << "23:59:59.29";
    QTest::newRow("around") << 86'400'000 << "0:0:0.0";
}

void TestTransportClock::countsThirtyFramesASecond()
{
    QFETCH(int, milliseconds);
    QFETCH(QString, expected);

    TransportClock clock;
    clock.advance(milliseconds);
    const auto [hours, minutes, seconds, frames] = clock.time();
    QCOMPARE(QString("%1:%2:%3.%4").arg(hours).arg(minutes).arg(seconds).arg(frames), expected);
}

void TestTransportClock::saysWhenTheFrameChanges()
{
    TransportClock clock;
    int changes = 0;
    for (int i = 0; i < 500; ++i)
        changes += clock.advance(20);
    QCOMPARE(changes, 300); // 10 seconds; no frame is missed
}

QTEST_GUILESS_MAIN(TestTransportClock)
#include "tst_TransportClock.moc"

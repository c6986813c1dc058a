// SPDX-License-Identifier: MIT
#include "console/TransportClock.h"
#include "tests/support/Table.h"

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
    Table<int, QString>()
        .row("start", 0, "0:0:0.0")
        .row("still the first frame", 33, "0:0:0.0")
        .row("second frame", 34, "0:0:0.1")
        .row("last frame of a second", 999, "0:0:0.29")
        .row("second", 1000, "0:0:1.0")
        .row("hour", 3'600'000, "1:0:0.0")
        .row("last frame of a day", 86'399'999, "23:59:59.29")
        .row("around", 86'400'000, "0:0:0.0");
}

void TestTransportClock::countsThirtyFramesASecond()
{
    const auto [milliseconds, expected] = Table<int, QString>::fetch();

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

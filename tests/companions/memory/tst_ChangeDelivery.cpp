// SPDX-License-Identifier: MIT
// What is more in the embedded memory's delivery than the contract of memories asks for.
#include "tests/companions/memory/MemoryRig.h"

#include <QEventLoop>
#include <QTimer>
#include <QtTest>

#include <random>
#include <thread>

namespace {

constexpr auto Fader = "kInputFader/kFader";
constexpr int Inputs = 48;

std::vector<std::unique_ptr<Probe>> inputFaders(Rig &rig)
{
    std::vector<std::unique_ptr<Probe>> probes;
    for (int element = 0; element < Inputs; ++element) {
        probes.push_back(std::make_unique<Probe>(Fader));
        rig.bind(*probes.back(), element);
    }
    return probes;
}

/// Counts the events that anything posts to wake the GUI thread for a delivery.
class WakeUps : public QObject
{
public:
    WakeUps() { qApp->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() >= QEvent::User;
        return false;
    }
    int count = 0;
};

} // namespace

class tst_ChangeDelivery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneCallForChangesOfSeveralRegistrations();
    void changesArriveInTheOrderMade();
    void whatIsSeenIsServedInRowOrder();
    void nobodyIsWokenForValuesThatNobodyWatches();
    void aChangeMadeDuringADeliveryComesInTheNextTurn();
    void noChangeIsLostUnderFourWriters();
    void noChangeIsLostWhileProxiesComeAndGo();
    void detachedWhileQueuedAndAttachedAgain();
    void alertsReachTheirProxies();
    void destroyedWhileQueued();
    void destroyedInsideTheCallOfAnother();
    void anEventLoopInsideACallGoesOnWithTheRest();
    void memoryDestroyedInsideACall();
};

void tst_ChangeDelivery::oneCallForChangesOfSeveralRegistrations()
{
    Rig rig;
    Probe probe("kInputDynamics2/kThreshold");
    rig.bind(probe);
    for (const char *name : {"kInputDynamics2/kRatio", "kInputDynamics2/kKnee"}) {
        const auto at = rig.address(name);
        const quint32 packed = packedAddress(at.group, at.index, at.element);
        rig.memory->attachProxy(&probe, packed, 0);
        rig.memory->attachProxy(&probe, packed, 0); // changes nothing
    }
    rig.turn();
    QCOMPARE(probe.take(), 1);
    rig.write("kInputDynamics2/kThreshold", 0, -100);
    rig.write("kInputDynamics2/kRatio", 0, 3);
    rig.write("kInputDynamics2/kKnee", 0, 1);
    rig.turn();
    QCOMPARE(probe.take(), 1);
    const auto knee = rig.address("kInputDynamics2/kKnee");
    rig.memory->detachProxy(&probe, packedAddress(knee.group, knee.index, knee.element));
    rig.write("kInputDynamics2/kKnee", 0, 2);
    rig.turn();
    QCOMPARE(probe.take(), 0);
}

void tst_ChangeDelivery::changesArriveInTheOrderMade()
{
    Rig rig;
    const auto probes = inputFaders(rig);
    std::vector<int> order;
    for (const auto &probe : probes)
        probe->onProcess = [&order, element = probe->element] { order.push_back(element); };
    for (const int element : {7, 3, 31, 0})
        rig.write(Fader, element, -5);
    rig.turn();
    QCOMPARE(order, (std::vector<int>{7, 3, 31, 0}));
}

void tst_ChangeDelivery::whatIsSeenIsServedInRowOrder()
{
    Rig rig;
    QWidget window;
    QWidget panel(&window);
    panel.setGeometry(50, 50, 100, 100);
    Probe lowest(Fader, &window);
    Probe inPanel(Fader, &panel);
    Probe right(Fader, &window);
    Probe left(Fader, &window);
    lowest.setGeometry(0, 90, 10, 10);
    inPanel.setGeometry(0, 0, 10, 10);
    right.setGeometry(80, 20, 10, 10);
    left.setGeometry(-5, 20, 10, 10);
    QList<Probe *> served;
    int element = 0;
    for (Probe *probe : {&lowest, &inPanel, &right, &left}) {
        rig.bind(*probe, element++);
        probe->onProcess = [&served, probe] { served << probe; };
    }
    window.show();
    for (element = 0; element < 4; ++element)
        rig.write(Fader, element, -10);
    rig.turn();
    QCOMPARE(served, QList<Probe *>({&left, &right, &inPanel, &lowest}));
}

void tst_ChangeDelivery::nobodyIsWokenForValuesThatNobodyWatches()
{
    Rig rig;
    {
        Probe gone(Fader);
        rig.bind(gone, 5);
    }
    Probe queued(Fader);
    rig.bind(queued, 6);
    rig.write(Fader, 6, -3);
    queued.applyConnection(0);
    rig.turn();
    rig.turn();
    WakeUps wakeUps;
    for (const int element : {4, 5, 6})
        rig.write(Fader, element, -77);
    rig.turn();
    QCOMPARE(wakeUps.count, 0);
    QCOMPARE(rig.read(Fader, 5), -77);
}

void tst_ChangeDelivery::aChangeMadeDuringADeliveryComesInTheNextTurn()
{
    Rig rig;
    Probe probe(Fader);
    rig.bind(probe);
    probe.onProcess = [&] {
        if (probe.seen < -10)
            rig.write(Fader, 0, probe.seen + 1);
    };
    rig.write(Fader, 0, -12);
    rig.turn();
    QCOMPARE(probe.seen, -12);
    rig.turn();
    QCOMPARE(probe.seen, -11);
    rig.turn();
    QCOMPARE(probe.take(), 3);
}

void tst_ChangeDelivery::noChangeIsLostUnderFourWriters()
{
    Rig rig;
    const auto probes = inputFaders(rig);
    // Slow enough that the writers overtake every delivery.
    for (int element = 0; element < Inputs; element += 8)
        probes[element]->onProcess = [] { QThread::usleep(20); };
    for (int round = 0; round < 5; ++round) {
        std::vector<std::thread> writers;
        std::atomic<int> running{4};
        for (int number = 0; number < 4; ++number) {
            writers.emplace_back([&, seed = round * 4 + number] {
                std::minstd_rand random(seed + 1);
                for (int i = 0; i < 20000; ++i)
                    rig.write(Fader, static_cast<int>(random() % Inputs),
                              -static_cast<int>(random() % 1000));
                --running;
            });
        }
        while (running)
            rig.turn();
        for (std::thread &writer : writers)
            writer.join();
        rig.turn();
        rig.turn();
        for (const auto &probe : probes)
            QCOMPARE(probe->seen, rig.read(Fader, probe->element));
    }
}

void tst_ChangeDelivery::noChangeIsLostWhileProxiesComeAndGo()
{
    Rig rig;
    auto probes = inputFaders(rig);
    std::atomic<bool> running{true};
    std::vector<std::thread> writers;
    for (int number = 0; number < 2; ++number) {
        writers.emplace_back([&, number] {
            std::minstd_rand random(number + 1);
            while (running)
                rig.write(Fader, static_cast<int>(random() % Inputs),
                          -static_cast<int>(random() % 1000));
        });
    }
    std::minstd_rand random(99);
    for (int i = 0; i < 3000; ++i) {
        auto &probe = probes[random() % Inputs];
        const int element = probe->element;
        if (i % 3 == 0)
            probe = std::make_unique<Probe>(Fader);
        else
            probe->applyConnection(0);
        rig.memory->bindProxy(probe.get(), element);
        if (i % 7 == 0)
            rig.turn();
    }
    running = false;
    for (std::thread &writer : writers)
        writer.join();
    rig.turn();
    rig.turn();
    for (const auto &probe : probes)
        QCOMPARE(probe->seen, rig.read(Fader, probe->element));
}

void tst_ChangeDelivery::detachedWhileQueuedAndAttachedAgain()
{
    Rig rig;
    Probe probe(Fader);
    rig.bind(probe);
    rig.write(Fader, 0, -1);
    probe.applyConnection(0);
    rig.write(Fader, 0, -2);
    probe.applyConnection(1);
    rig.write(Fader, 0, -3);
    rig.turn();
    QCOMPARE(probe.take(), 1);
    QCOMPARE(probe.seen, -3);
    rig.write(Fader, 0, -4);
    rig.turn();
    QCOMPARE(probe.take(), 1);
}

void tst_ChangeDelivery::alertsReachTheirProxies()
{
    Rig rig;
    Probe one(Fader);
    Probe other("kInputOn/kOn");
    rig.bind(one);
    rig.bind(other);
    std::thread([&] { MemAPITask(*rig.memory).alertProxy(one.group, one.index, 0); }).join();
    rig.turn();
    QCOMPARE(std::pair(one.take(), other.take()), std::pair(1, 0));
    std::thread([&] { MemAPITask(*rig.memory).alert(); }).join();
    rig.turn();
    QCOMPARE(std::pair(one.take(), other.take()), std::pair(1, 1));
}

void tst_ChangeDelivery::destroyedWhileQueued()
{
    Rig rig;
    {
        Probe changed(Fader);
        rig.bind(changed);
        rig.write(Fader, 0, -1);
        MAPI_postObserverEvent(rig.memory.get(), &changed);
        Probe neverDelivered(Fader);
        rig.memory->bindProxy(&neverDelivered);
    }
    rig.turn();
    Probe next(Fader);
    rig.bind(next);
    QCOMPARE(next.seen, -1);
}

void tst_ChangeDelivery::destroyedInsideTheCallOfAnother()
{
    Rig rig;
    auto probes = inputFaders(rig);
    probes[1]->onProcess = [&] {
        probes[0].reset();                                         // served already
        probes[2].reset();                                         // waits for its turn
        MAPI_postObserverEvent(rig.memory.get(), probes[3].get()); // waits, and asked for again
        probes[3].reset();
    };
    for (int element = 0; element < 5; ++element)
        rig.write(Fader, element, -9);
    rig.turn();
    rig.turn();
    QCOMPARE(probes[1]->take(), 1);
    QCOMPARE(probes[4]->take(), 1);
}

void tst_ChangeDelivery::anEventLoopInsideACallGoesOnWithTheRest()
{
    Rig rig;
    auto probes = inputFaders(rig);
    bool restCameInside = false;
    bool laterChangeCameInside = false;
    probes[0]->onProcess = [&] {
        probes[0]->onProcess = nullptr;
        MAPI_postObserverEvent(rig.memory.get(), probes[3].get());
        probes[3].reset(); // waits in this delivery and in the next one
        QEventLoop loop;
        QTimer::singleShot(20, &loop, [&] {
            restCameInside = probes[1]->take() == 1 && probes[2]->take() == 1;
            rig.write(Fader, 0, -7);
        });
        QTimer::singleShot(60, &loop, [&] {
            laterChangeCameInside = probes[0]->seen == -7;
            loop.quit();
        });
        loop.exec();
    };
    for (int element = 0; element < 4; ++element)
        rig.write(Fader, element, -9);
    rig.turn();
    QVERIFY(restCameInside);
    QVERIFY(laterChangeCameInside);
    rig.turn();
    QCOMPARE(std::pair(probes[1]->take(), probes[2]->take()), std::pair(0, 0));
}

void tst_ChangeDelivery::memoryDestroyedInsideACall()
{
    Rig rig;
    auto probes = inputFaders(rig);
    probes[0]->onProcess = [&] { rig.memory.reset(); };
    rig.write(Fader, 0, -9);
    rig.write(Fader, 1, -9);
    rig.turn();
    QCOMPARE(probes[1]->take(), 0);
    QVERIFY(!probes[1]->memAPI());
}

QTEST_MAIN(tst_ChangeDelivery)
#include "tst_ChangeDelivery.moc"

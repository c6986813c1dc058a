// SPDX-License-Identifier: MIT
#include "testkit/MemoryContract.h"

#include "interfaces/TMemProxy.h"

#include <QCoreApplication>
#include <QTest>
#include <QThread>

#include <array>
#include <atomic>
#include <limits>
#include <thread>

/// A control reduced to what a memory sees of it.
class MemoryContract::Probe : public TMemProxy
{
public:
    Probe(IMemAPI &memory, const IMemAPI::TSingleBaseAddress &at)
    {
        static_cast<IMemAPI::TSingleBaseAddress &>(*this) = at;
        setMemAPI(&memory);
        setAttached(true);
        connectMemAPI();
    }
    ~Probe() override { leaveMemory(); }

    void connectMemAPI() override { memAPI()->attachProxy(this, packed(), 0); }
    void disconnectMemAPI() override
    {
        if (isAttached())
            memAPI()->detachProxy(this, packed());
        setAttached(false);
    }
    void process(const Q_UINT8 *, int operation, Q_UINT32) override
    {
        ++calls;
        rightly = rightly && operation == Refresh
                  && QThread::currentThread() == QCoreApplication::instance()->thread();
        seen = memAPI()->readValue(group, index, element, 0, 0);
        if (const auto then = onProcess) // a copy: it may destroy this proxy
            then();
    }
    int take() { return calls.exchange(0); }

    std::atomic<int> calls = 0;
    std::atomic<bool> rightly = true; ///< all of them refreshes, on the GUI thread
    int seen = 0;
    std::function<void()> onProcess;
};

struct MemoryContract::Rig
{
    explicit Rig(const MemoryContract &contract) : at(contract.m_at), memory(contract.m_make())
    {
        minimum = memory->readMinimum(at.group, at.index, at.element, 0);
        maximum = memory->readMaximum(at.group, at.index, at.element, 0);
        write(minimum);
    }

    int write(int value) { return memory->writeValue(at.group, at.index, at.element, value, 0); }
    int read() const { return memory->readValue(at.group, at.index, at.element, 0, 0); }
    std::unique_ptr<Probe> attach() const { return std::make_unique<Probe>(*memory, at); }
    /// What is waiting is delivered.
    static void turn() { QCoreApplication::processEvents(); }

    IMemAPI::TSingleBaseAddress at;
    std::unique_ptr<IMemAPI> memory;
    int minimum = 0;
    int maximum = 0;
};

MemoryContract::MemoryContract(const IMemAPI::TSingleBaseAddress &at, const MakeMemory &make)
    : m_at(at), m_make(make)
{
}

MemoryContract::~MemoryContract() = default;

void MemoryContract::valuesAreHeldInsideTheirBounds_data()
{
    const Rig rig(*this);
    QTest::addColumn<int>("written");
    QTest::addColumn<int>("stored");
    QTest::newRow("minimum") << rig.minimum << rig.minimum;
    QTest::newRow("maximum") << rig.maximum << rig.maximum;
    QTest::newRow("below") << std::numeric_limits<int>::min() << rig.minimum;
    QTest::newRow("above") << std::numeric_limits<int>::max() << rig.maximum;
}

void MemoryContract::valuesAreHeldInsideTheirBounds()
{
    QFETCH(int, written);
    Rig rig(*this);
    QVERIFY(rig.memory->isReady());
    QVERIFY(rig.memory->parameterExists(rig.at.group, rig.at.index, rig.at.element));
    QVERIFY(rig.minimum < rig.maximum);
    QVERIFY(rig.write(written) >= 0);
    QTEST(rig.read(), "stored");
}

void MemoryContract::whatDoesNotExistIsZeroAndCannotBeWritten_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("element");
    QTest::newRow("highest") << 1023 << 2047 << 2047;
    QTest::newRow("beyond") << 1024 << 2048 << 2048;
    QTest::newRow("negative") << -1 << -1 << -1;
    QTest::newRow("element") << int(m_at.group) << int(m_at.index) << 2047;
}

void MemoryContract::whatDoesNotExistIsZeroAndCannotBeWritten()
{
    QFETCH(int, group);
    QFETCH(int, index);
    QFETCH(int, element);
    const Rig rig(*this);
    if (rig.memory->parameterExists(group, index, element))
        QSKIP("is a parameter of this memory");
    QCOMPARE(rig.memory->readValue(group, index, element, 0, 0), 0);
    QCOMPARE(rig.memory->readDefault(group, index, element, false, nullptr), 0);
    QVERIFY(rig.memory->writeValue(group, index, element, 1, 0) < 0);
    rig.memory->alert(group, index, element);
    Rig::turn();
}

void MemoryContract::defaultsAreValues()
{
    const Rig rig(*this);
    const auto [group, element, index] = rig.at;
    int unavailable = -1;
    const int plain = rig.memory->readDefault(group, index, element, false, &unavailable);
    QCOMPARE(unavailable, 0);
    const int alternative = rig.memory->readDefault(group, index, element, true, &unavailable);
    QVERIFY(unavailable == 0 || (unavailable == 1 && alternative == plain));
    QVERIFY(plain >= rig.minimum && plain <= rig.maximum);
    QVERIFY(alternative >= rig.minimum && alternative <= rig.maximum);
}

void MemoryContract::aCopyFitsItsOwnParameterOnly()
{
    Rig rig(*this);
    TParamInfo info{rig.at.group, rig.at.element, rig.at.index, rig.maximum};
    QVERIFY(rig.memory->applyParamInfo(rig.at.group, rig.at.index, info, 0));
    QCOMPARE(rig.read(), rig.maximum);
    QCOMPARE(info.value, rig.maximum);
    info.group ^= 1;
    info.value = rig.minimum;
    QVERIFY(!rig.memory->applyParamInfo(rig.at.group, rig.at.index, info, 0));
    QCOMPARE(rig.read(), rig.maximum);
}

void MemoryContract::whoAttachesHearsOfItSoon()
{
    const Rig rig(*this);
    const auto probe = rig.attach();
    rig.memory->attachProxy(probe.get(), probe->packed(), 0); // a second time changes nothing
    QCOMPARE(probe->calls.load(), 0);
    Rig::turn();
    QCOMPARE(probe->take(), 1);
    QCOMPARE(probe->seen, rig.minimum);
    Rig::turn();
    QCOMPARE(probe->take(), 0);
}

void MemoryContract::manyChangesAreOneCallOnTheGuiThread()
{
    Rig rig(*this);
    const auto probe = rig.attach();
    Rig::turn();
    probe->take();
    std::thread([&] {
        for (int i = 0; i < 1000; ++i)
            rig.write(i % 2 ? rig.minimum : rig.maximum);
        rig.write(rig.maximum);
    }).join();
    QCOMPARE(probe->calls.load(), 0);
    Rig::turn();
    QCOMPARE(probe->take(), 1);
    QCOMPARE(probe->seen, rig.maximum);
    QVERIFY(probe->rightly);
    // And again, from the GUI thread itself.
    rig.write(rig.minimum);
    Rig::turn();
    QCOMPARE(probe->take(), 1);
    QCOMPARE(probe->seen, rig.minimum);
}

void MemoryContract::everyProxyOnTheParameterHears()
{
    Rig rig(*this);
    const auto one = rig.attach();
    const auto other = rig.attach();
    Rig::turn();
    one->take();
    other->take();
    rig.write(rig.maximum);
    Rig::turn();
    QCOMPARE(one->take(), 1);
    QCOMPARE(other->take(), 1);
    rig.memory->alert(rig.at.group, rig.at.index, rig.at.element);
    rig.memory->alert(-1, -1, -1);
    Rig::turn();
    QCOMPARE(one->take(), 1);
    QCOMPARE(other->take(), 1);
}

void MemoryContract::requestsOfOtherThreadsAreOneCall()
{
    const Rig rig(*this);
    const auto probe = rig.attach();
    Rig::turn();
    probe->take();
    std::thread([&] {
        for (int i = 0; i < 100; ++i)
            rig.memory->postObserverEvent(probe.get());
    }).join();
    Rig::turn();
    QCOMPARE(probe->take(), 1);
    QVERIFY(probe->rightly);
}

void MemoryContract::whoHasLeftHearsNothing_data()
{
    QTest::addColumn<bool>("released");
    QTest::newRow("detached") << false;
    QTest::newRow("released while a call is due") << true;
}

void MemoryContract::whoHasLeftHearsNothing()
{
    QFETCH(bool, released);
    Rig rig(*this);
    const auto probe = rig.attach();
    if (released) {
        rig.memory->releaseProxy(probe.get());
        rig.memory->releaseProxy(probe.get());
    } else {
        Rig::turn();
        probe->take();
        rig.memory->detachProxy(probe.get(), probe->packed());
    }
    rig.write(rig.maximum);
    Rig::turn();
    QCOMPARE(probe->take(), 0);
}

void MemoryContract::aProxyMayDieInACall_data()
{
    QTest::addColumn<bool>("own");
    QTest::newRow("its own") << true;
    QTest::newRow("another's") << false;
}

void MemoryContract::aProxyMayDieInACall()
{
    QFETCH(bool, own);
    Rig rig(*this);
    std::array<std::unique_ptr<Probe>, 2> probes{rig.attach(), rig.attach()};
    Rig::turn();
    int calls = 0;
    for (int i = 0; i < 2; ++i) {
        probes[i]->onProcess = [&, i] {
            ++calls;
            probes[own ? i : 1 - i].reset();
        };
    }
    rig.write(rig.maximum);
    Rig::turn();
    QCOMPARE(calls, own ? 2 : 1);
    QCOMPARE(rig.read(), rig.maximum);
}

void MemoryContract::diesBeforeItsProxies()
{
    Rig rig(*this);
    const auto probe = rig.attach();
    rig.memory.reset();
    QVERIFY(!probe->memAPI() && !probe->isAttached());
    Rig::turn();
    QCOMPARE(probe->take(), 0);
    probe->setNamedAddress(QStringLiteral("kBlock/kParameter"));
    probe->applyConnection(0);
}

// SPDX-License-Identifier: MIT
// Readings pour in from a console's thread while meters come, change and go.
#include "companions/memory/ParameterMemory.h"
#include "widgets/meters/CMeter.h"
#include "widgets/meters/CPixmapMeter.h"
#include "widgets/meters/CThresholdMeter.h"
#include "widgets/meters/CTimeDisplay.h"

#include <QTest>

#include <atomic>
#include <thread>

namespace {

constexpr int Rounds = 150;

struct Console
{
    Console()
    {
        if (!memory.load(ParameterMemory::builtInModel()))
            qFatal("no model");
        memory.resolve("kInputMeter/kLevel", 4, at);
        memory.setConnectionState(IMemAPI::Online);
    }
    void deliver(int level, int peak)
    {
        memory.deliverMeter(at.group, at.index, at.element, level, peak);
        memory.deliverTimecode(0, 0, level, peak);
    }

    ParameterMemory memory;
    IMemAPI::TSingleBaseAddress at;
};

/// Delivers for as long as it lives.
class Storm
{
public:
    explicit Storm(Console &console)
        : m_thread([this, &console] {
              for (int step = 0; m_running; ++step)
                  console.deliver(40 + step % 90, 127 - step % 7);
          })
    {
    }
    ~Storm()
    {
        m_running = false;
        m_thread.join();
    }

private:
    std::atomic<bool> m_running{true};
    std::thread m_thread;
};

template<class Meter>
std::unique_ptr<Meter> bound(Console &console, QWidget *parent = nullptr)
{
    auto meter = std::make_unique<Meter>(parent);
    meter->setNamedAddress("kInputMeter/kLevel");
    console.memory.bindProxy(meter.get(), 4);
    return meter;
}

template<class Meter, class Change>
void changeInAStorm(const Change &change)
{
    Console console;
    const Storm storm(console);
    for (int round = 0; round < Rounds; ++round) {
        const auto meter = bound<Meter>(console);
        change(*meter, round);
        QCoreApplication::processEvents();
        if (round % 2)
            meter->disconnectMemAPI();
    }
}

} // namespace

class tst_MeterThreads : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void levelMetersComeAndGo();
    void pictureMetersComeAndGo();
    void lampsComeAndGo();
    void timeDisplaysComeAndGo();
    void meterBoundAnewAndAnew();
    void theLastReadingIsShown();
};

void tst_MeterThreads::levelMetersComeAndGo()
{
    changeInAStorm<CMeter>([](CMeter &meter, int round) {
        constexpr CMeter::EMeterSelector selectors[] = {CMeter::eMtr_CompOut, CMeter::eMtr_GR,
                                                        CMeter::eMtr_Sigma, CMeter::eMtr_CompGR};
        meter.setMeterImage(QPixmap(10, 136));
        meter.setMeterSelector(selectors[round % 4]);
        meter.setPeakHoldEnabled(round % 3);
        meter.resetMeter();
        meter.grab();
    });
}

void tst_MeterThreads::pictureMetersComeAndGo()
{
    changeInAStorm<CPixmapMeter>([](CPixmapMeter &meter, int round) {
        for (int count = 2; count < 40; ++count) {
            meter.setnSubImages(count);
            meter.setBoundList(QStringLiteral("%1;40;50;60").arg(round, 0, 16));
        }
        meter.resetMeter();
    });
}

void tst_MeterThreads::lampsComeAndGo()
{
    changeInAStorm<CThresholdMeter>([](CThresholdMeter &meter, int round) {
        meter.setThresholdLevel(round);
        meter.changeState(1);
        meter.onlineChange(round % 2);
        meter.setupMeterThresholdTable();
    });
}

void tst_MeterThreads::timeDisplaysComeAndGo()
{
    changeInAStorm<CTimeDisplay>([](CTimeDisplay &display, int round) {
        display.setTimeCodeFormat(round % 4);
        display.grab();
    });
}

void tst_MeterThreads::meterBoundAnewAndAnew()
{
    Console console;
    const Storm storm(console);
    const auto meter = bound<CMeter>(console);
    for (int round = 0; round < Rounds; ++round) {
        meter->setNamedAddress(round % 2 ? "kMixMeter/kLevel" : "kInputMeter/kLevel");
        QCoreApplication::processEvents();
    }
}

void tst_MeterThreads::theLastReadingIsShown()
{
    Console console;
    const auto meter = bound<CMeter>(console);
    for (int round = 0; round < Rounds; ++round) {
        // Once the readings have ended, what is asked for comes, and then they are shown.
        std::atomic<bool> ended{false};
        std::thread thread([&] {
            for (int step = 0; step < 200; ++step)
                console.deliver(47 + (step + round) % 80, 50);
            console.deliver(47 + round % 80, 60 + round % 50);
            ended = true;
        });
        while (!ended)
            QCoreApplication::processEvents();
        thread.join();
        QCoreApplication::processEvents();
        QCOMPARE(meter->value(),
                 meter->meterLevelIndex(static_cast<unsigned short>(47 + round % 80)));
    }
}

QTEST_MAIN(tst_MeterThreads)
#include "tst_MeterThreads.moc"

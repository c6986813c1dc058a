// SPDX-License-Identifier: MIT
#include "bench/MeterPage.h"

#include "bench/Stage.h"

#include <QTemporaryFile>

namespace meterpage {

namespace {

template<typename Make>
void fill(QWidget &window, const Plan &plan, const Make &make)
{
    window.resize(plan.size());
    for (int number = 0, panel = 0; panel < plan.panelCount(); ++panel) {
        QWidget *parent = plan.oneParent ? &window : plan.addPanel(window, panel);
        const QPoint corner = plan.oneParent ? plan.panel(panel).topLeft() : QPoint();
        for (int strip = 0; strip < plan.stripsOfPanel(); ++strip, ++number) {
            if (plan.hasDials())
                make(parent, number, true)->setGeometry(plan.dial(strip).translated(corner));
            if (plan.hasMeters())
                make(parent, number, false)->setGeometry(plan.meter(strip).translated(corner));
        }
    }
    Stage::show(window);
}

/// A console that has as many of both as a page has strips.
constexpr char Model[] = R"({"name": "Page", "tables": [], "meterTables": [], "preferences": {},
    "blocks": [
    {"name": "kPageMeter", "group": 1, "label": "Page", "elements": %1, "parameters": [
        {"name": "kLevel", "label": "Level", "index": 0, "min": 0, "max": 16383, "default": 0}]},
    {"name": "kPage", "group": 2, "label": "Page", "elements": %1, "parameters": [
        {"name": "kValue", "label": "Value", "index": 0, "min": 0, "max": 20, "default": 0}]}]})";

const QString MeterName = QStringLiteral("kPageMeter/kLevel");
const QString DialName = QStringLiteral("kPage/kValue");

void load(ParameterMemory &memory, int strips)
{
    QTemporaryFile file;
    QString error;
    if (!file.open() || file.write(QString(Model).arg(strips).toUtf8()) < 0 || !file.flush()
        || !memory.load(file.fileName(), &error))
        qFatal("the page's console: %s", qPrintable(error));
}

} // namespace

OwnPage::OwnPage(const Plan &plan) : m_plan(plan), m_codes(static_cast<size_t>(plan.strips()), 0)
{
    load(m_memory, plan.strips());
    m_memory.resolve(MeterName, 0, m_meterAddress);
    m_memory.resolve(DialName, 0, m_dialAddress);
    fill(m_window, plan, [this](QWidget *panel, int number, bool dial) {
        return dial ? addDial(panel, number) : addMeter(panel, number);
    });
}

QWidget *OwnPage::addMeter(QWidget *panel, int number)
{
    auto *meter = m_meters.emplace_back(new CMeter(panel));
    meter->setMeterBgndImage(pictures(m_plan).unlit);
    meter->setMeterImage(pictures(m_plan).lit);
    meter->setNamedAddress(MeterName);
    m_memory.bindProxy(meter, number);
    return meter;
}

QWidget *OwnPage::addDial(QWidget *panel, int number)
{
    auto *dial = m_dials.emplace_back(new CDial(panel));
    dial->setFocusPolicy(Qt::NoFocus);
    dial->setCombinedImage(pictures(m_plan).dial);
    dial->setnSubImages(DialRows);
    dial->setTransparent(m_plan.translucent);
    dial->setNamedAddress(DialName);
    m_memory.bindProxy(dial, number);
    return dial;
}

void OwnPage::deliver(int number, Changing changing)
{
    for (int meter = 0; meter < static_cast<int>(m_meters.size()); ++meter) {
        const bool changes = changing == Changing::All
                             || (changing == Changing::AFifth && (meter + number / 2) % 5 == 0);
        int &code = m_codes[static_cast<size_t>(meter)];
        if (changes)
            code = codeAt(meter, code == codeAt(meter, 0) ? 1 : 0);
        m_memory.deliverMeter(m_meterAddress.group, m_meterAddress.index, meter, code, 0);
    }
    for (int dial = 0; dial < static_cast<int>(m_dials.size()); ++dial)
        m_memory.writeValue(m_dialAddress.group, m_dialAddress.index, dial, stepAt(dial, number),
                            0);
}

double OwnPage::frame(int number, Changing changing, Clock clock)
{
    m_producer.run([&] { deliver(number, changing); });
    const double start = clock();
    Stage::frame(); // delivers
    Stage::frame(); // paints
    return clock() - start;
}

IdealPage::IdealPage(const Plan &plan) : m_plan(plan)
{
    fill(m_window, plan, [this](QWidget *panel, int number, bool dial) {
        return dial ? addDial(panel, number) : addMeter(panel, number);
    });
}

QWidget *IdealPage::addMeter(QWidget *panel, int)
{
    return m_meters.emplace_back(
        new IdealMeter(pictures(m_plan).unlit, pictures(m_plan).lit, panel));
}

QWidget *IdealPage::addDial(QWidget *panel, int)
{
    auto *knob = m_knobs.emplace_back(new IdealKnob(pictures(m_plan).dial, DialRows, panel));
    knob->setRange(0, DialRows - 1);
    return knob;
}

double IdealPage::frame(int number)
{
    const double start = threadSeconds();
    for (int i = 0; i < m_plan.strips(); ++i) {
        const auto place = static_cast<size_t>(i);
        if (m_plan.hasDials())
            m_knobs[place]->setValue(stepAt(i, number));
        if (m_plan.hasMeters())
            m_meters[place]->setLength(lengthAt(codeAt(i, number)));
    }
    Stage::frame();
    Stage::frame();
    return threadSeconds() - start;
}

} // namespace meterpage

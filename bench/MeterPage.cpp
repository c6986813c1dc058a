// SPDX-License-Identifier: MIT
#include "bench/MeterPage.h"

#include "bench/KnobStrip.h"
#include "bench/Stage.h"
#include "widgets/meters/MeterScale.h"

#include <QTemporaryFile>

namespace meterpage {

namespace {

constexpr QSize MeterSize(8, 64);
constexpr int DialSide = 32;
constexpr int PanelColumns = 5;
constexpr int DialRows = 21;
constexpr int StripColumns = 10;
constexpr QSize StripSize(DialSide, DialSide + MeterSize.height());
constexpr QSize PanelSize(StripColumns *StripSize.width(),
                          StripsInPanel / StripColumns * StripSize.height());

QRect panelPlace(int panel)
{
    return {
        QPoint(panel % PanelColumns * PanelSize.width(), panel / PanelColumns * PanelSize.height()),
        PanelSize};
}

QPoint stripPlace(int strip)
{
    return {strip % StripColumns * StripSize.width(), strip / StripColumns * StripSize.height()};
}

QRect dialPlace(int strip)
{
    return {stripPlace(strip), QSize(DialSide, DialSide)};
}

QRect meterPlace(int strip)
{
    const QPoint below((StripSize.width() - MeterSize.width()) / 2, DialSide);
    return {stripPlace(strip) + below, MeterSize};
}

template<typename Make>
void fill(QWidget &window, With with, const Make &make)
{
    window.resize(PanelSize * PanelColumns);
    for (int panel = 0; panel < Panels; ++panel) {
        auto *parent = new QWidget(&window);
        parent->setGeometry(panelPlace(panel));
        for (int strip = 0; strip < StripsInPanel; ++strip) {
            const int number = panel * StripsInPanel + strip;
            if (with == With::MetersAndDials)
                make(parent, number, true)->setGeometry(dialPlace(strip));
            make(parent, number, false)->setGeometry(meterPlace(strip));
        }
    }
    Stage::show(window);
}

QPixmap filled(const QColor &top, const QColor &bottom)
{
    QImage image(MeterSize, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient gradient(0, 0, 0, MeterSize.height());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    painter.fillRect(image.rect(), gradient);
    painter.end();
    return QPixmap::fromImage(image);
}

QPixmap dialStrip()
{
    return knobstrip::opaque(DialRows).scaled(DialSide, DialSide * DialRows);
}

int stepAt(int dial, int frame)
{
    return (dial * 7 + frame % 2 * (DialRows / 2)) % DialRows;
}

/// A console that has as many of both as the page.
constexpr char Model[] = R"({"name": "Page", "tables": [], "meterTables": [], "preferences": {},
    "blocks": [
    {"name": "kPageMeter", "group": 1, "label": "Page", "elements": 500, "parameters": [
        {"name": "kLevel", "label": "Level", "index": 0, "min": 0, "max": 16383, "default": 0}]},
    {"name": "kPage", "group": 2, "label": "Page", "elements": 500, "parameters": [
        {"name": "kValue", "label": "Value", "index": 0, "min": 0, "max": 20, "default": 0}]}]})";

const QString MeterName = QStringLiteral("kPageMeter/kLevel");
const QString DialName = QStringLiteral("kPage/kValue");

void load(ParameterMemory &memory)
{
    QTemporaryFile file;
    QString error;
    if (!file.open() || file.write(Model) < 0 || !file.flush()
        || !memory.load(file.fileName(), &error))
        qFatal("the page's console: %s", qPrintable(error));
}

} // namespace

QPixmap litPicture()
{
    return filled(Qt::red, Qt::green);
}

QPixmap unlitPicture()
{
    return filled(Qt::darkRed, Qt::darkGreen);
}

int codeAt(int meter, int frame)
{
    return 50 + meter * 7 % 35 + frame % 2 * 40;
}

int lengthAt(int code)
{
    static const MeterScale scale = [] {
        MeterScale normal = MeterScale::normal();
        normal.sumUp();
        return normal;
    }();
    static const double factor = double(MeterSize.height()) / scale.fullScale();
    return static_cast<int>(scale.offset(scale.indexOf(static_cast<unsigned short>(code)))
                            * factor);
}

OwnPage::OwnPage(With with) : m_codes(Strips, 0)
{
    load(m_memory);
    m_memory.resolve(MeterName, 0, m_meterAddress);
    m_memory.resolve(DialName, 0, m_dialAddress);
    fill(m_window, with, [this](QWidget *panel, int number, bool dial) {
        return dial ? addDial(panel, number) : addMeter(panel, number);
    });
}

QWidget *OwnPage::addMeter(QWidget *panel, int number)
{
    static const QPixmap lit = litPicture();
    static const QPixmap unlit = unlitPicture();
    auto *meter = m_meters.emplace_back(new CMeter(panel));
    meter->setMeterBgndImage(unlit);
    meter->setMeterImage(lit);
    meter->setNamedAddress(MeterName);
    m_memory.bindProxy(meter, number);
    return meter;
}

QWidget *OwnPage::addDial(QWidget *panel, int number)
{
    static const QPixmap strip = dialStrip();
    auto *dial = m_dials.emplace_back(new CDial(panel));
    dial->setFocusPolicy(Qt::NoFocus);
    dial->setCombinedImage(strip);
    dial->setnSubImages(DialRows);
    dial->setNamedAddress(DialName);
    m_memory.bindProxy(dial, number);
    return dial;
}

void OwnPage::deliver(int number, Changing changing)
{
    for (int meter = 0; meter < Strips; ++meter) {
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

double OwnPage::frame(int number, Changing changing)
{
    m_producer.run([&] { deliver(number, changing); });
    const double start = threadSeconds();
    Stage::frame(); // delivers
    Stage::frame(); // paints
    return threadSeconds() - start;
}

IdealPage::IdealPage(With with)
{
    fill(m_window, with, [this](QWidget *panel, int number, bool dial) {
        return dial ? addDial(panel, number) : addMeter(panel, number);
    });
}

QWidget *IdealPage::addMeter(QWidget *panel, int)
{
    static const QPixmap lit = litPicture();
    static const QPixmap unlit = unlitPicture();
    return m_meters.emplace_back(new IdealMeter(unlit, lit, panel));
}

QWidget *IdealPage::addDial(QWidget *panel, int)
{
    static const QPixmap strip = dialStrip();
    auto *knob = m_knobs.emplace_back(new IdealKnob(strip, DialRows, panel));
    knob->setRange(0, DialRows - 1);
    return knob;
}

double IdealPage::frame(int number)
{
    const double start = threadSeconds();
    for (int i = 0; i < Strips; ++i) {
        const auto place = static_cast<size_t>(i);
        if (!m_knobs.empty())
            m_knobs[place]->setValue(stepAt(i, number));
        m_meters[place]->setLength(lengthAt(codeAt(i, number)));
    }
    Stage::frame();
    Stage::frame();
    return threadSeconds() - start;
}

} // namespace meterpage

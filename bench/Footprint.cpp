// SPDX-License-Identifier: MIT
#include "bench/Footprint.h"

#include "bench/KnobStrip.h"
#include "bench/Scale.h"
#include "companions/memory/ParameterMemory.h"
#include "widgets/controls/CDial.h"

#include <QCoreApplication>
#include <QFile>

#include <functional>

#include <unistd.h>

namespace {

constexpr QSize PanelCells(5, 10);
constexpr QSize WindowPanels(10, 10);
constexpr int Controls = 5000;
constexpr int StripRows = 101;
constexpr int Changes = 10;
constexpr size_t Addresses = 3000;

double residentBytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        qFatal("no /proc/self/statm");
    return statm.readAll().split(' ').at(1).toDouble() * double(sysconf(_SC_PAGESIZE));
}

/// Place number `number` of a grid with cells of that size, filled row by row.
QRect place(int number, int columns, const QSize &cell)
{
    const QPoint corner(number % columns * cell.width(), number / columns * cell.height());
    return {corner, cell};
}

/// A window full of panels full of controls.
class Crowd
{
public:
    using Make = std::function<QWidget *(QWidget *panel)>;

    explicit Crowd(const Make &make)
    {
        constexpr QSize cell(knobstrip::CellSize, knobstrip::CellSize);
        const QSize panelSize(cell.width() * PanelCells.width(),
                              cell.height() * PanelCells.height());
        m_window.resize(panelSize.width() * WindowPanels.width(),
                        panelSize.height() * WindowPanels.height());
        for (int number = 0; number < WindowPanels.width() * WindowPanels.height(); ++number) {
            auto *panel = new QWidget(&m_window);
            panel->setGeometry(place(number, WindowPanels.width(), panelSize));
            for (int inside = 0; inside < PanelCells.width() * PanelCells.height(); ++inside) {
                QWidget *control = make(panel);
                control->setGeometry(place(inside, PanelCells.width(), cell));
                m_controls.push_back(control);
            }
        }
    }

    QWidget &window() { return m_window; }
    const std::vector<QWidget *> &controls() const { return m_controls; }

private:
    QWidget m_window;
    std::vector<QWidget *> m_controls;
};

double weighWidgets()
{
    const double before = residentBytes();
    const Crowd crowd([](QWidget *panel) { return new QWidget(panel); });
    return (residentBytes() - before) / Controls;
}

/// Makes dials that share a strip, each bound to a parameter.
class DialMaker
{
public:
    DialMaker()
    {
        scale::load(memory);
        parameters = scale::parameters(memory, Addresses);
    }

    QWidget *operator()(QWidget *panel)
    {
        const ScaleParameter &parameter = parameters[made++ % parameters.size()];
        auto *dial = new CDial(panel);
        dial->setCombinedImage(strip);
        dial->setnSubImages(StripRows);
        dial->setNamedAddress(parameter.name);
        memory.bindProxy(dial, parameter.element);
        return dial;
    }

    ParameterMemory memory;
    QPixmap strip = knobstrip::opaque(StripRows);
    std::vector<ScaleParameter> parameters;
    size_t made = 0;
};

double weighDials()
{
    DialMaker maker;
    const double before = residentBytes();
    const Crowd crowd(std::ref(maker));
    QCoreApplication::sendPostedEvents();
    return (residentBytes() - before) / Controls;
}

double weighGrowth()
{
    DialMaker maker;
    Crowd crowd(std::ref(maker));
    crowd.window().setAttribute(Qt::WA_ShowWithoutActivating);
    crowd.window().show();
    QCoreApplication::processEvents();
    const double before = residentBytes();
    for (int change = 1; change <= Changes; ++change) {
        for (const ScaleParameter &each : maker.parameters)
            maker.memory.writeValue(each.group, each.index, each.element, each.minimum + change, 0);
        QCoreApplication::processEvents();
    }
    return (residentBytes() - before) / Controls;
}

} // namespace

double footprint::weigh(const QString &kind)
{
    if (kind == Widgets)
        return weighWidgets();
    if (kind == Dials)
        return weighDials();
    if (kind == Growth)
        return weighGrowth();
    qFatal("cannot weigh \"%s\"", qPrintable(kind));
}

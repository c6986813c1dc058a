// SPDX-License-Identifier: MIT
#include "bench/Footprint.h"

#include "bench/KnobStrip.h"
#include "bench/Scale.h"
#include "bench/Stage.h"
#include "companions/memory/ParameterMemory.h"
#include "widgets/controls/CDial.h"

#include <QCoreApplication>
#include <QFile>

#include <functional>

#include <malloc.h>
#include <unistd.h>

namespace {

constexpr QSize Cell(knobstrip::CellSize, knobstrip::CellSize);
constexpr QSize PanelCells(5, 10);
constexpr QSize WindowPanels(10, 10);
constexpr int Controls = 5000;
constexpr int StripRows = 101;
constexpr int Changes = 10;
constexpr size_t Addresses = 3000;

/// What is freed goes back to the system first, so that what remains is in use.
double residentBytes()
{
    malloc_trim(0);
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        qFatal("no /proc/self/statm");
    return statm.readAll().split(' ').at(1).toDouble() * double(sysconf(_SC_PAGESIZE));
}

/// A shown window full of panels, and then the panels full of controls.
class Crowd
{
public:
    using Make = std::function<QWidget *(QWidget *panel)>;

    Crowd()
    {
        const QSize size(Cell.width() * PanelCells.width(), Cell.height() * PanelCells.height());
        m_window.resize(size.width() * WindowPanels.width(), size.height() * WindowPanels.height());
        for (int number = 0; number < WindowPanels.width() * WindowPanels.height(); ++number) {
            m_panels.push_back(new QWidget(&m_window));
            m_panels.back()->setGeometry(Stage::place(number, WindowPanels.width(), size));
        }
        m_window.show();
        QCoreApplication::processEvents();
    }

    /// Resident bytes that each control takes once it is shown and painted.
    double populate(const Make &make)
    {
        const double before = residentBytes();
        for (QWidget *panel : m_panels) {
            for (int inside = 0; inside < PanelCells.width() * PanelCells.height(); ++inside) {
                QWidget *control = make(panel);
                control->setGeometry(Stage::place(inside, PanelCells.width(), Cell));
                control->show();
            }
        }
        QCoreApplication::processEvents();
        return (residentBytes() - before) / Controls;
    }

private:
    QWidget m_window;
    std::vector<QWidget *> m_panels;
};

double weighWidgets()
{
    return Crowd().populate([](QWidget *panel) { return new QWidget(panel); });
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
    return Crowd().populate(std::ref(maker));
}

double weighGrowth()
{
    DialMaker maker;
    Crowd crowd;
    crowd.populate(std::ref(maker));
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

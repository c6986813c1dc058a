// SPDX-License-Identifier: MIT
#pragma once

#include "bench/PagePlan.h"
#include "bench/Producer.h"
#include "bench/references/IdealKnob.h"
#include "bench/references/IdealMeter.h"
#include "companions/memory/ParameterMemory.h"
#include "widgets/controls/CDial.h"
#include "widgets/meters/CMeter.h"

#include <memory>
#include <vector>

/// Pages of channel strips: the library's controls, and the ideal ones.
namespace meterpage {

/// Which meters get another reading in a frame.
enum class Changing { All, AFifth, None };

/// Processor time so far.
using Clock = double (*)();

/// The library's controls, bound to a memory. Another thread brings the readings and values; a frame
/// is what the GUI thread then does.
class OwnPage
{
public:
    explicit OwnPage(const Plan &plan);

    QWidget &window() { return m_window; }
    /// The memory, with the meters' parameter alone in a block of its own.
    ParameterMemory &memory() { return m_memory; }
    /// Returns the processor time in seconds: by default that of the GUI thread.
    double frame(int number, Changing changing = Changing::All, Clock clock = threadSeconds);
    /// Brings the readings and values of a frame. Any thread, one at a time.
    void deliver(int number, Changing changing);

private:
    QWidget *addMeter(QWidget *panel, int number);
    QWidget *addDial(QWidget *panel, int number);

    const Plan m_plan;
    ParameterMemory m_memory;
    Producer m_producer;
    QWidget m_window;
    std::vector<CMeter *> m_meters;
    std::vector<CDial *> m_dials;
    IMemAPI::TSingleBaseAddress m_meterAddress; ///< of element 0
    IMemAPI::TSingleBaseAddress m_dialAddress;
    std::vector<int> m_codes; ///< the present readings
};

/// The ideal ones; readings and values come in the order in which the controls were made.
class IdealPage
{
public:
    explicit IdealPage(const Plan &plan);

    QWidget &window() { return m_window; }
    double frame(int number);

private:
    QWidget *addMeter(QWidget *panel, int number);
    QWidget *addDial(QWidget *panel, int number);

    const Plan m_plan;
    QWidget m_window;
    std::vector<IdealMeter *> m_meters;
    std::vector<IdealKnob *> m_knobs;
};

} // namespace meterpage

// SPDX-License-Identifier: MIT
#pragma once

#include "bench/Producer.h"
#include "bench/references/IdealKnob.h"
#include "bench/references/IdealMeter.h"
#include "companions/memory/ParameterMemory.h"
#include "widgets/controls/CDial.h"
#include "widgets/meters/CMeter.h"

#include <memory>
#include <vector>

/// A page of channel strips in panels: a meter in each, and a dial above it if wanted. There are as
/// many controls, as large, made in the same order and at the same places on the page of the library's
/// controls as on that of the ideal ones.
namespace meterpage {

constexpr int Panels = 25;
constexpr int StripsInPanel = 20;
constexpr int Strips = Panels * StripsInPanel;

enum class With { MetersAlone, MetersAndDials };
/// Which meters get another reading in a frame.
enum class Changing { All, AFifth, None };

QPixmap litPicture();
QPixmap unlitPicture();

/// The level code of a meter in a frame; in two successive frames the bar has two lengths.
int codeAt(int meter, int frame);
/// How long the bar is at a code.
int lengthAt(int code);

/// The library's controls, bound to a memory. Another thread brings the readings and values; a frame
/// is what the GUI thread then does.
class OwnPage
{
public:
    explicit OwnPage(With with);

    QWidget &window() { return m_window; }
    /// The memory, with the meters' parameter alone in a block of its own.
    ParameterMemory &memory() { return m_memory; }
    /// Returns the GUI thread's processor time in seconds.
    double frame(int number, Changing changing);
    /// Brings the readings and values of a frame. Any thread, one at a time.
    void deliver(int number, Changing changing);

private:
    QWidget *addMeter(QWidget *panel, int number);
    QWidget *addDial(QWidget *panel, int number);

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
    explicit IdealPage(With with);

    QWidget &window() { return m_window; }
    double frame(int number);

private:
    QWidget *addMeter(QWidget *panel, int number);
    QWidget *addDial(QWidget *panel, int number);

    QWidget m_window;
    std::vector<IdealMeter *> m_meters;
    std::vector<IdealKnob *> m_knobs;
};

} // namespace meterpage

// SPDX-License-Identifier: MIT
#include "editor/soak/Stagehand.h"

#include "companions/memory/ConsoleModel.h"
#include "companions/memory/ParameterMemory.h"
#include "console/SimulatedConsole.h"
#include "editor/MainWindow.h"
#include "editor/ScreenPages.h"
#include "editor/soak/SoakWindows.h"
#include "editor/soak/StallWatch.h"
#include "interfaces/TMemProxy.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QScrollArea>
#include <QScrollBar>
#include <QUndoStack>

#include <algorithm>

namespace {

QScrollArea *currentPage(MainWindow &window)
{
    return window.pages().page(window.pages().currentIndex());
}

} // namespace

Stagehand::Stagehand(SoakWindows &windows, ParameterMemory &memory, SimulatedConsole &console,
                     StallWatch &watch, std::uint32_t seed)
    : m_windows(windows), m_memory(memory), m_console(console), m_watch(watch), m_dice(seed)
{
    openAll();
}

Stagehand::~Stagehand() = default;

const Stagehand::Deed Stagehand::deeds[] = {
    {"resize", 4, &Stagehand::resize},
    {"restack", 4, &Stagehand::restack},
    {"hide or show", 4, &Stagehand::hideAndShow},
    {"turn page", 12, &Stagehand::turnPage},
    {"scroll", 8, &Stagehand::scroll},
    {"choose channel", 4, &Stagehand::chooseChannel},
    {"patch", 4, &Stagehand::patch},
    {"rename", 4, &Stagehand::rename},
    {"cover", 4, &Stagehand::cover},
    {"uncover", 4, &Stagehand::uncover},
    {"switch off", 4, &Stagehand::switchOff},
    {"undo", 4, &Stagehand::undo},
    {"online or offline", 1, &Stagehand::goOnlineOrOff},
    {"close a window", 1, &Stagehand::reopen},
};

void Stagehand::act()
{
    m_opening.reset();
    MainWindow *window = m_windows.window(m_dice.below(m_windows.count()));
    if (!window) {
        openAll();
        return;
    }
    ++m_operations;
    // Breaks are short: nothing comes from a console that is offline.
    if (!m_console.isOnline() && m_dice.below(4) == 0)
        m_console.setOnline(true);
    int sum = 0;
    for (const Deed &each : deeds)
        sum += each.weight;
    int left = m_dice.below(sum);
    const Deed *chosen = deeds;
    while (left >= chosen->weight)
        left -= chosen++->weight;
    m_deed = chosen->name;
    (this->*chosen->make)(*window);
}

void Stagehand::setUpAgain()
{
    openAll();
    m_console.setOnline(true);
    for (int number = 0; number < m_windows.count(); ++number) {
        m_windows.window(number)->showNormal();
        m_windows.window(number)->resize(SoakWindows::WindowSize);
    }
}

void Stagehand::openAll()
{
    for (int number = 0; number < m_windows.count(); ++number) {
        if (m_windows.window(number))
            continue;
        m_opening = std::make_unique<StallWatch::Pause>(m_watch);
        QElapsedTimer clock;
        clock.start();
        m_windows.open(number);
        QCoreApplication::sendPostedEvents(); // the controls' first values belong to it
        m_longestOpening = std::max(m_longestOpening, clock.elapsed());
    }
}

void Stagehand::resize(MainWindow &window)
{
    window.resize(700 + m_dice.below(900), 500 + m_dice.below(600));
}

void Stagehand::restack(MainWindow &window)
{
    m_dice.below(2) ? window.raise() : window.lower();
    window.move(m_dice.below(400), m_dice.below(300));
    window.activateWindow();
}

void Stagehand::hideAndShow(MainWindow &window)
{
    if (window.isVisible())
        m_dice.below(2) ? window.hide() : window.showMinimized();
    else
        window.show();
    if (window.isMinimized())
        window.showNormal();
}

void Stagehand::turnPage(MainWindow &)
{
    if (MainWindow *tabbed = m_windows.tabbed())
        tabbed->pages().setCurrentIndex(m_dice.below(tabbed->pages().count()));
}

void Stagehand::scroll(MainWindow &window)
{
    QScrollArea *page = currentPage(window);
    for (QScrollBar *bar : {page->horizontalScrollBar(), page->verticalScrollBar()})
        bar->setValue(static_cast<int>(m_dice.between(bar->minimum(), bar->maximum() + 1)));
}

void Stagehand::chooseChannel(MainWindow &window)
{
    window.pages().setChannelElement(m_dice.below(std::max(1, window.pages().channelCount())));
}

/// A source to an input, or whatever else can be patched.
void Stagehand::patch(MainWindow &)
{
    const ConsoleModel &model = m_memory.model();
    for (const ConsoleModel::Parameter &each : model.parameters()) {
        if (!model.blockOf(each).name.startsWith(QLatin1String("kPatch")))
            continue;
        const int value = static_cast<int>(m_dice.between(each.minimum, each.maximum));
        m_memory.writeValue(model.groupOf(each), each.index, m_dice.below(each.elements), value, 0);
    }
}

/// Another control's parameter, and its own again.
void Stagehand::rename(MainWindow &window)
{
    auto *control = dynamic_cast<TMemProxy *>(anyControl(window));
    if (!control || control->servesChannels() || control->namedAddress().isEmpty())
        return;
    const QString own = control->namedAddress();
    const QString bare = own.mid(own.size() > 2 && !own.startsWith(QLatin1Char('k')) ? 2 : 0);
    control->setNamedAddress(
        QStringLiteral("%1").arg(m_dice.below(8), 2, 16, QLatin1Char('0')).toUpper() + bare);
    if (m_dice.below(2) || !control->isAttached())
        control->setNamedAddress(own);
}

/// Something that lies over controls for a while, beside them in their panel.
void Stagehand::cover(MainWindow &window)
{
    QWidget *panel = anyPanel(window);
    if (m_cover || !panel)
        return;
    m_cover = new QWidget(panel);
    m_cover->setAutoFillBackground(m_dice.below(2));
    m_cover->setGeometry(m_dice.below(60), m_dice.below(200), 20 + m_dice.below(200),
                         20 + m_dice.below(200));
    m_cover->show();
    m_dice.below(3) ? m_cover->raise() : m_cover->lower();
}

void Stagehand::uncover(MainWindow &)
{
    if (!m_cover || m_dice.below(2))
        delete m_cover;
    else if (m_dice.below(2))
        m_cover->move(m_cover->pos() + QPoint(m_dice.below(40) - 20, m_dice.below(40) - 20));
    else
        m_cover->raise();
}

void Stagehand::switchOff(MainWindow &window)
{
    if (QWidget *panel = anyPanel(window))
        panel->setEnabled(!panel->isEnabled());
}

void Stagehand::undo(MainWindow &)
{
    QUndoStack *history = m_memory.undoStack();
    m_dice.below(3) ? history->undo() : history->redo();
}

void Stagehand::goOnlineOrOff(MainWindow &)
{
    m_console.setOnline(!m_console.isOnline());
}

/// Closed, and opened again before the next deed or after some.
void Stagehand::reopen(MainWindow &window)
{
    for (int number = 0; number < m_windows.count(); ++number) {
        if (m_windows.window(number) == &window)
            m_windows.close(number);
    }
    if (m_dice.below(2))
        openAll();
}

QWidget *Stagehand::anyPanel(MainWindow &window)
{
    QWidget *control = anyControl(window);
    return control ? control->parentWidget() : nullptr;
}

QWidget *Stagehand::anyControl(MainWindow &window)
{
    std::vector<QWidget *> controls;
    for (QWidget *each : currentPage(window)->widget()->findChildren<QWidget *>()) {
        const auto *proxy = dynamic_cast<TMemProxy *>(each);
        if (proxy && proxy->isAttached())
            controls.push_back(each);
    }
    return controls.empty()
               ? nullptr
               : controls[static_cast<size_t>(m_dice.below(static_cast<int>(controls.size())))];
}

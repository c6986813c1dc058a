// SPDX-License-Identifier: MIT
#include "editor/MainWindow.h"

#include "companions/memory/ConsoleModel.h"
#include "companions/memory/ParameterMemory.h"
#include "console/SimulatedConsole.h"
#include "editor/Appearance.h"
#include "editor/ChannelChooser.h"
#include "editor/EditorPreferences.h"
#include "editor/OnlineLamp.h"
#include "editor/ProxyCommands.h"
#include "editor/SceneDesk.h"
#include "editor/ScreenPages.h"
#include "editor/TouchedControl.h"
#include "editor/TouchStatus.h"
#include "editor/WheelGuard.h"
#include "widgets/controls/CDial.h"
#include "widgets/meters/CTimeDisplay.h"

#include <QActionGroup>
#include <QApplication>
#include <QFontDatabase>
#include <QIcon>
#include <QLayout>
#include <QMenuBar>
#include <QMessageBox>
#include <QScrollArea>
#include <QStatusBar>
#include <QToolBar>
#include <QUndoStack>

namespace {

constexpr double OfferedRates[] = {5, 20, 100, 1000};

/// How long the status bar shows what was done.
constexpr int messageMilliseconds = 6000;

/// In points, of which the display takes three quarters.
constexpr int timeDigits = 15;

} // namespace

struct MainWindow::Private
{
    Private(ParameterMemory &boundMemory, SimulatedConsole &boundConsole, SceneLibrary &library,
            MainWindow *window)
        : memory(boundMemory), console(boundConsole), preferences(boundMemory),
          scenes(boundMemory, library), commands(boundMemory), touched(boundMemory),
          pages(new ScreenPages(boundMemory, window)), channel(new ChannelChooser(window))
    {
    }

    ParameterMemory &memory;
    SimulatedConsole &console;
    EditorPreferences preferences;
    SceneDesk scenes;
    ProxyCommands commands;
    TouchedControl touched;
    WheelGuard wheelGuard;
    ScreenPages *pages;
    ChannelChooser *channel;
    QAction *channelAction = nullptr;
    QList<QAction *> history; ///< undo and redo
    QList<QAction *> controlCommands;
};

MainWindow::MainWindow(ParameterMemory &memory, SimulatedConsole &console, SceneLibrary &library,
                       const QStringList &forms, QWidget *parent)
    : QMainWindow(parent), d(std::make_unique<Private>(memory, console, library, this))
{
    setWindowTitle(tr("Console Editor"));
    setWindowIcon(QIcon(":/images/icon-64.png"));
    setCentralWidget(d->pages);
    watchPages();
    watchScenes();
    d->pages->open(forms.isEmpty() ? ScreenPages::shippedForms() : forms);
    addEditMenu();
    addControlMenu();
    addScreenMenu();
    addSceneMenu();
    addConsoleMenu();
    addHelpMenu();
    addCorner();
    addStatus();
}

MainWindow::~MainWindow()
{
    // The pages' controls speak to the objects in `d` until they are gone.
    delete d->pages;
}

ScreenPages &MainWindow::pages() const
{
    return *d->pages;
}

TouchedControl &MainWindow::touchedControl() const
{
    return d->touched;
}

EditorPreferences &MainWindow::preferences() const
{
    return d->preferences;
}

void MainWindow::controlStepped(QWidget *control)
{
    d->touched.touch(control);
}

void MainWindow::watchPages()
{
    connect(d->pages, &ScreenPages::pageAdded, &d->wheelGuard, &WheelGuard::watchPage);
    // The last filter is asked first: the guard decides before anybody believes in an edit.
    connect(d->pages, &ScreenPages::controlAdded, &d->touched, &TouchedControl::watch);
    connect(d->pages, &ScreenPages::controlAdded, &d->commands, &ProxyCommands::watch);
    connect(d->pages, &ScreenPages::controlAdded, &d->wheelGuard, &WheelGuard::watchControl);
}

void MainWindow::watchScenes()
{
    connect(d->pages, &ScreenPages::pageAdded, &d->scenes,
            [this](QScrollArea *page) { d->scenes.addPage(page->widget()); });
    connect(&d->scenes, &SceneDesk::told, this,
            [this](const QString &line) { statusBar()->showMessage(line, messageMilliseconds); });
    // A control in hand matters more than what was done before.
    connect(&d->touched, &TouchedControl::changed, this, [this] {
        if (d->touched.control() && d->touched.control()->isVisible())
            statusBar()->clearMessage();
    });
    // What another program does to the library meanwhile is seen on coming back to this one.
    connect(qApp, &QGuiApplication::applicationStateChanged, &d->scenes,
            [this](Qt::ApplicationState state) {
                if (state == Qt::ApplicationActive)
                    d->scenes.refresh();
            });
}

void MainWindow::addEditMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&Edit"));
    QUndoStack *stack = d->memory.undoStack();
    QAction *undo = stack->createUndoAction(this, tr("&Undo"));
    undo->setShortcut(Qt::CTRL | Qt::Key_Z);
    undo->setIcon(QIcon(":/images/undo.png"));
    QAction *redo = stack->createRedoAction(this, tr("&Redo"));
    redo->setShortcuts({Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y});
    redo->setIcon(QIcon(":/images/redo.png"));
    menu->addActions({undo, redo});
    d->history = {undo, redo};
}

void MainWindow::addControlMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&Control"));
    addCommand(menu, tr("&Enter value..."), ProxyCommands::enterValue);
    addCommand(menu, tr("&Reset to default"), ProxyCommands::resetToDefault)
        ->setShortcut(Qt::CTRL | Qt::Key_Backspace);
    menu->addSeparator();
    addCommand(menu, tr("&Copy"), ProxyCommands::copy)->setShortcut(QKeySequence::Copy);
    addCommand(menu, tr("&Paste"), ProxyCommands::paste)->setShortcut(QKeySequence::Paste);
    connect(&d->touched, &TouchedControl::changed, this, &MainWindow::enableCommands);
    enableCommands();
    menu->addSeparator();
    QAction *vertical = menu->addAction(tr("&Vertical drag"));
    vertical->setCheckable(true);
    vertical->setChecked(CDial::verticalMode());
    vertical->setToolTip(tr("Knobs turn with straight movements of the mouse"));
    connect(vertical, &QAction::toggled, this, &CDial::setVerticalMode);
}

/// A command for the touched control.
QAction *MainWindow::addCommand(QMenu *menu, const QString &text, void (*command)(QWidget *))
{
    d->controlCommands << menu->addAction(text, this,
                                          [this, command] { command(d->touched.control()); });
    return d->controlCommands.last();
}

void MainWindow::enableCommands()
{
    for (QAction *action : std::as_const(d->controlCommands))
        action->setEnabled(d->touched.control());
}

void MainWindow::addScreenMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&Screen"));
    constexpr int numberKeys = 9;
    for (int index = 0; index < d->pages->count(); ++index) {
        QAction *action = menu->addAction(d->pages->pageTitle(index), this,
                                          [this, index] { d->pages->setCurrentIndex(index); });
        if (index < numberKeys)
            action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + index)));
    }
    menu->addSeparator();
    QAction *full = menu->addAction(tr("&Full screen"));
    full->setShortcut(Qt::Key_F11);
    full->setCheckable(true);
    connect(full, &QAction::toggled, this,
            [this](bool on) { setWindowState(windowState().setFlag(Qt::WindowFullScreen, on)); });
}

void MainWindow::addSceneMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("Sce&nes"));
    const auto addQuestion = [&](const QString &text, IPreferences::Number number) {
        QAction *action = menu->addAction(text);
        action->setCheckable(true);
        const auto show = [this, action, number] {
            action->setChecked(d->preferences.isOn(number));
        };
        show();
        connect(&d->preferences, &EditorPreferences::changed, action, show);
        connect(action, &QAction::toggled, this,
                [this, number](bool on) { d->preferences.setOn(number, on); });
    };
    addQuestion(tr("Ask before &storing"), IPreferences::ConfirmStore);
    addQuestion(tr("Ask before &recalling"), IPreferences::ConfirmRecall);
    menu->addSeparator();
    menu->addAction(tr("&Open the library again"), &d->scenes, &SceneDesk::openAgain);
}

void MainWindow::addConsoleMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("C&onsole"));
    QAction *online = menu->addAction(tr("&Online"));
    online->setCheckable(true);
    online->setChecked(d->console.isOnline());
    connect(online, &QAction::toggled, this, [this](bool on) { d->console.setOnline(on); });
    menu->addSeparator();
    menu->addSection(tr("Simulated changes"));
    auto *rates = new QActionGroup(this);
    const auto add = [&](const QString &text, double rate) {
        QAction *action = menu->addAction(text, this, [this, rate] { simulateChanges(rate); });
        action->setCheckable(true);
        action->setChecked(rate == d->console.rate());
        rates->addAction(action);
    };
    add(tr("Of&f"), 0);
    for (const double rate : OfferedRates)
        add(tr("%1 per second").arg(rate), rate);
}

void MainWindow::addHelpMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&Help"));
    menu->addAction(tr("&About"), this, [this] {
        QMessageBox::about(
            this, windowTitle(),
            tr("%1 %2\n%3").arg(windowTitle(), CONSOLEWIDGETS_VERSION, d->memory.model().name()));
    });
}

void MainWindow::addCorner()
{
    auto *corner = new QToolBar;
    corner->addWidget(makeTimeDisplay());
    d->channelAction = corner->addWidget(d->channel);
    corner->addActions(d->history);
    corner->setIconSize(QSize(16, 16));
    corner->layout()->setContentsMargins({}); // the tabs are as high as what stands here
    d->channel->setChannelCount(d->pages->channelCount());
    d->pages->setCornerWidget(corner, Qt::TopRightCorner);
    connect(d->channel, &ChannelChooser::channelChanged, this,
            [this](int channel) { d->pages->setChannelElement(channel - 1); });
    connect(d->pages, &QTabWidget::currentChanged, this, &MainWindow::showScreenOptions);
    showScreenOptions();
}

QWidget *MainWindow::makeTimeDisplay()
{
    auto *display = new CTimeDisplay;
    QPalette colours;
    colours.setColor(QPalette::Window, appearance::ReadoutBack);
    colours.setColor(QPalette::WindowText, appearance::ReadoutText);
    display->setPalette(colours);
    // A tool bar would lend it the colours of its keys.
    display->setBackgroundRole(QPalette::Window);
    display->setForegroundRole(QPalette::WindowText);
    QFont digits = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    digits.setPointSize(timeDigits);
    digits.setBold(true);
    display->setFont(digits);
    display->setToolTip(tr("The console's time code"));
    d->memory.bindProxy(display);
    return display;
}

void MainWindow::showScreenOptions()
{
    d->channelAction->setVisible(d->pages->followsChannel(d->pages->currentIndex()));
}

void MainWindow::addStatus()
{
    auto *lamp = new OnlineLamp;
    statusBar()->setSizeGripEnabled(false);
    statusBar()->addWidget(new TouchStatus(d->touched), 1);
    statusBar()->addPermanentWidget(lamp);
    // By itself it paints anew where a message begins, beyond which some letters reach.
    connect(statusBar(), &QStatusBar::messageChanged, statusBar(), qOverload<>(&QWidget::update));
    connect(&d->memory, &ParameterMemory::onlineChanged, lamp, &OnlineLamp::setOnline);
    lamp->setOnline((d->memory.connectionState() & IMemAPI::Online) == IMemAPI::Online);
}

void MainWindow::simulateChanges(double rate)
{
    d->console.setRate(rate);
}

// SPDX-License-Identifier: MIT
#include "editor/soak/SoakWindows.h"

#include "editor/MainWindow.h"
#include "editor/ScreenPages.h"
#include "interfaces/TMemProxy.h"

#include <QAbstractItemView>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QScrollArea>

namespace {

/// A compositor lets rows be dragged by a mouse of its own only; where it has none, Qt falls over.
void leaveRowsInPlace(const QWidget &window)
{
    if (!QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
        return;
    for (auto *list : window.findChildren<QAbstractItemView *>())
        list->setDragEnabled(false);
}

constexpr qsizetype MostInAPiece = 300; // widgets, which take some milliseconds

/// The parts of a form of thousands of widgets, innermost first, and the form.
void takeApart(QWidget *form, std::deque<QPointer<QWidget>> &pieces)
{
    const auto parts = form->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    for (QWidget *part : parts) {
        if (part->findChildren<QWidget *>().size() > MostInAPiece)
            takeApart(part, pieces);
        else
            pieces.emplace_back(part);
    }
    pieces.emplace_back(form);
}

} // namespace

SoakWindows::SoakWindows(ParameterMemory &memory, SimulatedConsole &console, SceneLibrary &library,
                         const QStringList &forms)
    : m_memory(memory), m_console(console), m_library(library), m_forms(forms),
      m_windows(static_cast<size_t>(forms.size()) + 1)
{
    QObject::connect(&m_clearing, &QTimer::timeout, [this] { clearAPiece(); });
}

SoakWindows::~SoakWindows()
{
    while (!m_leaving.empty())
        clearAPiece();
}

void SoakWindows::open(int number)
{
    // Scenes are on one page only: an editor does not look for what another window of its own does there.
    const QStringList forms = number < m_forms.size()
                                  ? QStringList(m_forms[number])
                                  : m_forms.filter(QRegularExpression("(?<!/scenes\\.ui)$"));
    auto &window = m_windows[static_cast<size_t>(number)];
    window = std::make_unique<MainWindow>(m_memory, m_console, m_library, forms);
    window->setObjectName(number < m_forms.size() ? window->pages().pageName(0)
                                                  : QStringLiteral("all screens"));
    leaveRowsInPlace(*window);
    window->resize(WindowSize);
    window->show();
}

void SoakWindows::close(int number)
{
    MainWindow *window = m_windows[static_cast<size_t>(number)].release();
    window->hide();
    for (int page = 0; page < window->pages().count(); ++page)
        takeApart(window->pages().page(page)->widget(), m_leaving);
    m_leaving.emplace_back(window);
    m_clearing.start();
}

void SoakWindows::clearAPiece()
{
    delete m_leaving.front();
    m_leaving.pop_front();
    if (m_leaving.empty())
        m_clearing.stop();
}

void SoakWindows::openAll()
{
    for (int number = 0; number < count(); ++number) {
        if (!window(number))
            open(number);
    }
}

std::vector<QWidget *> SoakWindows::boundControls() const
{
    std::vector<QWidget *> controls;
    for (const auto &each : m_windows) {
        if (!each)
            continue;
        for (QWidget *widget : each->findChildren<QWidget *>()) {
            const auto *proxy = dynamic_cast<TMemProxy *>(widget);
            if (proxy && proxy->isAttached())
                controls.push_back(widget);
        }
    }
    return controls;
}

QString SoakWindows::nameOf(const QWidget &inside)
{
    return inside.window()->objectName();
}

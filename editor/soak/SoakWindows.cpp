// SPDX-License-Identifier: MIT
#include "editor/soak/SoakWindows.h"

#include "editor/MainWindow.h"
#include "editor/ScreenPages.h"
#include "interfaces/TMemProxy.h"

#include <QRegularExpression>
#include <QScrollArea>

namespace {

constexpr qsizetype MostInAPiece = 300; // widgets, which take some milliseconds

/// A form has thousands of widgets: the operator goes on between the pieces.
void deleteInPieces(QWidget *form)
{
    const auto parts = form->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    for (QWidget *part : parts) {
        if (part->findChildren<QWidget *>().size() > MostInAPiece)
            deleteInPieces(part);
        else
            part->deleteLater();
    }
    form->deleteLater();
}

} // namespace

SoakWindows::SoakWindows(ParameterMemory &memory, SimulatedConsole &console, SceneLibrary &library,
                         const QStringList &forms)
    : m_memory(memory), m_console(console), m_library(library), m_forms(forms),
      m_windows(static_cast<size_t>(forms.size()) + 1)
{
}

SoakWindows::~SoakWindows() = default;

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
    window->resize(WindowSize);
    window->show();
}

void SoakWindows::close(int number)
{
    MainWindow *window = m_windows[static_cast<size_t>(number)].release();
    window->hide();
    for (int page = 0; page < window->pages().count(); ++page)
        deleteInPieces(window->pages().page(page)->widget());
    window->deleteLater();
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

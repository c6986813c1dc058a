// SPDX-License-Identifier: MIT
#include "editor/SceneDesk.h"

#include "companions/scenes/SceneLibrary.h"
#include "editor/SceneRow.h"
#include "widgets/lists/CListWidge.h"

#include <QLabel>
#include <QPushButton>

namespace {

CListWidge *listOf(const QWidget *page)
{
    return page ? page->findChild<CListWidge *>(QStringLiteral("scenes")) : nullptr;
}

} // namespace

SceneDesk::SceneDesk(ParameterMemory &memory, SceneLibrary &library, QObject *parent)
    : QObject(parent), m_memory(memory), m_library(library)
{
}

void SceneDesk::addPage(QWidget *page)
{
    CListWidge *list = listOf(page);
    if (!list)
        return;
    m_pages.emplace_back(page);
    if (auto *retry = page->findChild<QPushButton *>(QStringLiteral("sceneRetry")))
        connect(retry, &QPushButton::clicked, this, &SceneDesk::openAgain);
    fill(list);
    showTrouble(page);
}

void SceneDesk::fill(CListWidge *list)
{
    list->clear();
    if (!m_library.isOpen())
        return;
    QList<QTreeWidgetItem *> rows;
    for (int slot = 1; slot <= SceneLibrary::SlotCount; ++slot)
        rows << new SceneRow(slot, *this);
    list->addTopLevelItems(rows);
    list->setCurrentItem(rows.first());
}

void SceneDesk::showTrouble(QWidget *page) const
{
    auto *text = page->findChild<QLabel *>(QStringLiteral("sceneTroubleText"));
    auto *trouble = page->findChild<QWidget *>(QStringLiteral("sceneTrouble"));
    if (text)
        text->setText(m_library.readOnlyReason());
    if (trouble)
        trouble->setVisible(!m_library.readOnlyReason().isEmpty());
}

void SceneDesk::showLibrary()
{
    for (const QPointer<QWidget> &page : m_pages) {
        if (CListWidge *list = listOf(page)) {
            fill(list);
            showTrouble(page);
        }
    }
}

void SceneDesk::openAgain()
{
    m_library.open(m_library.fileName());
    showLibrary();
    say(m_library.isOpen() ? tr("The scene library is open: %1").arg(m_library.fileName())
                           : m_library.readOnlyReason());
}

void SceneDesk::refresh()
{
    if (!m_library.refresh())
        return;
    for (const QPointer<QWidget> &page : m_pages) {
        if (CListWidge *list = listOf(page))
            list->triggerUpdate();
    }
}

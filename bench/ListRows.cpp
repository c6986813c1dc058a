// SPDX-License-Identifier: MIT
// What a library of 10,000 slots costs: selecting, paging, sorting.
#include "bench/Rounds.h"
#include "bench/Rows.h"
#include "bench/Stage.h"
#include "widgets/buttons/COnOffButton.h"
#include "widgets/lists/CListWidge.h"

#include <QScrollBar>

#include <array>

namespace {

constexpr int Slots = 10000;
constexpr QSize ListSize(500, 600);

/// A slot with a title; every seventh is protected.
class BenchSlot : public CListWidgeItem
{
public:
    explicit BenchSlot(int slot)
        : m_slot(slot), m_title(QString("Scene %1").arg(slot * 7919 % Slots))
    {
    }

    int slotNumber() const override { return m_slot; }
    void store(QString &) override {}
    void recall(QString &) override {}
    void clear(QString &) override {}
    void undo() override {}
    void toggleProtection(QString &) override {}
    bool isReadOnly() const override { return false; }
    bool isProtected() const override { return m_slot % 7 == 0; }
    bool hasData() const override { return true; }
    IMemAPI *memAPI() const override { return nullptr; }
    void clearUndo() override {}
    void title(QString &text) const override { text = m_title; }
    bool hasUndo() const override { return false; }
    QDateTime timeStored() const override { return m_stored; }

private:
    const int m_slot;
    const QString m_title;
    const QDateTime m_stored{QDate(2026, 3, 12), QTime(19, 30)};
};

/// The library and a plain list of the same texts, each on a stage of its own.
struct ListScene
{
    ListScene()
    {
        QList<QTreeWidgetItem *> librarySlots;
        for (int slot = 1; slot <= Slots; ++slot)
            librarySlots << new BenchSlot(slot);
        library.addTopLevelItems(librarySlots);
        QList<QTreeWidgetItem *> items;
        for (const QTreeWidgetItem *slot : std::as_const(librarySlots))
            items << new QTreeWidgetItem(
                {slot->text(0), slot->text(1), slot->text(2), slot->text(3)});
        plain.setColumnCount(CListWidge::ColumnCount);
        plain.setUniformRowHeights(true);
        plain.setRootIsDecorated(false);
        plain.setAlternatingRowColors(true);
        plain.setSelectionMode(QTreeWidget::ExtendedSelection);
        plain.setSortingEnabled(true);
        plain.addTopLevelItems(items);
        for (QTreeWidget *list : {static_cast<QTreeWidget *>(&library), &plain}) {
            list->resize(ListSize);
            list->sortByColumn(0, Qt::AscendingOrder);
            list->show();
        }
        library.setStore(&keys[0]);
        library.setRecall(&keys[1]);
        library.setClear(&keys[2]);
        library.setUndo(&keys[3]);
        library.setProtect(&keys[4]);
        library.selectAll();
        Stage::frame();
        if (library.selectedRows().size() != Slots || !keys[0].isEnabled() || keys[3].isEnabled())
            qFatal("the library is not as it must be");
        library.clearSelection();
        Stage::frame();
    }

    /// What `step` costs with the frame that shows it, to the same in the plain list.
    Measurement compare(const std::function<void(QTreeWidget &)> &step)
    {
        const auto timed = [&step](const char *name, QTreeWidget &list) {
            return rounds::Case{name, rounds::worked([&step, &list] {
                                    step(list);
                                    Stage::frame();
                                })};
        };
        return rounds::compare({timed("library", library), timed("plain list", plain)},
                               rounds::firstToSecond);
    }

    Stage libraryStage;
    Stage plainStage;
    CListWidge library{&libraryStage.window()};
    QTreeWidget plain{&plainStage.window()};
    std::array<COnOffButton, 5> keys;
};

} // namespace

Measurement listSelection()
{
    ListScene scene;
    return scene.compare([](QTreeWidget &list) {
        list.selectAll();
        Stage::frame();
        list.clearSelection();
    });
}

Measurement listPaging()
{
    ListScene scene;
    return scene.compare([](QTreeWidget &list) {
        QScrollBar &bar = *list.verticalScrollBar();
        bar.setValue(bar.value() + bar.pageStep() > bar.maximum() ? 0
                                                                  : bar.value() + bar.pageStep());
    });
}

Measurement listSorting()
{
    ListScene scene;
    return scene.compare([](QTreeWidget &list) {
        list.sortByColumn(1, Qt::AscendingOrder);
        list.sortByColumn(0, Qt::AscendingOrder);
    });
}

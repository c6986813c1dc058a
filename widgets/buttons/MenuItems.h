// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/TestedExport.h"

#include <QHash>
#include <QStringList>

/// The items of a value menu and their places: an item's position in the list is its memory position,
/// its position in the menu is the same or, in a sorted menu, the place of its number among all numbers.
class CONSOLEWIDGETS_TESTED MenuItems
{
public:
    /// An item without a place in a sorted menu.
    static constexpr int NoPosition = -1;

    /// One line of the menu.
    struct Line
    {
        int position; ///< the line's identifier
        int item;     ///< index into the list
    };

    /// Takes items separated by ";", empty ones left out. The places stay as they are if there are none.
    void setList(const QString &list, bool sorted);
    /// The items, separated by ";".
    QString list() const;

    int count() const { return static_cast<int>(m_items.size()); }
    bool isEmpty() const { return m_items.isEmpty(); }
    bool contains(int position) const { return position >= 0 && position < count(); }

    /// The text of the item that stands at a menu position; null when there is none.
    QString textAt(int position) const;
    /// The numbers of a sorted list, ascending, as decimal text; empty for others.
    const QStringList &sortedTexts() const { return m_sortedTexts; }

    /// The menu from top to bottom; items without a place come last.
    QList<Line> lines() const;
    const QString &item(int index) const { return m_items.at(index); }

    /// Position in the menu to position in the list, and back. What is not mapped stands for itself.
    int toMemory(int position) const;
    int toMenu(int memoryPosition) const;

private:
    void place(bool sorted);

    QStringList m_items;
    QStringList m_sortedTexts;
    QHash<int, int> m_menuToMemory;
    QHash<int, int> m_memoryToMenu;
};

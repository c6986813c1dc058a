// SPDX-License-Identifier: MIT
#include "widgets/buttons/MenuItems.h"

#include <algorithm>

namespace {

constexpr QChar Separator = u';';

/// What is not a number counts as 0.
QStringList sortedNumbers(const QStringList &items)
{
    QList<int> numbers;
    numbers.reserve(items.size());
    for (const QString &item : items)
        numbers.append(item.toInt());
    std::sort(numbers.begin(), numbers.end());
    QStringList texts;
    texts.reserve(numbers.size());
    for (const int number : std::as_const(numbers))
        texts.append(QString::number(number));
    return texts;
}

int mapped(const QHash<int, int> &map, int position)
{
    return position == MenuItems::NoPosition ? position : map.value(position, position);
}

} // namespace

void MenuItems::setList(const QString &list, bool sorted)
{
    m_items = list.split(Separator, Qt::SkipEmptyParts);
    // Deliberate: an empty list leaves the places of the one before.
    if (!m_items.isEmpty())
        place(sorted);
}

void MenuItems::place(bool sorted)
{
    m_menuToMemory.clear();
    m_memoryToMenu.clear();
    m_sortedTexts = sorted ? sortedNumbers(m_items) : QStringList();
    QHash<QString, int> places;
    for (int place = 0; place < m_sortedTexts.size(); ++place) {
        if (!places.contains(m_sortedTexts.at(place)))
            places.insert(m_sortedTexts.at(place), place);
    }
    for (int item = 0; item < count(); ++item) {
        // Deliberate: the texts are compared, so that "07" or " 7" has no place though it is a number.
        const int position = sorted ? places.value(m_items.at(item), NoPosition) : item;
        m_menuToMemory.insert(position, item);
        m_memoryToMenu.insert(item, position);
    }
}

QString MenuItems::list() const
{
    return m_items.join(Separator);
}

QString MenuItems::textAt(int position) const
{
    return contains(position) ? m_items.value(toMemory(position)) : QString();
}

QList<MenuItems::Line> MenuItems::lines() const
{
    QList<Line> all;
    all.reserve(count());
    for (int item = 0; item < count(); ++item)
        all.append({toMenu(item), item});
    // As unsigned numbers, items without a place are the last.
    std::stable_sort(all.begin(), all.end(), [](const Line &one, const Line &other) {
        return static_cast<unsigned>(one.position) < static_cast<unsigned>(other.position);
    });
    return all;
}

int MenuItems::toMemory(int position) const
{
    return mapped(m_menuToMemory, position);
}

int MenuItems::toMenu(int memoryPosition) const
{
    return mapped(m_memoryToMenu, memoryPosition);
}

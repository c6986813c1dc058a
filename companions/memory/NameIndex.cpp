// SPDX-License-Identifier: MIT
#include "companions/memory/NameIndex.h"

#include "companions/memory/ConsoleModel.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <vector>

namespace {

constexpr int GivenElement = 0xFE;
constexpr int HexDigits = 2;
/// Names come from files: the edits to a name of a million letters are not worth counting.
constexpr qsizetype LongestName = 256;
constexpr IMemAPI::TSingleBaseAddress Nowhere{-1, -1, -1};

bool isUpperHex(QChar digit)
{
    return (digit >= u'0' && digit <= u'9') || (digit >= u'A' && digit <= u'F');
}

/// The number that two leading upper-case hexadecimal digits give. No block name starts like that,
/// because block names start with a lower-case letter.
std::optional<int> leadingHex(QStringView text)
{
    if (text.size() <= HexDigits || !isUpperHex(text[0]) || !isUpperHex(text[1]))
        return {};
    return text.first(HexDigits).toInt(nullptr, 16);
}

/// Edits (a letter inserted, removed or replaced) that lead from one text to the other.
int editDistance(QStringView from, QStringView to)
{
    std::vector<int> row(static_cast<size_t>(to.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (qsizetype i = 0; i < from.size(); ++i) {
        int diagonal = row[0];
        row[0] = static_cast<int>(i) + 1;
        for (qsizetype j = 0; j < to.size(); ++j) {
            const int replaced = diagonal + (from[i] == to[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

} // namespace

struct NameIndex::Entry
{
    QString name;
    std::optional<int> unit; ///< empty: the element given
    const Target *target = nullptr;
};

NameIndex::NameIndex(const ConsoleModel &model)
{
    for (const ConsoleModel::Parameter &parameter : model.parameters()) {
        const int group = model.groupOf(parameter);
        const QString name = model.addressOf(parameter);
        m_targets.insert(name, {group, parameter.index, parameter.elements});
        m_names.insert({group, parameter.index}, name);
    }
}

NameIndex::Entry NameIndex::entryFor(QStringView name) const
{
    Entry entry;
    if (const auto unit = leadingHex(name)) {
        if (*unit != GivenElement)
            entry.unit = unit;
        name = name.sliced(HexDigits);
    }
    entry.name = name.toString();
    const auto target = m_targets.constFind(entry.name);
    entry.target = target == m_targets.constEnd() ? nullptr : &*target;
    return entry;
}

NameIndex::Result NameIndex::resolveEntry(const Entry &entry, int element) const
{
    if (!entry.target)
        return {UnknownName, {}, entry.name};
    element = entry.unit.value_or(element);
    const bool exists = element >= 0 && element < entry.target->elements;
    return {exists ? Found : NoSuchElement,
            {static_cast<qint16>(entry.target->group), static_cast<qint16>(element),
             static_cast<qint16>(entry.target->index)},
            {}};
}

NameIndex::Result NameIndex::resolve(const QString &names, int element) const
{
    const QList<QStringView> list = QStringView(names).split(u';');
    const Entry first = entryFor(list.first().trimmed());
    if (list.size() == 1 || !first.target || element < first.target->elements)
        return resolveEntry(first, element);
    int channel = element - first.target->elements;
    for (QStringView text : list.sliced(1)) {
        text = text.trimmed();
        const auto count = leadingHex(text);
        if (!count)
            return {UnknownName, {}, text.toString()};
        if (channel < *count)
            return resolveEntry(entryFor(text.sliced(HexDigits)), channel);
        channel -= *count;
    }
    return {NoSuchElement, Nowhere, {}};
}

QList<IMemAPI::TSingleAddress> NameIndex::channelRanges(const QString &names) const
{
    QList<IMemAPI::TSingleAddress> ranges;
    int firstChannel = 0;
    for (QStringView text : QStringView(names).split(u';')) {
        text = text.trimmed();
        const auto count = ranges.isEmpty() ? std::nullopt : leadingHex(text);
        if (!ranges.isEmpty() && !count)
            break;
        const Entry entry = entryFor(count ? text.sliced(HexDigits) : text);
        if (!entry.target)
            break;
        const int channels = count.value_or(entry.target->elements);
        ranges.append({{static_cast<qint16>(entry.target->group), 0,
                        static_cast<qint16>(entry.target->index)},
                       static_cast<qint16>(firstChannel),
                       static_cast<qint16>(channels)});
        firstChannel += channels;
    }
    return ranges;
}

QString NameIndex::nearest(const QString &name) const
{
    const QString wanted = entryFor(name).name;
    if (wanted.size() > LongestName)
        return {};
    QString nearest;
    int fewest = 0;
    for (auto known = m_targets.keyBegin(); known != m_targets.keyEnd(); ++known) {
        const int edits = editDistance(wanted, *known);
        // Of equally near names the first in the alphabet, so that the answer is always the same.
        if (nearest.isNull() || edits < fewest || (edits == fewest && *known < nearest)) {
            nearest = *known;
            fewest = edits;
        }
    }
    return nearest;
}

QString NameIndex::nameOf(int group, int index) const
{
    return m_names.value({group, index});
}

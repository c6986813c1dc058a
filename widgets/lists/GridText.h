// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

/// Reads the lists that a grid's text properties are. The texts come from form files: whatever is in
/// them is read in one pass.
namespace gridtext {

constexpr bool isBlank(QChar character)
{
    return character == u' ' || (character >= u'\t' && character <= u'\r');
}

/// Calls `take` with each item of a list in turn, until it says false. White space around a separator
/// belongs to it; that at the two ends of the text does not. There is always at least one item.
template<class Take>
void forEachItem(QStringView text, QChar separator, Take take)
{
    for (bool first = true;; first = false) {
        const qsizetype end = text.indexOf(separator);
        QStringView item = end < 0 ? text : text.first(end);
        while (!first && !item.isEmpty() && isBlank(item.front()))
            item = item.sliced(1);
        while (end >= 0 && !item.isEmpty() && isBlank(item.back()))
            item.chop(1);
        if (!take(item) || end < 0)
            return;
        text = text.sliced(end + 1);
    }
}

/// The item as a number inside the range, or else the other number.
inline int numberOr(QStringView item, int lowest, int highest, int otherwise)
{
    bool isNumber = false;
    const int number = item.toInt(&isNumber);
    return isNumber && number >= lowest && number <= highest ? number : otherwise;
}

} // namespace gridtext

// SPDX-License-Identifier: MIT
#include "widgets/lists/GridDisabledCells.h"

#include "widgets/lists/GridText.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <limits>

namespace {

/// The last cell of `count` cells from `first` on; sums beyond all numbers end at the last number.
int last(int first, int count)
{
    const qint64 cell = qint64(first) + count - 1;
    return static_cast<int>(std::min<qint64>(cell, std::numeric_limits<int>::max()));
}

} // namespace

void GridDisabledCells::add(QStringView text)
{
    static const QRegularExpression form(QStringLiteral(R"(\(\d+,\d+,\d+,\d+\))"));
    gridtext::forEachItem(text, u';', [this](QStringView item) {
        QString numbers = item.toString().remove(u' ');
        const bool accepted = form.match(numbers, 0, QRegularExpression::NormalMatch,
                                         QRegularExpression::AnchorAtOffsetMatchOption)
                                  .hasMatch();
        if (!accepted)
            return true;
        // What follows the closing parenthesis belongs to the last number, which it spoils.
        numbers.remove(u'(').remove(u')');
        std::array<int, 4> parts{};
        size_t known = 0;
        gridtext::forEachItem(numbers, u',', [&](QStringView part) {
            parts[known++] = part.toInt();
            return known < parts.size();
        });
        const auto [column, row, columns, rows] = parts;
        m_rectangles.emplace_back(QPoint(column, row),
                                  QPoint(last(column, columns), last(row, rows)));
        return true;
    });
}

bool GridDisabledCells::contains(int column, int row) const
{
    return std::any_of(m_rectangles.begin(), m_rectangles.end(), [=](const QRect &each) {
        return column >= each.left() && column <= each.right() && row >= each.top()
               && row <= each.bottom();
    });
}

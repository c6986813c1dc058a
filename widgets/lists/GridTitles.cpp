// SPDX-License-Identifier: MIT
#include "widgets/lists/GridTitles.h"

#include "widgets/lists/GridAxis.h"
#include "widgets/lists/GridText.h"

namespace {
constexpr QStringView RunMark = u"..";
} // namespace

void GridTitles::setText(const QString &text)
{
    m_text = text;
    m_titles.clear();
    if (text.isEmpty())
        return;
    gridtext::forEachItem(text, u';', [this](QStringView item) {
        addItem(item);
        return m_titles.size() < GridAxis::MostCells;
    });
}

void GridTitles::addItem(QStringView item)
{
    const qsizetype mark = item.lastIndexOf(RunMark);
    qsizetype digits = std::max<qsizetype>(mark, 0);
    while (digits > 0 && item[digits - 1] >= u'0' && item[digits - 1] <= u'9')
        --digits;
    bool begins = false;
    bool ends = false;
    const int first = mark < 0 ? 0 : item.sliced(digits, mark - digits).toInt(&begins);
    const int last = mark < 0 ? 0 : item.sliced(mark + RunMark.size()).toInt(&ends);
    if (!begins || !ends || last < first) {
        m_titles.append(item.toString());
        return;
    }
    const QString name = item.first(digits).toString();
    for (qint64 number = first; number <= last && m_titles.size() < GridAxis::MostCells; ++number)
        m_titles.append(name + QString::number(number));
}

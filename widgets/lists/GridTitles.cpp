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

struct GridTitles::Run
{
    QStringView name;
    int first = 0;
    int last = 0;
};

std::optional<GridTitles::Run> GridTitles::readRun(QStringView item)
{
    const qsizetype mark = item.lastIndexOf(RunMark);
    if (mark < 0)
        return {};
    qsizetype digits = mark;
    while (digits > 0 && item[digits - 1] >= u'0' && item[digits - 1] <= u'9')
        --digits;
    bool begins = false;
    bool ends = false;
    const Run run{item.first(digits), item.sliced(digits, mark - digits).toInt(&begins),
                  item.sliced(mark + RunMark.size()).toInt(&ends)};
    if (!begins || !ends || run.last < run.first)
        return {};
    return run;
}

bool GridTitles::isRun(QStringView item)
{
    return readRun(item).has_value();
}

void GridTitles::addItem(QStringView item)
{
    const std::optional<Run> run = readRun(item);
    if (!run) {
        m_titles.append(item.toString());
        return;
    }
    const QString name = run->name.toString();
    for (qint64 number = run->first; number <= run->last && m_titles.size() < GridAxis::MostCells;
         ++number)
        m_titles.append(name + QString::number(number));
}

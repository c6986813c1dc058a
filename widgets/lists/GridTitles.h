// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/TestedExport.h"

#include <QStringList>

#include <optional>

/// What the channels or fields of a grid are called: a list "CH 1..48; ST 1L; ST 1R", in which a run
/// stands for titles with ascending numbers.
class CONSOLEWIDGETS_TESTED GridTitles
{
public:
    const QString &text() const { return m_text; }
    /// Titles beyond the most cells that an axis can have are left out.
    void setText(const QString &text);

    /// Whether an item of such a list is a run.
    static bool isRun(QStringView item);

    int count() const { return static_cast<int>(m_titles.size()); }
    /// Empty when the list has no title for it.
    QString title(int number) const { return m_titles.value(number); }

private:
    struct Run;

    static std::optional<Run> readRun(QStringView item);
    void addItem(QStringView item);

    QString m_text;
    QStringList m_titles;
};

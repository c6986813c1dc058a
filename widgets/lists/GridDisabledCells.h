// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/TestedExport.h"

#include <QRect>
#include <QStringView>

#include <vector>

/// The cells of a grid that connect nothing: rectangles of cells that were named in text.
class CONSOLEWIDGETS_TESTED GridDisabledCells
{
public:
    /// Adds the rectangles of a list "(column,row,columns,rows); ...". What does not begin like that is
    /// skipped. Earlier rectangles stay.
    void add(QStringView text);

    bool contains(int column, int row) const;

    /// In cells, both ends included; empty ones disable nothing.
    const std::vector<QRect> &rectangles() const { return m_rectangles; }

private:
    std::vector<QRect> m_rectangles;
};

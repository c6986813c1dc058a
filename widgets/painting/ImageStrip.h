// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/TestedExport.h"

#include <QPixmap>
#include <QRect>
#include <QSizeF>

#include <optional>

class QObject;
class Picture;

/// A picture that is a grid of equal cells, columns and rows; pixels that do not divide are cut off.
namespace picturecells {

/// The pixels of the cell in column x and row y; a negative column is column 0. Empty if there is none.
CONSOLEWIDGETS_TESTED QRect cell(const QPixmap &picture, const QSize &grid, const QPoint &at);
/// What a cell takes, device-independent; empty without cells.
CONSOLEWIDGETS_TESTED QSizeF exactSize(const QPixmap &picture, const QSize &grid);
/// The same for layouts: as many whole device-independent pixels as it has a part of.
CONSOLEWIDGETS_TESTED QSize size(const QPixmap &picture, const QSize &grid);

} // namespace picturecells

/// All pictures of a control in one: a grid of equal cells, the columns being alternative looks
/// (categories) and the rows value positions, one of which may show the disabled control.
/// Sizes for layout and drawing are device-independent: a picture with device pixel ratio 2 counts
/// half its pixels. GUI thread.
class CONSOLEWIDGETS_TESTED ImageStrip
{
public:
    /// The whole strip, its device pixel ratio included; null: none.
    const QPixmap &picture() const { return m_picture; }
    /// Takes effect at once; rows and categories stay.
    void setPicture(const QPixmap &picture);

    /// Pictures below one another.
    int rows() const { return m_rows; }
    /// At least one that exists is needed for anything to be drawn.
    void setRows(int rows);

    /// Pictures side by side.
    int categories() const { return m_categories; }
    /// Keeps the value modulo 8.
    void setCategories(int categories);

    /// The row of the disabled picture; negative: none, the disabled control is shown grey.
    int disabledRow() const { return m_disabledRow; }
    void setDisabledRow(int row) { m_disabledRow = row; }

    /// The column in use; -1 until one is chosen, drawn as column 0.
    int currentCategory() const { return m_currentCategory; }
    /// False, and nothing changed, for a column at or beyond the number of categories.
    bool setCurrentCategory(int category);

    /// How many rows stand for values.
    int valueRows() const { return m_rows - (m_disabledRow >= 0 ? 1 : 0); }

    /// The size of one cell; empty without a picture or cells.
    QSizeF cellSize() const
    {
        if (m_cellSize.isNull())
            measure();
        return m_cellSize;
    }

    /// Whether one cell covers a widget of that size without letting anything shine through.
    bool covers(const QSize &size) const;

    /// Whether `point` lies inside the outline of the cell that is shown: between the
    /// leftmost and the rightmost visible pixel of its line.
    bool outlineContains(int row, bool enabled, const QPoint &point) const;

    /// The pixels of a cell; empty if there is none.
    QRect cell(int category, int row) const;

    /// Adds the look of a control at value row `row` to its picture, in the upper left corner: when
    /// disabled the disabled picture or else column 0 in grey. Nothing for rows that do not exist.
    void describe(Picture &picture, int row, bool enabled) const;

    /// One warning, naming `owner`, when rows or columns do not divide the picture.
    void warnIfUneven(const QObject &owner) const;

private:
    void gridChanged();
    void measure() const;
    QPoint shownCell(int row, bool enabled) const;
    const QPixmap &grey(int row) const;

    QPixmap m_picture;
    mutable QSizeF m_cellSize{0, 0}; ///< null until it is asked for
    int m_rows = 1;
    int m_disabledRow = -1;
    int m_currentCategory = -1;
    unsigned m_categories : 3 = 1;
    bool m_opaque = false;
    mutable int m_greyRow = -1;
    mutable std::optional<QPixmap> m_grey; ///< the row told by m_greyRow
};

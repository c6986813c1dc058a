// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

#include <QWidget>

#include <memory>

class CGrid;
class QMenu;

/// What stands around a grid: a caption, the titles of its columns and rows, and the pair under the
/// cursor in words. In a form it is a widget with one CGrid inside; it places the grid and takes the
/// titles from it. The titles of the cursor's row and column are lit.
///
/// A right click (on a cell, or on the title of a row) offers what can be done with the row as a whole,
/// and with the field where fields are bits of a mask.
class CONSOLEWIDGETS_EXPORT GridPanel : public QWidget
{
    Q_OBJECT
    /// What stands over the titles. Empty (default): nothing.
    Q_PROPERTY(QString caption READ caption WRITE setCaption)
    /// Of caption and lit titles; the palette's highlight colour while invalid (default).
    Q_PROPERTY(QColor accentColor READ accentColor WRITE setAccentColor)

public:
    explicit GridPanel(QWidget *parent = nullptr, const char *name = nullptr);
    ~GridPanel() override;

    QString caption() const;
    void setCaption(const QString &caption);
    QColor accentColor() const;
    void setAccentColor(const QColor &colour);

    /// The grid inside; null while there is none.
    CGrid *grid() const;
    /// The pair under the cursor and its state; empty when the operator points at none.
    QString pairText() const;
    /// What can be done around a cell; null when there is nothing. Deletes itself when closed.
    QMenu *bulkMenu(int row, int column);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void adopt(CGrid *grid);
    void arrange();
    void showPair();
    void hidePair();
    void paintTitles(QPainter &painter);

    struct Private;
    std::unique_ptr<Private> d;
};

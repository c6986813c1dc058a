// SPDX-License-Identifier: MIT
#include "widgets/lists/GridPanel.h"

#include "widgets/lists/CGrid.h"
#include "widgets/lists/GridAccessible.h"

#include <QChildEvent>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <QPointer>

namespace {

constexpr int CaptionHeight = 24;
constexpr int Gap = 5; ///< between titles and grid
constexpr int TitlePixels = 9;
constexpr int LeastTitles = 24;

} // namespace

struct GridPanel::Private
{
    QPointer<CGrid> grid;
    QString caption;
    QColor accent;
    QFont titleFont;
    QSize margins; ///< what row titles and column titles take, the caption included
    bool pairShown = false;
    QString pair;
    int row = -1; ///< those whose titles are lit
    int column = -1;

    QString rowTitle(int number) const
    {
        return grid->orientation() == CGrid::ChannelsAcross ? grid->fieldTitle(number)
                                                            : grid->channelTitle(number);
    }
    QString columnTitle(int number) const
    {
        return grid->orientation() == CGrid::ChannelsAcross ? grid->channelTitle(number)
                                                            : grid->fieldTitle(number);
    }
};

GridPanel::GridPanel(QWidget *parent, const char *name)
    : QWidget(parent), d(std::make_unique<Private>())
{
    if (name)
        setObjectName(QLatin1String(name));
    d->titleFont = font();
    d->titleFont.setPixelSize(TitlePixels);
}

GridPanel::~GridPanel() = default;

QString GridPanel::caption() const
{
    return d->caption;
}

void GridPanel::setCaption(const QString &caption)
{
    d->caption = caption;
    update();
}

QColor GridPanel::accentColor() const
{
    return d->accent.isValid() ? d->accent : palette().color(QPalette::Highlight);
}

void GridPanel::setAccentColor(const QColor &colour)
{
    d->accent = colour;
    update();
}

CGrid *GridPanel::grid() const
{
    return d->grid;
}

QString GridPanel::pairText() const
{
    return d->pair;
}

QSize GridPanel::sizeHint() const
{
    return d->grid ? d->grid->size() + d->margins : QSize(LeastTitles, CaptionHeight);
}

bool GridPanel::event(QEvent *event)
{
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::ChildPolished && !d->grid) {
        if (auto *grid = qobject_cast<CGrid *>(static_cast<QChildEvent *>(event)->child()))
            adopt(grid);
    }
    return handled;
}

/// The titles stand where the grid does.
bool GridPanel::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == d->grid && event->type() == QEvent::Move)
        update();
    return QWidget::eventFilter(watched, event);
}

void GridPanel::adopt(CGrid *grid)
{
    d->grid = grid;
    grid->installEventFilter(this);
    connect(grid, &CGrid::layoutChanged, this, &GridPanel::arrange);
    connect(grid, &CGrid::cursorMoved, this, &GridPanel::showPair);
    connect(grid, &CGrid::cursorOff, this, &GridPanel::hidePair);
    connect(grid, &CGrid::patchUpdated, this, [this] {
        if (d->pairShown)
            showPair();
    });
    arrange();
}

void GridPanel::arrange()
{
    const QFontMetrics metrics(d->titleFont);
    QSize longest(LeastTitles, LeastTitles);
    for (int row = 0; row < d->grid->rows(); ++row)
        longest.rwidth() = std::max(longest.width(), metrics.horizontalAdvance(d->rowTitle(row)));
    for (int column = 0; column < d->grid->cols(); ++column) {
        const int length = metrics.horizontalAdvance(d->columnTitle(column));
        longest.rheight() = std::max(longest.height(), length);
    }
    d->margins = longest + QSize(2 * Gap, CaptionHeight + 2 * Gap);
    d->grid->move(d->margins.width(), d->margins.height());
    updateGeometry();
    update();
}

void GridPanel::showPair()
{
    const QPoint cell = d->grid->cursorCell();
    d->pairShown = true;
    d->row = cell.y();
    d->column = cell.x();
    d->pair = tr("%1: %2").arg(GridAccessible::pairInWords(*d->grid, cell.y(), cell.x()),
                               GridAccessible::stateInWords(*d->grid, cell.y(), cell.x()));
    update(0, 0, width(), d->grid->y());
    update(0, 0, d->grid->x(), height());
}

void GridPanel::hidePair()
{
    d->pairShown = false;
    d->row = d->column = -1;
    d->pair.clear();
    update();
}

void GridPanel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QRect line(d->margins.width(), 0, width() - d->margins.width(), CaptionHeight);
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(accentColor());
    painter.drawText(line, Qt::AlignVCenter | Qt::AlignLeft, d->caption);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.setFont(font());
    const int captionEnd = QFontMetrics(bold).horizontalAdvance(d->caption) + 4 * Gap;
    painter.drawText(line.adjusted(captionEnd, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, d->pair);
    if (d->grid)
        paintTitles(painter);
}

void GridPanel::paintTitles(QPainter &painter)
{
    const QColor plain = palette().color(QPalette::WindowText);
    const CGrid &grid = *d->grid;
    painter.setFont(d->titleFont);
    const int room = d->margins.width() - Gap;
    for (int row = 0; row < grid.rows(); ++row) {
        const int top = grid.y() + grid.cellTop(row);
        painter.setPen(row == d->row ? accentColor() : plain);
        painter.drawText(QRect(0, top, room, grid.cellBottom(row) - grid.cellTop(row)),
                         Qt::AlignVCenter | Qt::AlignRight | Qt::TextDontClip, d->rowTitle(row));
    }
    painter.rotate(-90);
    for (int column = 0; column < grid.cols(); ++column) {
        const int left = grid.x() + grid.cellLeft(column);
        const int width = grid.cellRight(column) - grid.cellLeft(column);
        painter.setPen(column == d->column ? accentColor() : plain);
        painter.drawText(QRect(Gap - grid.y(), left, grid.y() - CaptionHeight, width),
                         Qt::AlignVCenter | Qt::AlignLeft | Qt::TextDontClip,
                         d->columnTitle(column));
    }
    painter.rotate(90);
}

void GridPanel::contextMenuEvent(QContextMenuEvent *event)
{
    if (!d->grid || !d->grid->isEnabled() || d->grid->disabledUI())
        return;
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QPoint point = d->grid->mapFromGlobal(event->globalPos());
    const QPoint pointed(d->grid->pixelToIndexX(point.x()), d->grid->pixelToIndexY(point.y()));
    const QPoint cell = byKey ? d->grid->cursorCell() : pointed;
    if (QMenu *menu = point.y() < 0 && !byKey ? nullptr : bulkMenu(cell.y(), cell.x()))
        menu->popup(byKey ? d->grid->mapToGlobal(QPoint(0, 0)) : event->globalPos());
}

QMenu *GridPanel::bulkMenu(int row, int column)
{
    if (!d->grid || !d->grid->hasCell(row, column))
        return nullptr;
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    CGrid *grid = d->grid;
    menu->addAction(tr("Clear %1").arg(d->rowTitle(row)), grid,
                    [grid, row] { grid->clearRow(row); });
    if (!grid->valueAsBitMask() || grid->addresses().isEmpty())
        return menu;
    const int field = grid->fieldOf(row, column);
    menu->addSeparator();
    menu->addAction(tr("Connect all to %1").arg(grid->fieldTitle(field)), grid,
                    [grid, field] { grid->setAllChannelsForField(field, true); });
    menu->addAction(tr("Disconnect all from %1").arg(grid->fieldTitle(field)), grid,
                    [grid, field] { grid->setAllChannelsForField(field, false); });
    return menu;
}

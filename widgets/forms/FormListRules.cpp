// SPDX-License-Identifier: MIT
#include "widgets/forms/FormRules.h"

#include "widgets/buttons/COnOffButton.h"
#include "widgets/buttons/CPullDownMenu.h"
#include "widgets/lists/CGrid.h"
#include "widgets/lists/CListWidge.h"
#include "widgets/lists/GridAxis.h"
#include "widgets/lists/GridDisabledCells.h"
#include "widgets/lists/GridNumbering.h"
#include "widgets/lists/GridText.h"
#include "widgets/lists/GridTitles.h"
#include "widgets/meters/CPixmapMeter.h"

#include <QCoreApplication>

namespace {

QString tr(const char *source)
{
    return QCoreApplication::translate("FormCheck", source);
}

void reportItem(const CheckedWidget &widget, const char *property, QStringView item,
                const QString &fault)
{
    constexpr qsizetype longestQuote = 40;
    const QString quoted = item.size() > longestQuote
                               ? item.first(longestQuote).toString() + u'\u2026'
                               : item.toString();
    widget.report(FormFinding::List, property,
                  tr("the item \"%1\" is passed over: %2").arg(quoted, fault));
}

/// Calls `visit` with each item of a list and its place. A separator at the end begins no item.
template<class Visit>
void forEachItem(const CheckedWidget &widget, const char *property, QChar separator, Visit visit)
{
    const QString text = widget.text(property);
    const QList<QStringView> items = QStringView(text).split(separator);
    for (qsizetype place = 0; place < items.size(); ++place) {
        const QStringView item = items[place].trimmed();
        if (!item.isEmpty() || place + 1 < items.size())
            visit(item, static_cast<int>(place));
    }
}

void checkMenu(const CheckedWidget &widget)
{
    const char *const list = "menuItemList";
    const bool sorted = widget.as<CPullDownMenu>()->sorted();
    const QString text = widget.text(list);
    const QStringList items = text.split(u';');
    for (qsizetype place = 0; place + 1 < items.size(); ++place) {
        if (items[place].isEmpty())
            reportItem(widget, list, items[place],
                       tr("those behind number %1 move up").arg(place + 1));
    }
    for (const QString &item : items) {
        if (sorted && !item.isEmpty() && item != QString::number(item.toInt()))
            reportItem(widget, list, item, tr("a sorted menu has plain numbers only"));
    }
}

void checkBounds(const CheckedWidget &widget)
{
    const char *const list = "boundList";
    const int rows = widget.number("nSubImages");
    int last = -1;
    forEachItem(widget, list, u';', [&](QStringView item, int place) {
        bool valid = false;
        const int code = item.toUShort(&valid, 16);
        if (!valid)
            reportItem(widget, list, item, tr("it is no hexadecimal code up to FFFF"));
        else if (place >= rows)
            reportItem(widget, list, item, tr("there are %1 pictures").arg(rows));
        else if (code < last)
            reportItem(widget, list, item, tr("codes ascend"));
        last = valid ? code : last;
    });
}

void checkSizes(const CheckedWidget &widget, const char *list, const char *countProperty,
                int lowest, int highest)
{
    const int cells = widget.number(countProperty);
    if (widget.writesBefore(list, countProperty))
        widget.report(FormFinding::List, list, tr("it must stand behind %1").arg(countProperty));
    forEachItem(widget, list, u',', [&](QStringView item, int place) {
        bool valid = false;
        const int size = item.toInt(&valid);
        if (place == cells)
            reportItem(widget, list, item, tr("%1 is %2").arg(countProperty).arg(cells));
        else if (place < cells && (!valid || size < lowest || size > highest))
            reportItem(widget, list, item,
                       tr("it is no number from %1 to %2").arg(lowest).arg(highest));
    });
}

void checkTitles(const CheckedWidget &widget, const char *list, int cells)
{
    GridTitles titles;
    titles.setText(widget.text(list));
    if (titles.count() > cells)
        widget.report(FormFinding::List, list,
                      tr("%1 titles for %2").arg(titles.count()).arg(cells));
    forEachItem(widget, list, u';', [&](QStringView item, int) {
        if (item.contains(u"..") && !GridTitles::isRun(item))
            reportItem(widget, list, item, tr("it is no run of ascending numbers"));
    });
}

void checkBitOrder(const CheckedWidget &widget)
{
    const char *const list = "bitOrder";
    forEachItem(widget, list, u';', [&](QStringView item, int) {
        if (!GridNumbering::isBitOrder(item)) {
            reportItem(widget, list, item, tr("it is no \"first,last:position,position...\""));
            return;
        }
        const QStringView positions = item.sliced(item.indexOf(u':') + 1);
        for (const QStringView position : positions.split(u',')) {
            if (gridtext::numberOr(position.trimmed(), 0, GridNumbering::Bits - 1, -1) < 0)
                reportItem(widget, list, position, tr("it is no bit from 0 to 31"));
        }
    });
}

void checkDisabledCells(const CheckedWidget &widget, const CGrid &grid)
{
    const char *const list = "disabledRects";
    forEachItem(widget, list, u';', [&](QStringView item, int) {
        GridDisabledCells one;
        one.add(item);
        if (one.rectangles().empty()) {
            reportItem(widget, list, item, tr("it is no \"(column,row,columns,rows)\""));
            return;
        }
        const QRect cells = one.rectangles().front();
        if (cells.right() < cells.left() || cells.bottom() < cells.top()
            || cells.left() >= grid.cols() || cells.top() >= grid.rows())
            reportItem(widget, list, item, tr("it has no cell of the grid"));
    });
}

void checkGrid(const CheckedWidget &widget, const CGrid &grid)
{
    checkSizes(widget, "cellWidths", "verCount", GridAxis::LeastSize, GridAxis::MostSize);
    checkSizes(widget, "cellHeights", "horCount", GridAxis::LeastSize, GridAxis::MostSize);
    checkSizes(widget, "gridWidths", "verCount", GridAxis::LeastLine, GridAxis::MostLine);
    checkSizes(widget, "gridHeights", "horCount", GridAxis::LeastLine, GridAxis::MostLine);
    checkTitles(widget, "channelTitles", grid.channels());
    checkTitles(widget, "fieldTitles", grid.fields());
    checkBitOrder(widget);
    checkDisabledCells(widget, grid);
}

} // namespace

void formrules::checkKeys(const CheckedWidget &widget, const QWidget &form)
{
    if (!widget.as<CListWidge>())
        return;
    const auto check = [&](const char *property, bool wantsList) {
        const QString name = widget.text(property);
        const auto *named = form.findChild<QWidget *>(name);
        const bool fits = wantsList ? qobject_cast<const CListWidge *>(named) != nullptr
                                    : qobject_cast<const COnOffButton *>(named) != nullptr;
        if (!name.isEmpty() && !fits)
            widget.report(FormFinding::Connection, property,
                          named ? tr("'%1' is no %2").arg(name, wantsList ? tr("list") : tr("key"))
                                : tr("no widget '%1'").arg(name));
    };
    for (const char *key :
         {"storeButton", "recallButton", "clearButton", "undoButton", "protectButton"})
        check(key, false);
    check("otherList", true);
}

void formrules::checkLists(const CheckedWidget &widget)
{
    if (widget.as<CPullDownMenu>())
        checkMenu(widget);
    else if (widget.as<CPixmapMeter>())
        checkBounds(widget);
    else if (const auto *grid = widget.as<CGrid>())
        checkGrid(widget, *grid);
}

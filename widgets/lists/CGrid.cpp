// SPDX-License-Identifier: MIT
// The grid's properties and cells.
#include "widgets/lists/CGrid.h"

#include "widgets/lists/CGridPrivate.h"
#include "widgets/lists/GridAccessible.h"
#include "widgets/painting/Opacity.h"

#include <QBitmap>

namespace {

constexpr int StartCount = 16;
constexpr int LeastThickness = 2;
constexpr int MostThickness = 13;
// Columns come in pairs, to the eye.
constexpr int ColumnLine = 1;
constexpr int PairLine = 2;

} // namespace

// Deliberate: the name is not passed on; grids have no name of their own.
CGrid::CGrid(QWidget *parent, const char *) : QWidget(parent), d(std::make_unique<Private>(*this))
{
    GridAccessible::install();
    setAttribute(Qt::WA_StaticContents);
    setAttribute(Qt::WA_NoSystemBackground);
    opacity::set(*this, true);
    setHorCount(StartCount);
    setVerCount(StartCount);
    TMemProxy::setNumDefaultKind(0);
    TMemProxy::setUndoEnable(false);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    if (parent) {
        QPalette own = palette();
        own.setColor(backgroundRole(), parent->palette().color(parent->backgroundRole()));
        setPalette(own);
    }
}

CGrid::~CGrid()
{
    leaveMemory();
}

int CGrid::groupIndexStart() const
{
    return d->addressing.numbering.groupIndexStart();
}

void CGrid::setGroupIndexStart(int bit)
{
    d->addressing.numbering.setGroupIndexStart(bit);
    clearBG();
}

QString CGrid::cellWidths() const
{
    return d->cellWidths;
}

void CGrid::setCellWidths(const QString &text)
{
    d->cellWidths = text;
    d->styleCustomised = true;
    d->columns.setSizes(text);
    initGridArea();
}

QString CGrid::cellHeights() const
{
    return d->cellHeights;
}

void CGrid::setCellHeights(const QString &text)
{
    d->cellHeights = text;
    d->styleCustomised = true;
    d->rows.setSizes(text);
    initGridArea();
}

QString CGrid::gridWidths() const
{
    return d->gridWidths;
}

void CGrid::setGridWidths(const QString &text)
{
    d->gridWidths = text;
    d->styleCustomised = true;
    d->columns.setLines(text);
    initGridArea();
}

QString CGrid::gridHeights() const
{
    return d->gridHeights;
}

void CGrid::setGridHeights(const QString &text)
{
    d->gridHeights = text;
    d->styleCustomised = true;
    d->rows.setLines(text);
    initGridArea();
}

QPixmap CGrid::ballImg() const
{
    return d->ball;
}

void CGrid::setBallImg(const QPixmap &picture)
{
    d->ball = picture;
    if (!picture.isNull())
        d->ball.setMask(picture.createHeuristicMask());
    update();
}

QString CGrid::bitOrder() const
{
    return d->bitOrder;
}

void CGrid::setBitOrder(const QString &text)
{
    d->bitOrder = text;
    d->addressing.numbering.addBitOrder(text);
    clearBG();
}

QString CGrid::disabledRects() const
{
    return d->disabledRects;
}

void CGrid::setDisabledRects(const QString &text)
{
    d->disabledRects = text;
    d->disabled.add(text);
    update();
}

int CGrid::cursorThickness() const
{
    return d->cursorThickness;
}

void CGrid::setCursorThickness(const int thickness)
{
    if (thickness < LeastThickness || thickness > MostThickness || thickness == d->cursorThickness)
        return;
    d->cursorThickness = thickness;
    update();
}

CGrid::GridOrientation CGrid::orientation() const
{
    return d->orientation;
}

void CGrid::setOrientation(const GridOrientation orientation)
{
    d->orientation = orientation;
    initGridArea();
}

bool CGrid::valueAsBitMask() const
{
    return d->valueAsBitMask;
}

void CGrid::setValueAsBitMask(bool on)
{
    d->valueAsBitMask = on;
    clearBG();
}

void CGrid::setAllFieldIndex(const int field)
{
    d->addressing.allField = field;
}

QColor CGrid::cursorLineColor() const
{
    return d->cursorLineColor;
}

void CGrid::setCursorLineColor(const QColor &colour)
{
    d->cursorLineColor = colour;
    update();
}

QColor CGrid::gridLineColor() const
{
    return d->gridLineColor;
}

void CGrid::setGridLineColor(const QColor &colour)
{
    d->gridLineColor = colour;
    update();
}

bool CGrid::multiMode() const
{
    return d->multiMode;
}

void CGrid::setMultiMode(bool on)
{
    d->multiMode = on;
    clearBG();
}

QString CGrid::channelTitles() const
{
    return d->channelTitles.text();
}

void CGrid::setChannelTitles(const QString &text)
{
    d->channelTitles.setText(text);
    Q_EMIT layoutChanged();
}

QString CGrid::fieldTitles() const
{
    return d->fieldTitles.text();
}

void CGrid::setFieldTitles(const QString &text)
{
    d->fieldTitles.setText(text);
    Q_EMIT layoutChanged();
}

// Cells -----------------------------------------------------------------------------------------

int CGrid::rows() const
{
    return d->rows.count();
}

int CGrid::cols() const
{
    return d->columns.count();
}

void CGrid::setHorCount(int rows)
{
    d->rows.setCount(rows);
    if (!d->styleCustomised)
        initDefaultStyle();
    initGridArea();
    repaint();
}

void CGrid::setVerCount(int columns)
{
    d->columns.setCount(columns);
    if (!d->styleCustomised)
        initDefaultStyle();
    initGridArea();
    repaint();
}

void CGrid::initDefaultStyle()
{
    d->columns.setDefaultStyle(ColumnLine, PairLine);
    d->rows.setDefaultStyle(PairLine, PairLine);
}

/// Sizes, counts or orientation have changed.
void CGrid::initGridArea()
{
    d->addressing.channels = channels();
    const QPoint last(std::max(0, cols() - 1), std::max(0, rows() - 1));
    d->cursor = {std::min(d->cursor.x(), last.x()), std::min(d->cursor.y(), last.y())};
    setFixedSize(gridWidth(), gridHeight());
    clearBG();
    Q_EMIT layoutChanged();
}

void CGrid::clearBG()
{
    d->forgetSeen();
    update();
}

bool CGrid::hasCell(int row, int column) const
{
    return d->rows.has(row) && d->columns.has(column);
}

bool CGrid::isCellDisabled(int row, int column) const
{
    return d->disabled.contains(column, row);
}

QPoint CGrid::cursorCell() const
{
    return d->cursor;
}

QString CGrid::channelTitle(int channel) const
{
    const QString title = d->channelTitles.title(channel);
    return title.isEmpty() ? tr("Channel %1").arg(channel + 1) : title;
}

QString CGrid::fieldTitle(int field) const
{
    const QString title = d->fieldTitles.title(field);
    return title.isEmpty() ? tr("Field %1").arg(field + 1) : title;
}

int CGrid::cellLeft(int column) const
{
    return d->columns.begin(column);
}

int CGrid::cellTop(int row) const
{
    return d->rows.begin(row);
}

int CGrid::cellRight(int column) const
{
    return d->columns.end(column);
}

int CGrid::cellBottom(int row) const
{
    return d->rows.end(row);
}

int CGrid::pixelToIndexX(int x) const
{
    return d->columns.indexAt(x);
}

int CGrid::pixelToIndexY(int y) const
{
    return d->rows.indexAt(y);
}

int CGrid::gridWidth() const
{
    return d->columns.length();
}

int CGrid::gridHeight() const
{
    return d->rows.length();
}

void CGrid::index2PixelRect(const QPoint &cell, QRect &out) const
{
    if (hasCell(cell.y(), cell.x()))
        out = d->cellRect(cell);
}

void CGrid::setCellWidth(int column, int width)
{
    d->columns.setSize(column, width);
    initGridArea();
}

void CGrid::setCellHeight(int row, int height)
{
    d->rows.setSize(row, height);
    initGridArea();
}

void CGrid::setGridWidth(int column, int width)
{
    d->columns.setLine(column, width);
    initGridArea();
}

void CGrid::setGridHeight(int row, int height)
{
    d->rows.setLine(row, height);
    initGridArea();
}

bool CGrid::valueAt(int row, int column, TParamInfo *info) const
{
    if (!memAPI() || !hasCell(row, column))
        return false;
    const auto at = d->addressOf(row, column);
    if (!at)
        return false;
    const int value = d->memory().getBitParam(*at);
    const bool connected = d->connects(value, row, column);
    if (!info)
        return connected;
    *info = {at->group, at->element, at->index, value};
    if (d->multiMode) {
        info->index = static_cast<qint16>(at->index + d->fieldValueOf(row, column));
        info->value = connected;
    }
    return connected;
}

int CGrid::getValue(int n, bool ignoreAlternate) const
{
    if (!memAPI())
        return -1;
    const GridAddressing &addressing = d->addressing;
    const bool ofField = !addressing.fieldAddresses.isEmpty();
    const auto at = ofField ? d->fieldStorage.address(0, n) : addressing.addressOfChannel(n);
    if (!at)
        return -1;
    const auto stored = static_cast<unsigned>(d->memory().getBitParam(*at));
    const auto value = static_cast<int>(addressing.numbering.remapSwapValues(stored, false));
    // Deliberate: it is the field's number that is held against the threshold.
    return ofField ? value - addressing.offset(at->group, n, ignoreAlternate) : value;
}

// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/QtTypes.h"
#include "widgets/binding/BoundParameter.h"
#include "widgets/Export.h"

#include <QColor>
#include <QPixmap>
#include <QWidget>

#include <memory>

/// A matrix of cells in which the operator connects channels with fields (inputs with sources, channels
/// with buses) by clicking. One axis stands for channels, the other for fields; a ball shows what is
/// connected.
///
/// Three layouts in the memory: a value per channel that names its field (`valueAsBitMask` off), a mask
/// per channel with a bit per field (on), and one parameter per field that names its channel
/// (appendAddress()). With `multiMode` a channel's mask is a run of switches instead of one value.
/// The channels' addresses are the proxy's addresses().
///
/// The list-valued properties are read leniently: malformed items are skipped, numbers out of range give
/// way to the default. Arrow keys move the cursor; Space, Return and Enter do what a click does. Clicks
/// and bulk operations are undo steps of their own; other writes are as `undoEnable` says (off).
class CONSOLEWIDGETS_EXPORT CGrid : public QWidget, public TMemProxy
{
    Q_OBJECT
    BOUND_PROPERTIES
    /// Rows (horCount) and columns (verCount); default 16. Set them before the sizes.
    Q_PROPERTY(int horCount READ horCount WRITE setHorCount)
    Q_PROPERTY(int verCount READ verCount WRITE setVerCount)
    /// Bit n of a mask is bit (groupIndexStart + n - 1) of the value; default 1.
    Q_PROPERTY(int groupIndexStart READ groupIndexStart WRITE setGroupIndexStart)
    /// Sizes of columns (rows) from the first on, "13, 13, 20"; 2 to 50, else 13.
    Q_PROPERTY(QString cellWidths READ cellWidths WRITE setCellWidths)
    Q_PROPERTY(QString cellHeights READ cellHeights WRITE setCellHeights)
    /// Widths of the line behind each column (row); 1 to 14, else 1.
    Q_PROPERTY(QString gridWidths READ gridWidths WRITE setGridWidths)
    Q_PROPERTY(QString gridHeights READ gridHeights WRITE setGridHeights)
    /// The picture of a connection; its plain surroundings become transparent.
    Q_PROPERTY(QPixmap ballImg READ ballImg WRITE setBallImg)
    /// Bits of fields for ranges of channels: "0,47:3,2,1,0; 48,55:7,6". Setting it adds.
    Q_PROPERTY(QString bitOrder READ bitOrder WRITE setBitOrder)
    /// Cells that connect nothing: "(column,row,columns,rows); ...". Setting it adds.
    Q_PROPERTY(QString disabledRects READ disabledRects WRITE setDisabledRects)
    /// Of the cross-hair's lines, 2 to 13 pixels; default 3.
    Q_PROPERTY(int cursorThickness READ cursorThickness WRITE setCursorThickness)
    /// Whether channels are the columns (default) or the rows.
    Q_PROPERTY(GridOrientation orientation READ orientation WRITE setOrientation)
    /// A channel's value is a mask with a bit per field (default), or the number of its one field.
    Q_PROPERTY(bool valueAsBitMask READ valueAsBitMask WRITE setValueAsBitMask)
    /// Colour of the cross-hair.
    Q_PROPERTY(QColor cursorLineColor READ cursorLineColor WRITE setCursorLineColor)
    /// Colour of the lines between cells.
    Q_PROPERTY(QColor gridLineColor READ gridLineColor WRITE setGridLineColor)
    /// A channel has a parameter per field, at consecutive indexes. Default false.
    Q_PROPERTY(bool multiMode READ multiMode WRITE setMultiMode)
    /// What channels and fields are called: "CH 1..48; ST 1L; ST 1R". Without: "Channel 7", "Field 3".
    Q_PROPERTY(QString channelTitles READ channelTitles WRITE setChannelTitles)
    Q_PROPERTY(QString fieldTitles READ fieldTitles WRITE setFieldTitles)

public:
    /// Which way channels run.
    enum GridOrientation : int {
        ChannelsDown = 0,   ///< channels are rows, fields columns
        ChannelsAcross = 1, ///< channels are columns, fields rows
    };
    Q_ENUM(GridOrientation)

    explicit CGrid(QWidget *parent = nullptr, const char *name = nullptr);
    ~CGrid() override;

    int horCount() const { return rows(); }
    int verCount() const { return cols(); }
    int groupIndexStart() const;
    QString cellWidths() const;
    QString cellHeights() const;
    QString gridWidths() const;
    QString gridHeights() const;
    QPixmap ballImg() const;
    void setBallImg(const QPixmap &picture);
    QString bitOrder() const;
    QString disabledRects() const;
    int cursorThickness() const;
    GridOrientation orientation() const;
    bool valueAsBitMask() const;
    QColor cursorLineColor() const;
    QColor gridLineColor() const;
    bool multiMode() const;
    QString channelTitles() const;
    QString fieldTitles() const;

    // Cells. Channels and fields are counted from 0 along their axes.
    /// Rows and columns of cells.
    int rows() const;
    int cols() const;
    /// How many channels, or fields, there are along their axis.
    int channels() const { return orientation() == ChannelsAcross ? cols() : rows(); }
    int fields() const { return orientation() == ChannelsAcross ? rows() : cols(); }
    /// The channel that a cell connects.
    int channelOf(int row, int column) const
    {
        return orientation() == ChannelsAcross ? column : row;
    }
    /// The field that a cell connects.
    int fieldOf(int row, int column) const
    {
        return orientation() == ChannelsAcross ? row : column;
    }
    /// Whether the grid has that row and column.
    bool hasCell(int row, int column) const;
    /// Whether the cell lies in one of disabledRects: it shows nothing and takes no clicks.
    bool isCellDisabled(int row, int column) const;
    /// Where the keyboard is, and where the pointer was last: column and row.
    QPoint cursorCell() const;
    /// The title of one channel, or field; "Channel 12" where none is given.
    QString channelTitle(int channel) const;
    QString fieldTitle(int field) const;

    // Pixels. A line belongs to the cell that follows it.
    /// Where a cell begins and ends, without its lines.
    int cellLeft(int column) const;
    int cellTop(int row) const;
    int cellRight(int column) const;
    int cellBottom(int row) const;
    /// The number of columns (rows) for a pixel behind the last one.
    int pixelToIndexX(int x) const;
    int pixelToIndexY(int y) const;
    /// The size of all cells and lines together.
    int gridWidth() const;
    int gridHeight() const;
    /// The cell's pixels; `cell` is column and row. Left as it is for a cell that does not exist.
    void index2PixelRect(const QPoint &cell, QRect &out) const;
    /// For one column (row); a size that is not allowed is the default.
    void setCellWidth(int column, int width);
    void setCellHeight(int row, int height);
    void setGridWidth(int column, int width);
    void setGridHeight(int row, int height);

    /// Whether a cell is connected. `info`, when given, is filled if the cell has a parameter.
    bool valueAt(int row, int column, TParamInfo *info = nullptr) const;
    /// What the parameter of a channel names, or the channel of field `n` where fields have addresses;
    /// -1 when there is none. `ignoreAlternate` as in lookup_multiAddressModeOffset().
    int getValue(int n, bool ignoreAlternate) const;
    /// What a click does. Cells that are disabled or do not exist stay as they are.
    void connectionChange(int row, int column, bool withUndo);
    /// Disconnects every cell of a row, as one undo step.
    void clearRow(int row);

    /// Adds the address of the next field: from now on fields name channels. `offset` stands for channel
    /// 0 in all parameters of the group; `alternateOffset`, when above 0, does at and above the
    /// threshold. Ignored without a memory.
    void appendAddress(short group, short index, short element, int offset, int alternateOffset);
    /// The channel from which on alternate offsets count; see appendAddress().
    void setAltChannelThreshold(unsigned short threshold);
    /// What a value of the group has to be moved by to be a channel; `ignoreAlternate`: the plain
    /// offset, whatever the threshold.
    int lookup_multiAddressModeOffset(short group, int value, bool ignoreAlternate) const;
    /// Channels `a` and `c` change places when written, `b` and `d` when read.
    void swapChannels(unsigned a, unsigned b, unsigned c, unsigned d);
    /// Leaves out the numbers `from` to `to` where fields are numbered.
    void removeFieldRange(int from, int to);

    /// A receiver of aboutToChangeValue() sets it to keep the value as it is.
    bool changeOperationCancelled() const;
    void setChangeOperationCancelled(bool cancelled);
    /// Whether connecting subscribes to every channel's address; default false.
    void setAutoUpdates(bool on);
    /// Draws everything anew.
    void clearBG();

    void connectMemAPI() override;
    void disconnectMemAPI() override;
    bool bindsWithoutAddress() const override { return true; }
    bool servesChannels() const override { return true; }
    /// True while a step is recorded that the grid fills itself.
    bool autoUndoDisabled() const override;
    void writeUndo(IUndoRecord &record, int key) override;
    // A grid has no default of its own: nothing happens.
    void reset2defaults(unsigned) override {}
    void reset2AltDefaults(unsigned) override {}

public Q_SLOTS:
    /// `key` is a cell, row * 65536 + column. A refresh with key 0 does not say which cell changed.
    void process(const Q_UINT8 *data, int operation, Q_UINT32 key) override;
    void setHorCount(int rows);
    void setVerCount(int columns);
    void setGroupIndexStart(int bit);
    void setCellWidths(const QString &text);
    void setCellHeights(const QString &text);
    void setGridWidths(const QString &text);
    void setGridHeights(const QString &text);
    void setBitOrder(const QString &text);
    void setDisabledRects(const QString &text);
    void setCursorThickness(const int thickness);
    void setOrientation(const GridOrientation orientation);
    void setValueAsBitMask(bool on);
    /// The field that stands for all others of a channel; -1 (default): none.
    void setAllFieldIndex(const int field);
    /// Sets (clears) the field's bit in all channels, as one undo step.
    void setAllChannelsForField(const int field, const bool on);
    /// Sets (`on` above 0) or clears all bits of a channel. No undo step of its own.
    void setAllFieldsForChannel(const int channel, const int on);
    /// Disconnects every cell, as one undo step.
    void clearAll();
    /// A subscribed parameter changed; changes within 10 milliseconds make one update.
    void onAutoUpdate();
    void onUpdate();
    void setCursorLineColor(const QColor &colour);
    void setGridLineColor(const QColor &colour);
    void setMultiMode(bool on);
    void setChannelTitles(const QString &text);
    void setFieldTitles(const QString &text);

Q_SIGNALS:
    /// An edit here has connected or disconnected a cell.
    void patchUpdated(int row, int column, bool connected);
    /// The cross-hair went to another cell, by pointer or key.
    void cursorMoved(int column, int row);
    /// The cursor went to another cell by a key.
    void kbCursorMoved(int column, int row);
    /// Before an edit. A receiver may stop it with setChangeOperationCancelled(true).
    void aboutToChangeValue(CGrid *grid, int channel, int fieldValue, int newValue);
    /// The pointer has left the grid.
    void cursorOff();
    /// Titles, sizes or orientation changed: what stands around the grid is to be drawn anew.
    void layoutChanged();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    friend class GridPainter;

    void initDefaultStyle();
    void initGridArea();
    void setupAutoUpdate();
    void repaintCursor();
    void updatePart(const QRect &part);
    void moveCursor(int columns, int rows);
    enum class RefreshScope { Parameter, Everything };
    void refreshCells(const QPoint &named, RefreshScope scope = RefreshScope::Everything);
    void paste(const Q_UINT8 *bytes);

    struct Private;
    std::unique_ptr<Private> d;
};

// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"
#include "widgets/lists/CListWidgeItem.h"

#include <QByteArray>
#include <QList>
#include <QTreeWidget>

#include <memory>

class COnOffButton;

/// A library of stored settings, one row per slot (CListWidgeItem; other rows may stand between them as
/// headings). It runs the library's commands on its rows: which rows, in which order, with which
/// questions, progress and messages; the rows do the work on their storage.
///
/// Commands are run by attached keys, which are enabled only while they would do something, and by
/// drags: rows dropped onto a row are stored from there on; dropped between rows they are moved there
/// (`rowsMovable`, within the list, while it is sorted by ascending number). Rows are dragged
/// within the list and to and from the other list of a pair.
///
/// Keys: Delete clears (after the question), F2 or a double click on the title renames, Escape leaves
/// the title as it was. Return and Enter do nothing: a recall changes the show, and runs by its key
/// only. While a command runs, others are ignored.
///
/// A command may show message boxes and a progress dialog, which run event loops of their own. The list
/// and its rows may be destroyed meanwhile: the command then ends without touching them. GUI thread.
class CONSOLEWIDGETS_EXPORT CListWidge : public QTreeWidget
{
    Q_OBJECT
    /// Names of the five keys and of the paired list, looked up when the list is first shown: around
    /// the list, the nearest first. Empty (default): none, or as attached by the program.
    Q_PROPERTY(QString storeButton READ storeButton WRITE setStoreButton)
    Q_PROPERTY(QString recallButton READ recallButton WRITE setRecallButton)
    Q_PROPERTY(QString clearButton READ clearButton WRITE setClearButton)
    Q_PROPERTY(QString undoButton READ undoButton WRITE setUndoButton)
    Q_PROPERTY(QString protectButton READ protectButton WRITE setProtectButton)
    Q_PROPERTY(QString otherList READ otherListName WRITE setOtherListName)
    /// Rows dropped between rows are moved there; their class must know how. Default false.
    Q_PROPERTY(bool rowsMovable READ rowsMovable WRITE setRowsMovable)

public:
    /// The columns, from left to right.
    enum Column { NumberColumn, TitleColumn, ProtectedColumn, StoredColumn, ColumnCount };
    Q_ENUM(Column)

    /// What is dragged: a header entry, then an entry for each dragged row in list order.
    using Payload = QList<QByteArray>;

    explicit CListWidge(QWidget *parent = nullptr, const char *name = nullptr);
    ~CListWidge() override;

    QString storeButton() const;
    QString recallButton() const;
    QString clearButton() const;
    QString undoButton() const;
    QString protectButton() const;
    QString otherListName() const;
    bool rowsMovable() const;

    /// The list that is worked with together with this one; null: none. Pair both with each other.
    void setOtherList(CListWidge *list);
    CListWidge *otherList() const;

    /// Attaches a key: its clicks run the command, and it becomes a plain button that shows no state of
    /// its own. Null: none. A key that both lists of a pair have works on the one in which the
    /// operator selected last; the other one's selection is cleared.
    void setStore(COnOffButton *key);
    void setRecall(COnOffButton *key);
    void setClear(COnOffButton *key);
    void setUndo(COnOffButton *key);
    void setProtect(COnOffButton *key);

    /// Whether a command would do something now: what the keys show.
    bool canStore() const;
    bool canRecall() const;
    bool canClear() const;
    bool canProtect() const;
    /// Whether any row, with `both` of either list, has something to undo.
    bool isUndoAvailable(bool both) const;

    /// The selected library rows in list order.
    QList<CListWidgeItem *> selectedRows() const;
    /// The row as a library row; null for headings.
    static CListWidgeItem *libraryRow(QTreeWidgetItem *item);

    /// A yes/no preference (IPreferences) for the row; false when nothing is known.
    bool getPreference(int number, const CListWidgeItem *row) const;

    // Drops. `target` is the row under the pointer, `isStore` tells storing from inserting.
    /// Whether the drop may go on; asks the operator and tells them why not.
    bool getDropConfirmatin(QWidget *source, CListWidgeItem *target, const Payload &payload,
                            bool isStore);
    /// Refuses, with a message, to store onto protected and read-only rows.
    bool checkNoProtected(CListWidgeItem *target, const Payload &payload, bool isStore);
    /// Refuses, with a message, to insert rows that do not follow each other.
    bool checkInsertValid(CListWidgeItem *target, const Payload &payload, bool isStore);
    /// For lists with rules of their own. Accepts here.
    virtual bool checkDropLocation(QWidget *source, CListWidgeItem *target, const Payload &payload,
                                   bool isStore);

    /// Shows a row anew that a command changed.
    virtual void repaintItem_Polymorphic(CListWidgeItem *row);

public Q_SLOTS:
    void setStoreButton(const QString &name);
    void setRecallButton(const QString &name);
    void setClearButton(const QString &name);
    void setUndoButton(const QString &name);
    void setProtectButton(const QString &name);
    void setOtherListName(const QString &name);
    void setRowsMovable(bool movable);

    /// Stores the present settings in the selected rows, after asking where something would be lost.
    void Store();
    /// The first selected row.
    void Recall();
    /// Empties the selected rows, after asking.
    void Clear();
    /// All visible rows, without asking.
    void ClearAll();
    /// Unprotects the protected rows if there are any, otherwise protects.
    void Protect();
    /// All visible rows; with `both`, the other list's rows before them.
    void Undo(bool both);
    /// All rows forget what could be undone; with `both`, the other list's rows before them.
    void goClearAllUndo(bool both);
    /// Shows the list anew.
    void triggerUpdate();

Q_SIGNALS:
    /// The selection changed, or a command changed a selected row.
    void selectionChanged();
    /// Around each command that changes rows (a drop and a rename too), after its first question. Not
    /// nested. What is open when a command begins (a transaction) may stay so until it is finished.
    void commandStarted();
    void commandFinished();

protected:
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    void startDrag(Qt::DropActions actions) override;
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QList<QTreeWidgetItem *> &items) const override;
    void showEvent(QShowEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    friend class ListKeys;
    friend class SlotCommand;
    friend class SlotDelegate;

    void finishDrop(CListWidge *from, const CListWidgeItem::Reference &target,
                    const Payload &payload, bool isStore);
    void storeDropped(CListWidgeItem *target, const Payload &payload);
    void moveDropped(const CListWidgeItem *target, const QList<int> &moved);
    void rename(const CListWidgeItem::Reference &which, const QString &title);

    struct Private;
    std::unique_ptr<Private> d;
};

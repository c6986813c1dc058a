// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QTreeWidgetItem>

#include <memory>

class IMemAPI;
class QPoint;

/// A row of a CListWidge: one slot of a library. Each library (scenes, effect settings ...) derives its
/// own, which does the work on its storage; the list decides which rows, in which order, and asks first.
///
/// Operations with an `error` leave it empty when they succeed; a text means that nothing was changed,
/// and is shown to the operator as it stands. None of them may destroy its own row. GUI thread.
class CONSOLEWIDGETS_EXPORT CListWidgeItem : public QTreeWidgetItem
{
public:
    /// Knows whether its row still exists. Rows are no QObjects: whoever keeps one over a message box
    /// or the like keeps a reference.
    class Reference
    {
    public:
        Reference() = default;
        /// The row; null once it has been destroyed.
        CListWidgeItem *get() const { return m_row ? *m_row : nullptr; }

    private:
        friend class CListWidgeItem;
        explicit Reference(std::shared_ptr<CListWidgeItem *> row) : m_row(std::move(row)) {}

        std::shared_ptr<CListWidgeItem *> m_row;
    };

    /// Without a list the row is added later: many rows at once with QTreeWidget::addTopLevelItems().
    explicit CListWidgeItem(QTreeWidget *list = nullptr);
    ~CListWidgeItem() override;
    Q_DISABLE_COPY_MOVE(CListWidgeItem)

    // What the list's commands use. ----------------------------------------------------------------

    /// The slot's number, as it is shown.
    virtual int slotNumber() const = 0;
    /// Stores the current settings into the slot.
    virtual void store(QString &error) = 0;
    /// Makes the slot's settings the current ones.
    virtual void recall(QString &error) = 0;
    /// Empties the slot.
    virtual void clear(QString &error) = 0;
    /// Takes back the last store, clear, change of protection or of title, or move; nothing when there
    /// is nothing to take back.
    virtual void undo() = 0;
    /// Protects the slot if it is not protected, and the other way round.
    virtual void toggleProtection(QString &error) = 0;
    /// Whether the slot can never be written.
    virtual bool isReadOnly() const = 0;
    /// Whether the operator has protected the slot.
    virtual bool isProtected() const = 0;
    /// Whether the slot holds stored settings.
    virtual bool hasData() const = 0;
    /// The memory whose preferences hold for the row; may be null.
    virtual IMemAPI *memAPI() const = 0;
    /// Forgets what undo() would take back.
    virtual void clearUndo() = 0;
    /// Fills `text` with the slot's title.
    virtual void title(QString &text) const = 0;
    /// The operator pressed the left button on the row; `position` is on the screen. True: the row has
    /// dealt with it, and the list does nothing more (no selection, no drag). Does nothing here.
    virtual bool clicked(int column, const QPoint &position);

    // What the list's view, renaming and dragging use. ---------------------------------------------

    /// Whether undo() would take back anything.
    virtual bool hasUndo() const = 0;
    /// When the slot was stored; invalid when that is not known. Invalid here.
    virtual QDateTime timeStored() const;
    /// How many characters a title may have; 0, as here: titles are not edited.
    virtual int titleLimit() const;
    /// Renames the slot, with undo. The list asks for it only while the slot has data, is not protected
    /// and not read only, with at most titleLimit() characters. Fails here.
    virtual void setTitle(const QString &text, QString &error);
    /// The slot's contents as they are now, for storeDragged() of a row of this list or of the other
    /// one, after this slot itself may have been changed. Empty, as here: there is nothing to copy, and
    /// a selection in which all are empty is not dragged.
    virtual QByteArray dragData() const;
    /// Stores what another row's dragData() gave, with undo. Fails here. `data` comes from rows of the
    /// two lists only, never from outside of the program.
    virtual void storeDragged(const QByteArray &data, QString &error);
    /// Moves the slot's contents (title and protection included) to the slot `number`; the contents of
    /// the slots between the two shift by one towards this one, nothing is lost. Rows stay where
    /// they are and show other contents. Asked for only in a list with `rowsMovable`. Fails here.
    virtual void moveTo(int number, QString &error);

    // What others may ask. -------------------------------------------------------------------------

    /// title() as a result.
    QString titleText() const;
    /// What assistive tools say: "#012 Sound check, protected".
    QString spokenText() const;
    /// The slot's contents changed: the list shows the row anew, its keys follow.
    void contentsChanged();
    /// Keeps hold of the row, which may be deleted meanwhile.
    Reference reference();

    /// The row's cells come from the operations above; nothing is stored here for CListWidge's columns.
    QVariant data(int column, int role) const override;
    /// By the list's sort column, numbers as numbers; rows that are equal by it, by slot number.
    bool operator<(const QTreeWidgetItem &other) const override;

private:
    QVariant cellText(int column) const;

    std::shared_ptr<CListWidgeItem *> m_life; ///< shared with references; made when first asked for
};

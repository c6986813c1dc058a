// SPDX-License-Identifier: MIT
#pragma once

#include "testkit/RecordingMemory.h"
#include "widgets/lists/CListWidge.h"

#include <QApplication>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>

/// A library in memory that notes what its rows are told to do: "store 3".
struct Library
{
    RecordingMemory memory;
    QStringList calls;
    QHash<int, QString> errors; ///< what operations on a slot fail with
    /// Runs inside every operation of a row.
    std::function<void(int slot)> during;
    int titleLimit = 12;
    int undoQueries = 0;

    QStringList take() { return std::exchange(calls, {}); }
};

class LibraryRow : public CListWidgeItem
{
public:
    struct Contents
    {
        QString title;
        bool hasData = false;
        bool isProtected = false;
        QDateTime stored;
    };

    LibraryRow(Library &library, int slot) : m_library(library), m_slot(slot) {}

    int slotNumber() const override { return m_slot; }
    void store(QString &error) override
    {
        change("store", error, [this] {
            contents.hasData = true;
            contents.stored = QDateTime(QDate(2026, 3, 12), QTime(19, 30));
        });
    }
    void recall(QString &error) override { note("recall", error); }
    void clear(QString &error) override
    {
        change("clear", error, [this] { contents = {}; });
    }
    void undo() override
    {
        QString error;
        if (m_before)
            contents = *m_before;
        m_before.reset();
        note("undo", error);
    }
    void toggleProtection(QString &error) override
    {
        change("protect", error, [this] { contents.isProtected = !contents.isProtected; });
    }
    bool isReadOnly() const override { return readOnly; }
    bool isProtected() const override { return contents.isProtected; }
    bool hasData() const override { return contents.hasData; }
    IMemAPI *memAPI() const override { return hasMemory ? &m_library.memory : nullptr; }
    void clearUndo() override
    {
        if (std::exchange(m_before, {}))
            m_library.calls << QString("forget %1").arg(m_slot);
    }
    void title(QString &text) const override { text = contents.title; }
    bool clicked(int column, const QPoint &) override
    {
        lastClicked = column;
        return swallowsClicks;
    }
    bool hasUndo() const override
    {
        ++m_library.undoQueries;
        return m_before.has_value();
    }
    QDateTime timeStored() const override { return contents.stored; }
    int titleLimit() const override { return m_library.titleLimit; }
    void setTitle(const QString &text, QString &error) override
    {
        change("title " + text + " at", error, [&] { contents.title = text; });
    }
    QByteArray dragData() const override
    {
        return contents.hasData ? contents.title.toUtf8() : QByteArray();
    }
    void storeDragged(const QByteArray &data, QString &error) override
    {
        change("copy " + data + " to", error, [&] { contents = {data, true, false, {}}; });
    }
    void moveTo(int number, QString &error) override
    {
        note(QString("move to %1 from").arg(number), error);
        if (error.isEmpty() && mover)
            mover(m_slot, number);
    }

    Contents contents;
    bool readOnly = false;
    bool hasMemory = true;
    bool swallowsClicks = false;
    int lastClicked = -1;
    std::function<void(int from, int to)> mover;

private:
    void note(const QString &call, QString &error)
    {
        m_library.calls << QString("%1 %2").arg(call).arg(m_slot);
        error = m_library.errors.value(m_slot);
        if (m_library.during)
            m_library.during(m_slot);
    }

    template<class Change>
    void change(const QString &call, QString &error, Change &&apply)
    {
        const Contents before = contents;
        if (!m_library.errors.contains(m_slot)) {
            apply();
            m_before = before;
        }
        note(call, error);
    }

    Library &m_library;
    const int m_slot;
    std::optional<Contents> m_before;
};

/// A list of slots 1, 2, 3 ... written as a word per slot: "-" empty, "d" data, "p" protected data, "r"
/// read only data, "e" read only and empty, "q" protected and read only, "h" hidden data.
struct ListRig
{
    explicit ListRig(const QString &states)
    {
        QList<QTreeWidgetItem *> items;
        for (const QChar state : states)
            items << makeRow(int(items.size()) + 1, state);
        list->addTopLevelItems(items);
        for (int slot = 1; slot <= states.size(); ++slot)
            row(slot)->setHidden(states.at(slot - 1) == 'h');
    }
    ~ListRig() { delete list; }

    LibraryRow *makeRow(int slot, QChar state)
    {
        auto *row = new LibraryRow(library, slot);
        row->contents.hasData = QStringLiteral("dprqh").contains(state);
        row->contents.isProtected = state == 'p' || state == 'q';
        row->readOnly = QStringLiteral("req").contains(state);
        if (row->contents.hasData)
            row->contents.title = QString("Scene %1").arg(slot);
        return row;
    }

    LibraryRow *row(int slot) const
    {
        for (int index = 0; list && index < list->topLevelItemCount(); ++index) {
            auto *found = dynamic_cast<LibraryRow *>(list->topLevelItem(index));
            if (found && found->slotNumber() == slot)
                return found;
        }
        return nullptr;
    }
    void select(const QList<int> &slotNumbers)
    {
        list->clearSelection();
        for (const int slot : slotNumbers)
            row(slot)->setSelected(true);
    }
    QList<int> selected() const
    {
        QList<int> found;
        for (const CListWidgeItem *each : list->selectedRows())
            found << each->slotNumber();
        return found;
    }
    void show(const QSize &size = {420, 300})
    {
        list->resize(size);
        list->show();
        list->activateWindow();
        QVERIFY(QTest::qWaitForWindowExposed(list));
    }

    Library library;
    QPointer<CListWidge> list = new CListWidge;
};

/// Answers the boxes that come up, with real events, one answer each; notes "Caption: text [Yes No]"
/// with a star at the default button. When it has no answer left it presses Escape.
class Answers : public QObject
{
public:
    using Answer = std::function<void(QMessageBox *)>;

    explicit Answers(const QList<Answer> &answers = {}) : m_answers(answers)
    {
        connect(&m_timer, &QTimer::timeout, this, &Answers::look);
        m_timer.start(1);
    }

    static Answer click(QMessageBox::StandardButton which)
    {
        return [which](QMessageBox *box) { QTest::mouseClick(box->button(which), Qt::LeftButton); };
    }
    static Answer press(Qt::Key key)
    {
        return [key](QMessageBox *box) { QTest::keyClick(box, key); };
    }
    static Answer yes() { return click(QMessageBox::Yes); }
    static Answer no() { return click(QMessageBox::No); }
    static Answer ok() { return click(QMessageBox::Ok); }

    QStringList seen;

private:
    void look()
    {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box || box == m_last)
            return;
        m_last = box;
        seen << describe(*box);
        const Answer answer = m_answers.isEmpty() ? press(Qt::Key_Escape) : m_answers.takeFirst();
        answer(box);
    }

    static QString describe(const QMessageBox &box)
    {
        QStringList names;
        for (const auto which : {QMessageBox::Yes, QMessageBox::No, QMessageBox::Ok}) {
            const QAbstractButton *button = box.button(which);
            if (button) {
                names << QString(button->text()).remove('&')
                             + (box.defaultButton() == button ? "*" : "");
            }
        }
        return QString("%1: %2 [%3]").arg(box.windowTitle(), box.text(), names.join(' '));
    }

    QTimer m_timer;
    QList<Answer> m_answers;
    QPointer<QMessageBox> m_last;
};

/// The progress dialog that there is now, shown or not.
inline QProgressDialog *progressDialog()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *dialog = qobject_cast<QProgressDialog *>(widget))
            return dialog;
    }
    return nullptr;
}

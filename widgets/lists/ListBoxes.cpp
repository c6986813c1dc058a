// SPDX-License-Identifier: MIT
#include "widgets/lists/ListBoxes.h"

#include <QMessageBox>
#include <QPointer>

namespace {

/// On the heap: the parent deletes a box that it outlives no longer than the answer.
QPointer<QMessageBox> makeBox(QMessageBox::Icon icon, const QString &caption, const QString &text,
                              QWidget *parent)
{
    QPointer<QMessageBox> box = new QMessageBox(parent);
    box->setIcon(icon);
    box->setWindowTitle(caption);
    box->setTextFormat(Qt::PlainText);
    box->setText(text);
    return box;
}

} // namespace

bool listboxes::confirm(QWidget *parent, const QString &question)
{
    const auto box =
        makeBox(QMessageBox::Question, QStringLiteral("Confirmation"), question, parent);
    box->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box->setDefaultButton(QMessageBox::No);
    box->setEscapeButton(QMessageBox::No);
    const bool yes = box->exec() == QMessageBox::Yes;
    const bool answered = box;
    delete box;
    return answered && yes;
}

void listboxes::critical(QWidget *parent, const QString &caption, const QString &text)
{
    const auto box = makeBox(QMessageBox::Critical, caption, text, parent);
    box->setStandardButtons(QMessageBox::Ok);
    box->setDefaultButton(QMessageBox::Ok);
    box->exec();
    delete box;
}

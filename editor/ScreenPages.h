// SPDX-License-Identifier: MIT
#pragma once

#include <QTabWidget>

#include <memory>

class ParameterMemory;
class QScrollArea;

/// The editor's screens: a page per form, each in a scrolling area of its own and bound to the memory.
/// A form that cannot be loaded has a page that says why.
class ScreenPages : public QTabWidget
{
    Q_OBJECT

public:
    explicit ScreenPages(ParameterMemory &memory, QWidget *parent = nullptr);
    ~ScreenPages() override;

    /// The screens that ship with the editor, in their order.
    static QStringList shippedForms();

    void open(const QStringList &forms);
    /// What was wrong with the forms, one line each.
    QStringList problems() const;
    /// False when a form could not be loaded at all.
    bool allOpened() const;

    QScrollArea *page(int index) const;
    /// What the page is called: its form's window title, else the form's name.
    QString pageTitle(int index) const;
    /// The form's file name without folder and ending; with a number where it would come twice.
    QString pageName(int index) const;

    /// Whether a page shows one channel at a time: its form's widget has the property
    /// `channelElement`. Such pages are bound to one element, 0 at first.
    bool followsChannel(int index) const;
    int channelElement() const;
    void setChannelElement(int element);
    /// How many channels those pages can show.
    int channelCount() const;

Q_SIGNALS:
    /// For each page and each bound control on it, when it is opened.
    void pageAdded(QScrollArea *page);
    void controlAdded(QWidget *control);

private:
    void openForm(const QString &form);
    QWidget *failurePage(const QString &form);
    void bindPage(QWidget *root);
    void titlePage(int index);

    struct Private;
    std::unique_ptr<Private> d;
};

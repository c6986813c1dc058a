// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>

class QMenu;
class QMouseEvent;
class QWidget;
class ParameterMemory;

/// What the operator can do with any bound control beyond turning it: the commands of its context
/// menu, and Ctrl+click, which resets it.
class ProxyCommands : public QObject
{
    Q_OBJECT

public:
    /// Copied parameters travel through the clipboard under this type, beside their text.
    static constexpr char MimeType[] = "application/x-console-parameters";

    explicit ProxyCommands(ParameterMemory &memory, QObject *parent = nullptr);

    void watch(QWidget *control);

    // `control` is a bound control; null is ignored.
    static void enterValue(QWidget *control);
    static void resetToDefault(QWidget *control);
    static void copy(QWidget *control);
    static void paste(QWidget *control);
    /// Whether the clipboard holds a value of the same kind of parameter.
    static bool canPaste(QWidget *control);

    /// The menu for a control; the caller shows it. It deletes itself when closed.
    QMenu *contextMenu(QWidget *control) const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    ParameterMemory &m_memory;
};

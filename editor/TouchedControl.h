// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

class ParameterMemory;

/// The control that the operator is busy with: the one last pointed at, focused or edited. When the
/// pointer leaves it, the focused control takes its place.
class TouchedControl : public QObject
{
    Q_OBJECT

public:
    explicit TouchedControl(const ParameterMemory &memory, QObject *parent = nullptr);

    void watch(QWidget *control);

    /// Null when there is none.
    QWidget *control() const;
    /// What the control is for, in words.
    QString name() const;
    /// The address of its parameter, with the element in two hexadecimal digits.
    QString address() const;
    /// The display text of its value.
    QString value() const;

public Q_SLOTS:
    /// The operator turned to `control`.
    void touch(QWidget *control);

Q_SIGNALS:
    /// Another control, or another value of the same.
    void changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void leave(QWidget *control);

    const ParameterMemory &m_memory;
    QPointer<QWidget> m_control;
    QPointer<QWidget> m_focused;
};

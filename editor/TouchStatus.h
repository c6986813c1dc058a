// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;
class TouchedControl;

/// The line in the status bar about the touched control: its name, value and address.
class TouchStatus : public QWidget
{
    Q_OBJECT

public:
    explicit TouchStatus(const TouchedControl &touched, QWidget *parent = nullptr);

private:
    void refresh();

    const TouchedControl &m_touched;
    QLabel *m_name;
    QLabel *m_value;
    QLabel *m_address;
};

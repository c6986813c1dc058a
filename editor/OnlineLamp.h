// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;

/// The lamp in the status bar that tells whether the console answers. Colour is not all it speaks by:
/// the word stands beside it.
class OnlineLamp : public QWidget
{
    Q_OBJECT

public:
    explicit OnlineLamp(QWidget *parent = nullptr);

public Q_SLOTS:
    void setOnline(bool online);

private:
    QLabel *m_picture;
    QLabel *m_word;
};

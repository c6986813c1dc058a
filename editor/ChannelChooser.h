// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QSpinBox;

/// Chooses the channel of the screens that show one channel at a time. Channels count from 1.
class ChannelChooser : public QWidget
{
    Q_OBJECT

public:
    explicit ChannelChooser(QWidget *parent = nullptr);

    int channel() const;
    /// 1 to `count`.
    void setChannelCount(int count);

public Q_SLOTS:
    void setChannel(int channel);

Q_SIGNALS:
    void channelChanged(int channel);

private:
    QSpinBox *m_number;
};

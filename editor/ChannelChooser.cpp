// SPDX-License-Identifier: MIT
#include "editor/ChannelChooser.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>

ChannelChooser::ChannelChooser(QWidget *parent) : QWidget(parent), m_number(new QSpinBox)
{
    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 8, 0);
    auto *label = new QLabel(tr("C&hannel"));
    label->setBuddy(m_number);
    m_number->setObjectName("channelNumber");
    m_number->setAccessibleName(tr("Channel"));
    m_number->setToolTip(tr("The channel that this screen shows"));
    m_number->setMinimum(1);
    m_number->setWrapping(true);
    // A number half typed is not a channel.
    m_number->setKeyboardTracking(false);
    line->addWidget(label);
    line->addWidget(m_number);
    connect(m_number, &QSpinBox::valueChanged, this, &ChannelChooser::channelChanged);
}

int ChannelChooser::channel() const
{
    return m_number->value();
}

void ChannelChooser::setChannelCount(int count)
{
    m_number->setMaximum(count);
}

void ChannelChooser::setChannel(int channel)
{
    m_number->setValue(channel);
}

// SPDX-License-Identifier: MIT
#include "editor/OnlineLamp.h"

#include "editor/Appearance.h"
#include "interfaces/utilities/NS_Utilities.h"

#include <QHBoxLayout>
#include <QLabel>

namespace {
constexpr int LampSide = 14;
}

OnlineLamp::OnlineLamp(QWidget *parent) : QWidget(parent), m_picture(new QLabel), m_word(new QLabel)
{
    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 8, 0);
    line->setSpacing(6);
    m_picture->setFixedSize(LampSide, LampSide);
    m_picture->setScaledContents(true);
    m_word->setObjectName("onlineWord");
    line->addWidget(m_picture);
    line->addWidget(m_word);
    setOnline(false);
}

void OnlineLamp::setOnline(bool online)
{
    m_picture->setPixmap(
        NS_Utilities::loadPixmap(online ? ":/images/online.png" : ":/images/offline.png"));
    m_word->setText(online ? tr("Online") : tr("Offline"));
    QPalette lit = palette();
    lit.setColor(QPalette::WindowText, online ? appearance::OnlineLit : appearance::OfflineLit);
    m_word->setPalette(lit);
    setToolTip(online ? tr("The console answers.") : tr("The console does not answer."));
}

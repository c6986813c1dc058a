// SPDX-License-Identifier: MIT
#include "editor/TouchStatus.h"

#include "editor/Appearance.h"
#include "editor/TouchedControl.h"

#include <QHBoxLayout>
#include <QLabel>

namespace {

QLabel *addLabel(QHBoxLayout *line, const char *name, int width)
{
    auto *label = new QLabel;
    label->setObjectName(name);
    // Fixed, so that a value that changes many times a second lays nothing out.
    label->setFixedWidth(width);
    label->setTextFormat(Qt::PlainText);
    line->addWidget(label);
    return label;
}

QString idleHint()
{
    return TouchStatus::tr("Drag, wheel or type; Ctrl+click resets");
}

} // namespace

TouchStatus::TouchStatus(const TouchedControl &touched, QWidget *parent)
    : QWidget(parent), m_touched(touched)
{
    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(6, 0, 0, 0);
    line->setSpacing(12);
    m_name = addLabel(line, "touchedName", 300);
    m_value = addLabel(line, "touchedValue", 90);
    m_address = addLabel(line, "touchedAddress", 320);
    line->addStretch();

    QFont bold = font();
    bold.setBold(true);
    m_value->setFont(bold);
    QPalette faint = palette();
    faint.setColor(QPalette::WindowText, appearance::FaintText);
    m_address->setPalette(faint);
    connect(&touched, &TouchedControl::changed, this, &TouchStatus::refresh);
    refresh();
}

void TouchStatus::refresh()
{
    m_name->setText(m_touched.control() ? m_touched.name() : idleHint());
    m_value->setText(m_touched.value());
    m_address->setText(m_touched.address());
}

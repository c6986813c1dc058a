// SPDX-License-Identifier: MIT
#include "widgets/controls/CDialTip.h"

#include <QPalette>

namespace {
const QColor tipColour(255, 255, 60);
constexpr int TextMargin = 3;
} // namespace

CDialTip::CDialTip(QWidget &dial) : QLabel(dial.parentWidget()), m_dial(&dial)
{
    if (!dial.parentWidget())
        setWindowFlags(Qt::ToolTip);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, tipColour);
    colours.setColor(QPalette::WindowText, Qt::black);
    setPalette(colours);
    setAutoFillBackground(true);
    setAlignment(Qt::AlignCenter);
    setMargin(TextMargin);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(dial.geometry().left(), dial.geometry().bottom(), 0, 0);
    hide();
}

void CDialTip::setText(const QString &text)
{
    QLabel::setText(text);
    if (isVisible())
        place();
}

void CDialTip::appear()
{
    place();
    show();
    raise();
}

void CDialTip::refresh()
{
    if (isVisible())
        appear();
}

void CDialTip::place()
{
    if (!m_dial)
        return;
    const QWidget *around = parentWidget();
    QPoint at =
        around ? m_dial->geometry().bottomLeft() : m_dial->mapToGlobal(m_dial->rect().bottomLeft());
    const QSize wanted = sizeHint();
    if (around) {
        // Whole inside the parent, above the dial where there is no room below.
        at.setX(qMax(0, qMin(at.x(), around->width() - wanted.width())));
        if (at.y() + wanted.height() > around->height())
            at.setY(qMax(0, m_dial->geometry().top() - wanted.height()));
    }
    setGeometry({at, wanted});
}

// SPDX-License-Identifier: MIT
#include "widgets/buttons/CAnimMenu.h"

#include "widgets/painting/Opacity.h"
#include "widgets/painting/Picture.h"

#include <QEvent>
#include <QPainter>
#include <QPointer>
#include <QTimer>
#include <QtMath>

#include <algorithm>

namespace {

constexpr int StepPeriod = 20; // milliseconds
constexpr int RowsPerStep = 2;

} // namespace

// Deliberate: the name is dropped.
CAnimMenu::CAnimMenu(QWidget *parent, const char *) : QFrame(parent)
{
    setAttribute(Qt::WA_NoSystemBackground);
    Q_EMIT showMenu(false);
}

void CAnimMenu::setOpenImage(const QPixmap &picture)
{
    setImage(m_openImage, picture);
}

void CAnimMenu::setMoveImage(const QPixmap &picture)
{
    setImage(m_moveImage, picture);
}

void CAnimMenu::setCloseImage(const QPixmap &picture)
{
    setImage(m_closeImage, picture);
}

void CAnimMenu::setImage(QPixmap &image, const QPixmap &picture)
{
    image = picture;
    if (!picture.isNull()) {
        const QSizeF size = picture.deviceIndependentSize();
        setFixedSize(qCeil(size.width()), qCeil(size.height()));
    }
    opacity::set(*this, coversAll());
    update();
}

/// Whether every pixel is drawn, whatever the panel shows.
bool CAnimMenu::coversAll() const
{
    const auto covers = [this](const QPixmap *image) {
        const QSizeF own = image->deviceIndependentSize();
        return !image->isNull() && !image->hasAlphaChannel() && own.width() >= width()
               && own.height() >= height();
    };
    return covers(&m_openImage) && covers(&m_moveImage) && covers(&m_closeImage);
}

void CAnimMenu::setStatus(AnimWindowStatus status)
{
    m_status = status;
    Q_EMIT stateChanged(status);
}

bool CAnimMenu::rolls() const
{
    return m_timer && m_timer->isActive();
}

void CAnimMenu::startAnimation()
{
    if (!m_timer) {
        m_timer = new QTimer(this);
        connect(m_timer, &QTimer::timeout, this, &CAnimMenu::animProc);
    }
    m_timer->start(StepPeriod);
    if (m_status == animOpen) {
        const QPointer<CAnimMenu> self(this);
        Q_EMIT showMenu(false);
        if (self)
            setStatus(animClosing);
    } else if (m_status == animClosed) {
        setStatus(animOpening);
    }
}

void CAnimMenu::animProc()
{
    if (!rolls())
        return;
    const int before = m_position;
    m_position += m_status == animOpening ? RowsPerStep : -RowsPerStep;
    // Deliberate: the position may overshoot either end; nothing is drawn by it once the panel stands.
    if (m_position > 0 && m_position <= height())
        update(0, 0, width(), std::max(before, m_position));
    else
        finish();
}

void CAnimMenu::finish()
{
    const QPointer<CAnimMenu> self(this);
    m_timer->stop();
    update();
    if (m_status == animOpening)
        setStatus(animOpen);
    else if (m_status == animClosing)
        setStatus(animClosed);
    if (self && m_status == animOpen)
        Q_EMIT showMenu(true);
}

// Deliberate: a running animation goes on, and ends in this status.
void CAnimMenu::setOpen(bool open)
{
    const QPointer<CAnimMenu> self(this);
    m_position = open ? qCeil(m_closeImage.deviceIndependentSize().height()) : 0;
    update();
    setStatus(open ? animOpen : animClosed);
    if (self)
        Q_EMIT showMenu(open);
}

bool CAnimMenu::event(QEvent *event)
{
    const bool handled = QFrame::event(event);
    switch (event->type()) {
    case QEvent::ScreenChangeInternal:
    case QEvent::Resize: opacity::set(*this, coversAll()); break;
    default: break;
    }
    return handled;
}

void CAnimMenu::paintEvent(QPaintEvent *)
{
    Picture picture(size());
    if (rolls()) {
        // The move picture's bottom rows stand at the top: it hangs down by `m_position` rows.
        const qreal moving = m_moveImage.deviceIndependentSize().height();
        picture.add(m_moveImage, m_moveImage.rect(), {0, m_position - moving},
                    QRect(0, 0, width(), m_position));
        picture.add(m_closeImage, m_closeImage.rect(), {0, 0},
                    QRect(0, m_position, width(), height() - m_position));
    } else {
        const QPixmap &shown = m_status == animOpen ? m_openImage : m_closeImage;
        picture.add(shown, shown.rect());
    }
    QPainter painter(this);
    picture.draw(painter);
}

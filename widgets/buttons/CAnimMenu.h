// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

#include <QFrame>
#include <QPixmap>

class QTimer;

/// A panel that opens like a roller blind: the move picture slides down over the close picture, two
/// rows at a time, and when it is all the way down the open picture shows and showMenu(true) tells the
/// owner to show what belongs on it. It is bound to no parameter and drawn from its pictures alone; a
/// null picture is not drawn. GUI thread.
class CONSOLEWIDGETS_EXPORT CAnimMenu : public QFrame
{
    Q_OBJECT
    // A picture that is not null fixes the panel's size to its own.
    /// The look of the open panel.
    Q_PROPERTY(QPixmap openImage READ openImage WRITE setOpenImage)
    /// What slides down and back up.
    Q_PROPERTY(QPixmap moveImage READ moveImage WRITE setMoveImage)
    /// The look of the closed panel.
    Q_PROPERTY(QPixmap closeImage READ closeImage WRITE setCloseImage)

public:
    /// What the panel does now.
    enum AnimWindowStatus : int { animClosed, animOpening, animOpen, animClosing };
    Q_ENUM(AnimWindowStatus)

    /// The name is not used.
    explicit CAnimMenu(QWidget *parent = nullptr, const char *name = nullptr);

    const QPixmap *openImage() const { return &m_openImage; }
    const QPixmap *moveImage() const { return &m_moveImage; }
    const QPixmap *closeImage() const { return &m_closeImage; }

    /// Whether the panel stands open, or closed; neither while it moves.
    bool getOpen() const { return m_status == animOpen; }
    bool getClosed() const { return m_status == animClosed; }

public Q_SLOTS:
    void setOpenImage(const QPixmap &picture);
    void setMoveImage(const QPixmap &picture);
    void setCloseImage(const QPixmap &picture);
    /// Rolls a closed panel open and an open one shut; one that moves goes on as it does.
    void startAnimation();
    /// Jumps to open or closed.
    void setOpen(bool open);
    /// One step of the animation; does nothing unless it runs.
    void animProc();

Q_SIGNALS:
    /// Show (when fully open) or hide (before closing) what belongs on the open panel.
    void showMenu(bool show);
    /// Emitted whenever a status is set, the same one again included.
    void stateChanged(CAnimMenu::AnimWindowStatus status);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void setStatus(AnimWindowStatus status);
    void setImage(QPixmap &image, const QPixmap &picture);
    void finish();
    bool rolls() const;
    bool coversAll() const;

    QPixmap m_closeImage;
    QPixmap m_moveImage;
    QPixmap m_openImage;
    QTimer *m_timer = nullptr; ///< a child, made for the first animation
    int m_position = 0;        ///< rows of the move picture that show
    AnimWindowStatus m_status = animClosed;
};

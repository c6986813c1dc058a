// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QRect>

#include <vector>

class BatchedPicture;
class QPaintDevice;
class QRegion;

/// The pictures that wait to be drawn. Lives and dies with the application. GUI thread.
class PaintBatch : public QObject
{
public:
    /// The one of the application, made on first use.
    static PaintBatch &instance();

    /// Draws the picture when the event loop has delivered what is posted.
    void add(BatchedPicture &picture);
    /// The picture no longer waits.
    void remove(BatchedPicture &picture);

    bool event(QEvent *event) override;
    /// Sees what moves in the application.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Due
    {
        BatchedPicture *picture;
        QWidget *window;
        QRect place; ///< in the window
    };
    using Dues = std::vector<Due>;

    PaintBatch();
    ~PaintBatch() override;

    void draw();
    void collect();
    static void drawPictures(QPaintDevice &device, Dues::const_iterator from,
                             Dues::const_iterator to);
    static void drawWindow(QWidget &window, Dues::const_iterator from, Dues::const_iterator to);

    std::vector<BatchedPicture *> m_waiting;
    Dues m_due;
};

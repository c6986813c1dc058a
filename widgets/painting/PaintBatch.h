// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/painting/ClearPlaces.h"

#include <QObject>

#include <vector>

class BatchedPicture;
class QBackingStore;

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
    void drawWindow(QWidget &window, Dues::iterator from, Dues::iterator to);
    Dues::iterator drawPass(QBackingStore &store, qreal ratio, Dues::iterator from,
                            Dues::iterator to);

    std::vector<BatchedPicture *> m_waiting;
    Dues m_due;
    Dues m_later; ///< what waits for the next pass
    ClearPlaces m_places;
};

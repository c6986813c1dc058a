// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/TMemProxy.h"
#include "testkit/RecordingMemory.h"
#include "tests/support/PaintEventsOnly.h"

#include <QApplication>
#include <QPainter>
#include <QTest>
#include <QWidget>

#include <array>

/// A meter in a window, for a parameter (3, 7, 2) of a recording memory, and the paints it gets.
template<class Meter>
class MeterRig : public QObject
{
public:
    MeterRig()
    {
        window.resize(300, 300);
        meter.installEventFilter(this);
    }

    void bind()
    {
        memory.bind(meter, 3, 7, 2);
        memory.take();
    }
    void show()
    {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        paintsSince();
    }
    void read(int level, int peak = 0)
    {
        const std::array<Q_UINT8, 4> bytes{Q_UINT8(level >> 7), Q_UINT8(level & 127),
                                           Q_UINT8(peak >> 7), Q_UINT8(peak & 127)};
        meter.process(bytes.data(), TMemProxyBasic::Refresh, 0);
    }
    /// What a memory does after an observer event.
    void observe() { meter.process(nullptr, TMemProxyBasic::Refresh, 0); }
    int paintsSince()
    {
        QApplication::processEvents();
        return std::exchange(m_paints, 0);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        m_paints += event->type() == QEvent::Paint;
        return false;
    }

    RecordingMemory memory;
    QWidget window;
    Meter meter{&window};

private:
    PaintEventsOnly m_events;
    int m_paints = 0;
};

/// The rows (of a standing picture) or columns of that colour, as "0-2 124-135"; throughout their
/// width, else there is a "?".
inline QString stretchesOf(const QImage &image, bool vertical, const QColor &colour)
{
    const int length = vertical ? image.height() : image.width();
    const int across = vertical ? image.width() : image.height();
    const auto matches = [&](int along, int place) {
        return (vertical ? image.pixelColor(place, along) : image.pixelColor(along, place))
               == colour;
    };
    QString text;
    int from = -1;
    for (int at = 0; at <= length; ++at) {
        const bool lit = at < length && matches(at, 0);
        for (int place = 1; at < length && place < across; ++place) {
            if (matches(at, place) != lit)
                return QStringLiteral("?");
        }
        if (lit && from < 0)
            from = at;
        if (!lit && from >= 0)
            text += QStringLiteral(" %1-%2").arg(std::exchange(from, -1)).arg(at - 1);
    }
    return text.trimmed();
}

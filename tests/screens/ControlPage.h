// SPDX-License-Identifier: MIT
#pragma once

#include "testkit/TestStrip.h"
#include "widgets/controls/CDial.h"
#include "widgets/meters/CMeter.h"

#include <QApplication>
#include <QPainter>
#include <QRandomGenerator>
#include <QScrollArea>

/// A background that tells every place from every other.
class Pattern : public QWidget
{
public:
    using QWidget::QWidget;
    void change() { m_shade = (m_shade + 70) % 256, update(); }
    void moveContents(int dx, int dy) { m_origin += {dx, dy}, scroll(dx, dy); }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QPainter painter(this);
        painter.translate(m_origin);
        const QRect part = event->rect().translated(-m_origin);
        for (int y = part.top() / 6 * 6 - 6; y <= part.bottom(); y += 6) {
            for (int x = part.left() / 14 * 14 - 14; x <= part.right(); x += 14)
                painter.fillRect(x, y, 14, 6, QColor(m_shade, x & 255, y & 255));
        }
    }

private:
    QPoint m_origin;
    int m_shade = 0;
};

/// A window with dials and meters on a page that is larger.
struct ControlPage : QWidget
{
    static constexpr QSize Cell{40, 40};
    static constexpr int Rows = 10;

    ControlPage(int dialCount, int meterCount, bool translucent)
    {
        resize(400, 300);
        area.setGeometry(10, 10, 380, 280);
        area.setWidget(&panel);
        panel.setAttribute(Qt::WA_OpaquePaintEvent); // Qt moves its pixels when it is scrolled
        panel.resize(1030, 1030);
        for (int number = dialCount - 1; number >= 0;
             --number) // what shows first has few others above
            dials.append(addDial(number, translucent));
        for (int number = 0; number < meterCount; ++number)
            meters.append(addMeter(number));
    }
    ~ControlPage() override { area.takeWidget(); }

    int any(int count) { return int(dice.bounded(count)); }
    /// That shows, if one is found soon.
    CDial &anyDial()
    {
        CDial *dial = nullptr;
        for (int tries = 0; tries < 50 && (!dial || dial->visibleRegion().isEmpty()); ++tries)
            dial = dials[any(int(dials.size()))];
        return *dial;
    }
    /// A way to go. At scales between whole numbers that is a whole number of pixels: scaled pictures are
    /// drawn differently at halves of one, by Qt, too.
    int anyWay(int count) { return isWhole() ? any(count) : any(count) / 4 * 4; }
    /// At such scales to free places only: Qt's own painting of a part leaves other pixels at the edge of
    /// what lies over it.
    void moveAnywhere(QWidget &control)
    {
        const QRect to(control.x() % 4 + anyWay(300), control.y() % 4 + anyWay(200),
                       control.width(), control.height());
        const auto isInTheWay = [&](const QObject *each) {
            const auto *other = qobject_cast<const QWidget *>(each);
            return other && other != &control && other->geometry().intersects(to);
        };
        const QObjectList &all = panel.children();
        if (isWhole() || std::none_of(all.begin(), all.end(), isInTheWay))
            control.move(to.topLeft());
    }
    /// Instead of the last one, and above the dials.
    QWidget &newFrame()
    {
        delete frame;
        frame = new QWidget(&panel);
        frame->setAutoFillBackground(true);
        frame->setGeometry(any(200), any(150), 60, 40);
        return *frame;
    }
    /// So many readings of each kind.
    void change(int count)
    {
        for (int number = 0; number < count; ++number) {
            anyDial().setValue(any(Rows));
            if (meters.isEmpty())
                continue;
            const int level = any(128);
            const Q_UINT8 bytes[] = {0, Q_UINT8(level), 0, Q_UINT8(std::min(127, level + any(30)))};
            meters[any(int(meters.size()))]->process(bytes, CMeter::Refresh, 0);
        }
    }
    static void settle()
    {
        for (int turn = 0; turn < 3; ++turn)
            QApplication::processEvents();
    }

    QRandomGenerator dice{4711};
    QScrollArea area{this};
    Pattern panel;
    QList<CDial *> dials;
    QList<CMeter *> meters;
    QWidget *frame = nullptr;

private:
    bool isWhole() const { return devicePixelRatio() == int(devicePixelRatio()); }
    int ratio() const { return devicePixelRatio() == 2 ? 2 : 1; }
    /// Qt rounds halves of a pixel the other way left of a window and above it, and scrolling brings that
    /// in. Where each second place is a half, controls keep to the others.
    int off() const { return devicePixelRatio() == 1.5 ? 1 : 0; }
    CDial *addDial(int number, bool translucent)
    {
        auto *dial = new CDial(&panel);
        dial->setFocusPolicy(Qt::NoFocus);
        dial->setGeometry(
            {QPoint(20 + off() + number % 20 * 50, 10 + off() + number / 20 * 50), Cell});
        dial->setTransparent(translucent);
        dial->setCombinedImage(strip(translucent));
        dial->setnSubImages(Rows);
        dial->setRange(0, Rows - 1);
        return dial;
    }
    CMeter *addMeter(int number)
    {
        const QPixmap unlit = teststrip::make(1, 25, {8, 4}, ratio());
        QPixmap lit(unlit.size());
        lit.setDevicePixelRatio(ratio());
        lit.fill(Qt::yellow);
        auto *meter = new CMeter(&panel);
        meter->setMeterBgndImage(unlit);
        meter->setMeterImage(lit);
        meter->move(62 - off() + number % 20 * 50, 13 + number / 20 * 152);
        return meter;
    }
    QPixmap strip(bool translucent) const
    {
        const QPixmap picture = teststrip::make(1, Rows, Cell, ratio());
        if (!translucent)
            return picture;
        QImage image(picture.size(), QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio());
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setOpacity(0.5);
        painter.drawPixmap(0, 0, picture);
        return QPixmap::fromImage(image);
    }
};

// SPDX-License-Identifier: MIT
#include "bench/PagePlan.h"

#include "bench/KnobStrip.h"
#include "bench/Stage.h"
#include "widgets/meters/MeterScale.h"

#include <QPainter>

namespace meterpage {

namespace {

constexpr QSize MeterSize(8, 64);
constexpr QSize DialSize(32, 32);
constexpr int TranslucentAlpha = 160;

QSize times(const QSize &cell, const QSize &count)
{
    return {cell.width() * count.width(), cell.height() * count.height()};
}

QPixmap filled(QColor top, QColor bottom, int alpha)
{
    QImage image(MeterSize,
                 alpha == 255 ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    top.setAlpha(alpha);
    bottom.setAlpha(alpha);
    QLinearGradient gradient(0, 0, 0, MeterSize.height());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    QPainter painter(&image);
    painter.fillRect(image.rect(), gradient);
    painter.end();
    return QPixmap::fromImage(image);
}

Pictures made(int alpha, const QPixmap &knobs)
{
    return {filled(Qt::red, Qt::green, alpha), filled(Qt::darkRed, Qt::darkGreen, alpha),
            knobs.scaled(DialSize.width(), DialSize.height() * DialRows)};
}

} // namespace

QSize Plan::stripSize() const
{
    const QSize both(DialSize.width(), DialSize.height() + MeterSize.height());
    return (hasMeters() ? both : DialSize) + QSize(gap, gap);
}

QSize Plan::panelSize() const
{
    return times(stripSize(), stripsInPanel);
}

QSize Plan::size() const
{
    return times(panelSize(), panels);
}

QRect Plan::panel(int number) const
{
    return Stage::place(number, panels.width(), panelSize());
}

QRect Plan::dial(int strip) const
{
    return {Stage::place(strip, stripsInPanel.width(), stripSize()).topLeft(), DialSize};
}

QRect Plan::meter(int strip) const
{
    const QPoint below((DialSize.width() - MeterSize.width()) / 2, DialSize.height());
    return {dial(strip).topLeft() + below, MeterSize};
}

QWidget *Plan::addPanel(QWidget &window, int number) const
{
    auto *added = new QWidget(&window);
    added->setGeometry(panel(number));
    if (translucent) {
        QLinearGradient shades(0, 0, 0, panelSize().height());
        shades.setColorAt(0, Qt::lightGray);
        shades.setColorAt(1, Qt::darkBlue);
        QPalette palette;
        palette.setBrush(QPalette::Window, shades);
        added->setPalette(palette);
        added->setAutoFillBackground(true);
    }
    return added;
}

const Pictures &opaquePictures()
{
    static const Pictures all = made(255, knobstrip::opaque(DialRows));
    return all;
}

const Pictures &translucentPictures()
{
    static const Pictures all = made(TranslucentAlpha, knobstrip::translucent(DialRows));
    return all;
}

int codeAt(int meter, int frame)
{
    return 50 + meter * 7 % 35 + frame % 2 * 40;
}

int lengthAt(int code)
{
    static const MeterScale scale = [] {
        MeterScale normal = MeterScale::normal();
        normal.sumUp();
        return normal;
    }();
    static const double factor = double(MeterSize.height()) / scale.fullScale();
    return static_cast<int>(scale.offset(scale.indexOf(static_cast<unsigned short>(code)))
                            * factor);
}

int stepAt(int dial, int frame)
{
    return (dial * 7 + frame % 2 * (DialRows / 2)) % DialRows;
}

} // namespace meterpage

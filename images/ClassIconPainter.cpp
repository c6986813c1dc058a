// SPDX-License-Identifier: MIT
#include "images/ClassIconPainter.h"

#include "images/Drawing.h"
#include "images/KnobGeometry.h"
#include "images/KnobStyle.h"
#include "images/StrokeText.h"

#include <QPainter>

namespace artwork {

namespace {

constexpr QColor dimColour(96, 104, 114);
constexpr QPointF iconMiddle(classIconSide / 2.0, classIconSide / 2.0);

QPen pen(const QColor &colour, double width)
{
    return QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void tile(QPainter &painter)
{
    QLinearGradient plate(0, 1, 0, 23);
    plate.setColorAt(0.0, QColor(58, 63, 71));
    plate.setColorAt(1.0, QColor(30, 33, 37));
    painter.setPen(Qt::NoPen);
    painter.setBrush(plate);
    painter.drawRoundedRect(QRectF(1, 1, 22, 22), 4, 4);
    painter.setBrush(Qt::NoBrush);
}

void fill(QPainter &painter, const QRectF &rect, const QColor &colour, double round = 0.8)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(rect, round, round);
}

void dot(QPainter &painter, const QPointF &centre, double radius, const QColor &colour)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(centre, radius, radius);
}

void write(QPainter &painter, const char *text, double height, const QColor &colour)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(pen(colour, 1.3));
    painter.drawPath(strokeText(text, height).translated(iconMiddle));
}

void knob(QPainter &painter, const QColor &colour)
{
    constexpr double pointer = 40;
    painter.save();
    painter.translate(iconMiddle + QPointF(0, 0.5));
    painter.setPen(pen(dimColour, 2));
    painter.drawPath(arcPath(8, firstAngle, lastAngle));
    painter.setPen(pen(colour, 2));
    painter.drawPath(arcPath(8, firstAngle, pointer));
    dot(painter, {0, 0}, 5, QColor(150, 158, 168));
    painter.setPen(pen(QColor(20, 22, 25), 1.6));
    painter.drawLine(pointAt(pointer, 1.5), pointAt(pointer, 4.6));
    painter.restore();
}

void key(QPainter &painter, const char *label, const QColor &colour)
{
    fill(painter, {3, 6.5, 18, 11}, colour, 2.5);
    write(painter, label, 5, QColor(16, 17, 18));
}

/// Axes, and a curve in the square of 16 pixels that they open.
void graph(QPainter &painter, std::initializer_list<QPointF> points, const QColor &colour)
{
    const QPointF origin(4.5, 19.5);
    painter.setPen(pen(dimColour, 1.2));
    painter.drawPolyline(QPolygonF{{4.5, 4}, origin, {20, 19.5}});
    QPolygonF curve;
    for (const QPointF &point : points)
        curve << origin + QPointF(point.x(), -point.y());
    painter.setPen(pen(colour, 2));
    painter.drawPolyline(curve);
}

void dial(QPainter &painter, QSize)
{
    tile(painter);
    knob(painter, accent::amber);
}

void headAmpDial(QPainter &painter, QSize)
{
    tile(painter);
    knob(painter, accent::red);
}

void phantomDial(QPainter &painter, QSize)
{
    tile(painter);
    knob(painter, accent::red);
    painter.setPen(pen(accent::red, 1.6));
    painter.drawLine(QPointF(19, 3), QPointF(19, 8));
    painter.drawLine(QPointF(16.5, 5.5), QPointF(21.5, 5.5));
}

void onOffButton(QPainter &painter, QSize)
{
    tile(painter);
    key(painter, "ON", accent::green);
}

void selectButton(QPainter &painter, QSize)
{
    tile(painter);
    key(painter, "SEL", accent::amber);
}

void phantomButton(QPainter &painter, QSize)
{
    tile(painter);
    key(painter, "48V", accent::red);
}

void pullDownMenu(QPainter &painter, QSize)
{
    tile(painter);
    fill(painter, {3.5, 4, 17, 6}, lineColour);
    painter.setBrush(QColor(30, 33, 37));
    painter.drawPolygon(QPolygonF{{14.5, 6}, {19, 6}, {16.75, 8.6}});
    painter.setPen(pen(dimColour, 1.6));
    for (const double y : {13.0, 16.5, 20.0})
        painter.drawLine(QPointF(5, y), QPointF(19, y));
}

void rollingPanel(QPainter &painter, QSize)
{
    tile(painter);
    painter.setPen(pen(lineColour, 1.6));
    for (const double y : {5.0, 8.0, 11.0})
        painter.drawLine(QPointF(4.5, y), QPointF(19.5, y));
    painter.setPen(pen(accent::blue, 1.8));
    painter.drawPolyline(QPolygonF{{9, 16.5}, {12, 19.5}, {15, 16.5}});
    painter.drawLine(QPointF(12, 14), QPointF(12, 19.5));
}

void bitLamps(QPainter &painter, QSize)
{
    tile(painter);
    const QColor lamps[] = {accent::amber, dimColour, accent::amber, dimColour};
    for (int lamp = 0; lamp < 4; ++lamp)
        fill(painter, {7, 3.5 + 4.5 * lamp, 10, 3}, lamps[lamp], 1.2);
}

void statePicture(QPainter &painter, QSize)
{
    tile(painter);
    dot(painter, {9, 12}, 5.2, dimColour);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(pen(accent::blue, 1.8));
    painter.drawEllipse(QPointF(15, 12), 4.6, 4.6);
}

void meter(QPainter &painter, QSize)
{
    tile(painter);
    const QColor segments[] = {accent::red, accent::amber, accent::green, accent::green,
                               accent::green};
    for (int segment = 0; segment < 5; ++segment) {
        const double y = 3.5 + 3.5 * segment;
        fill(painter, {6, y, 5, 2.6}, segment < 1 ? dimColour : segments[segment]);
        fill(painter, {13, y, 5, 2.6}, segment < 2 ? dimColour : segments[segment]);
    }
}

void pictureMeter(QPainter &painter, QSize)
{
    tile(painter);
    for (int step = 0; step < 3; ++step)
        dot(painter, {6.5 + 5.5 * step, 12}, 1.6 + 0.8 * step,
            blend(dimColour, accent::green, step / 2.0));
}

void thresholdLamp(QPainter &painter, QSize)
{
    tile(painter);
    dot(painter, {12, 8}, 3.6, accent::green);
    painter.setPen(QPen(lineColour, 1.4, Qt::DashLine, Qt::FlatCap));
    painter.drawLine(QPointF(4, 14.5), QPointF(20, 14.5));
    dot(painter, {12, 19}, 1.8, dimColour);
}

void timeDisplay(QPainter &painter, QSize)
{
    tile(painter);
    fill(painter, {2.5, 6.5, 19, 11}, QColor(10, 11, 13), 1.5);
    painter.save();
    painter.translate(-4.8, 0);
    write(painter, "8", 6, QColor(120, 226, 255));
    painter.translate(9.6, 0);
    write(painter, "8", 6, QColor(120, 226, 255));
    painter.restore();
    dot(painter, {12, 10.4}, 0.9, QColor(120, 226, 255));
    dot(painter, {12, 13.6}, 0.9, QColor(120, 226, 255));
}

void compressorCurve(QPainter &painter, QSize)
{
    tile(painter);
    graph(painter, {{1, 1}, {9, 9}, {15, 11.5}}, accent::green);
}

void gateCurve(QPainter &painter, QSize)
{
    tile(painter);
    graph(painter, {{2, 1.5}, {7, 1.5}, {7, 7}, {14.5, 14.5}}, accent::green);
}

void grid(QPainter &painter, QSize)
{
    tile(painter);
    painter.setPen(pen(dimColour, 1));
    for (const double at : {4.5, 9.5, 14.5, 19.5}) {
        painter.drawLine(QPointF(at, 4.5), QPointF(at, 19.5));
        painter.drawLine(QPointF(4.5, at), QPointF(19.5, at));
    }
    for (const QPointF &ball : {QPointF(7, 7), QPointF(12, 17), QPointF(17, 12)})
        dot(painter, ball, 1.9, accent::amber);
}

void list(QPainter &painter, QSize)
{
    tile(painter);
    fill(painter, {3.5, 8.8, 17, 4.6}, accent::blue);
    for (const double y : {6.0, 11.1, 16.0, 20.0}) {
        painter.setPen(pen(lineColour, 1.4));
        painter.drawPoint(QPointF(5.5, y));
        painter.drawLine(QPointF(8.5, y), QPointF(18.5, y));
    }
}

void gridPanel(QPainter &painter, QSize)
{
    tile(painter);
    fill(painter, {4, 4, 16, 3.4}, accent::amber);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(pen(lineColour, 1));
    painter.drawRect(QRectF(9.5, 9.5, 10, 10));
    painter.setPen(pen(dimColour, 1));
    painter.drawLine(QPointF(14.5, 9.5), QPointF(14.5, 19.5));
    painter.drawLine(QPointF(9.5, 14.5), QPointF(19.5, 14.5));
    for (const double y : {12.0, 17.0})
        painter.drawLine(QPointF(4.5, y), QPointF(7, y));
}

void repeater(QPainter &painter, QSize)
{
    tile(painter);
    for (int strip = 0; strip < 3; ++strip) {
        const double x = 4 + 5.6 * strip;
        fill(painter, {x, 4, 4.6, 16}, strip == 0 ? lineColour : dimColour);
        dot(painter, {x + 2.3, 8}, 1.4, strip == 0 ? QColor(30, 33, 37) : lineColour);
    }
}

const ClassIcon all[] = {
    {"class-CDial", dial},
    {"class-CHADial", headAmpDial},
    {"class-C48VDial", phantomDial},
    {"class-COnOffButton", onOffButton},
    {"class-CSelectButton", selectButton},
    {"class-C48V", phantomButton},
    {"class-CPullDownMenu", pullDownMenu},
    {"class-CAnimMenu", rollingPanel},
    {"class-StateDisplayBit", bitLamps},
    {"class-StateDisplayWidget", statePicture},
    {"class-CMeter", meter},
    {"class-CPixmapMeter", pictureMeter},
    {"class-CThresholdMeter", thresholdLamp},
    {"class-CTimeDisplay", timeDisplay},
    {"class-CCompCurve", compressorCurve},
    {"class-CGateCurve", gateCurve},
    {"class-CGrid", grid},
    {"class-CListWidge", list},
    {"class-GridPanel", gridPanel},
    {"class-FormRepeater", repeater},
};

} // namespace

std::span<const ClassIcon> classIcons()
{
    return all;
}

} // namespace artwork

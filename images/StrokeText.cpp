// SPDX-License-Identifier: MIT
#include "images/StrokeText.h"

#include <QTransform>

namespace artwork {

namespace {

constexpr double letterWidth = 0.62; ///< of a letter of height 1
constexpr double letterGap = 0.3;
constexpr double blankWidth = 0.3;

void lines(QPainterPath &path, std::initializer_list<QPointF> points)
{
    path.moveTo(*points.begin());
    for (const QPointF &point : points)
        path.lineTo(point);
}

void addBowl(QPainterPath &path)
{
    path.moveTo(0, 0.54);
    path.lineTo(0.6, 0.54);
    path.arcTo(QRectF(0.32, 0, 0.66, 0.54), -90, 180);
    path.lineTo(0, 0);
    path.lineTo(0, 1);
}

void addSnake(QPainterPath &path)
{
    path.moveTo(0.96, 0.16);
    path.cubicTo(0.8, -0.06, 0.05, -0.1, 0.05, 0.25);
    path.cubicTo(0.05, 0.6, 1, 0.4, 1, 0.74);
    path.cubicTo(1, 1.1, 0.15, 1.06, 0, 0.82);
}

void addArch(QPainterPath &path)
{
    path.moveTo(0.95, 0.2);
    path.cubicTo(0.75, -0.1, 0, -0.1, 0, 0.5);
    path.cubicTo(0, 1.1, 0.75, 1.1, 0.95, 0.8);
}

void addBelly(QPainterPath &path)
{
    path.moveTo(0, 0);
    path.lineTo(0.4, 0);
    path.cubicTo(1.15, 0, 1.15, 1, 0.4, 1);
    path.lineTo(0, 1);
    path.closeSubpath();
}

void addCup(QPainterPath &path)
{
    path.moveTo(0, 0);
    path.lineTo(0, 0.66);
    path.cubicTo(0, 1.11, 1, 1.11, 1, 0.66);
    path.lineTo(1, 0);
}

/// In a box of 1 by 1.
QPainterPath glyph(char letter)
{
    QPainterPath path;
    switch (letter) {
    case '+':
        lines(path, {{0, 0.55}, {1, 0.55}});
        lines(path, {{0.5, 0.24}, {0.5, 0.86}});
        break;
    case '4': lines(path, {{0.74, 1}, {0.74, 0}, {0, 0.7}, {1, 0.7}}); break;
    case '8':
        path.addEllipse(QRectF(0.1, 0, 0.8, 0.46));
        path.addEllipse(QRectF(0, 0.46, 1, 0.54));
        break;
    case 'A':
        lines(path, {{0, 1}, {0.5, 0}, {1, 1}});
        lines(path, {{0.17, 0.68}, {0.83, 0.68}});
        break;
    case 'C': addArch(path); break;
    case 'D': addBelly(path); break;
    case 'E':
        lines(path, {{0.9, 0}, {0, 0}, {0, 1}, {0.9, 1}});
        lines(path, {{0, 0.5}, {0.75, 0.5}});
        break;
    case 'I': lines(path, {{0.5, 0}, {0.5, 1}}); break;
    case 'L': lines(path, {{0, 0}, {0, 1}, {0.9, 1}}); break;
    case 'N': lines(path, {{0, 1}, {0, 0}, {1, 1}, {1, 0}}); break;
    case 'O': path.addRoundedRect(QRectF(0, 0, 1, 1), 0.5, 0.42); break;
    case 'P': addBowl(path); break;
    case 'R':
        addBowl(path);
        lines(path, {{0.5, 0.54}, {1, 1}});
        break;
    case 'S': addSnake(path); break;
    case 'T':
        lines(path, {{0, 0}, {1, 0}});
        lines(path, {{0.5, 0}, {0.5, 1}});
        break;
    case 'U': addCup(path); break;
    case 'V': lines(path, {{0, 0}, {0.5, 1}, {1, 0}}); break;
    default: break;
    }
    return path;
}

double widthOf(char letter)
{
    return letter == 'I' || letter == ' ' ? blankWidth : letterWidth;
}

} // namespace

QPainterPath strokeText(const char *text, double height)
{
    QPainterPath all;
    double x = 0;
    for (const char *letter = text; *letter; ++letter) {
        const double width = widthOf(*letter);
        all.addPath(QTransform::fromScale(width, 1).map(glyph(*letter)).translated(x, 0));
        x += width + letterGap;
    }
    const QTransform place = QTransform::fromScale(height, height);
    return place.map(all.translated(-(x - letterGap) / 2, -0.5));
}

} // namespace artwork

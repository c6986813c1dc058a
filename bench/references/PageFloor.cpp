// SPDX-License-Identifier: MIT
#include "bench/references/PageFloor.h"

#include "bench/Producer.h"
#include "bench/Stage.h"
#include "editor/soak/WindowPicture.h"
#include "widgets/controls/CDial.h"

#include <QBackingStore>
#include <QPainter>

#include <algorithm>
#include <cstring>
#include <optional>

using namespace meterpage;

namespace {

/// Edges are rounded, as the pictures of controls are placed.
QRect inPixels(const QRect &rect, qreal ratio)
{
    const QPoint corner(qRound(rect.x() * ratio), qRound(rect.y() * ratio));
    const QPoint end(qRound((rect.x() + rect.width()) * ratio),
                     qRound((rect.y() + rect.height()) * ratio));
    return {corner, end - QPoint(1, 1)};
}

void copyLines(QImage &to, const QPoint &at, const QImage &from, const QRect &part)
{
    constexpr int BytesPerPixel = 4;
    const auto bytes = static_cast<size_t>(part.width()) * BytesPerPixel;
    const uchar *line = from.constScanLine(part.y()) + part.x() * BytesPerPixel;
    uchar *place = to.scanLine(at.y()) + at.x() * BytesPerPixel;
    for (int count = part.height(); count > 0; --count) {
        std::memcpy(place, line, bytes);
        line += from.bytesPerLine();
        place += to.bytesPerLine();
    }
}

/// The rows of a picture as a control of the library paints them on a screen of that ratio, below one
/// another.
QImage cells(const QPixmap &picture, int rows, qreal ratio)
{
    QWidget page;
    CDial dial(&page);
    dial.setCombinedImage(picture);
    dial.setnSubImages(rows);
    dial.setTransparent(picture.hasAlphaChannel());
    dial.resize(picture.width(), picture.height() / rows);
    dial.setRange(0, std::max(1, rows - 1));
    QImage cell(dial.size() * ratio, picture.toImage().format());
    cell.setDevicePixelRatio(ratio);
    QImage column(cell.width(), cell.height() * rows, cell.format());
    for (int row = 0; row < rows; ++row) {
        dial.setValue(row);
        cell.fill(Qt::transparent);
        dial.render(&cell, {}, {}, QWidget::RenderFlags());
        copyLines(column, {0, row * cell.height()}, cell, cell.rect());
    }
    return column;
}

} // namespace

PageFloor::PageFloor(const Plan &plan) : m_translucent(plan.translucent)
{
    m_window.resize(plan.size());
    for (int panel = 0; panel < plan.panelCount(); ++panel)
        plan.addPanel(m_window, panel);
    Stage::show(m_window);
    m_ground = windowpicture::present(m_window);
    const qreal ratio = m_window.devicePixelRatio();
    m_lit = cells(pictures(plan).lit, 1, ratio);
    m_unlit = cells(pictures(plan).unlit, 1, ratio);
    m_dial = cells(pictures(plan).dial, DialRows, ratio);
    for (int number = 0; number < plan.strips(); ++number) {
        const QPoint panel = plan.panel(number / plan.stripsOfPanel()).topLeft();
        const int strip = number % plan.stripsOfPanel();
        for (int frame = 0; Cells & cells : m_frames) {
            addDial(cells, plan.dial(strip).translated(panel), stepAt(number, frame));
            addMeter(cells, plan.meter(strip).translated(panel), lengthAt(codeAt(number, frame)));
            ++frame;
        }
    }
}

void PageFloor::addGround(Cells &cells, const QRect &pixels) const
{
    if (m_translucent)
        cells.push_back({&m_ground, pixels, pixels.topLeft()});
}

void PageFloor::addDial(Cells &cells, const QRect &place, int step) const
{
    const QRect pixels = inPixels(place, m_window.devicePixelRatio());
    addGround(cells, pixels);
    cells.push_back(
        {&m_dial, {QPoint(0, step * pixels.height()), pixels.size()}, pixels.topLeft()});
}

/// A translucent one is drawn whole as if nothing were lit, and what is lit above that.
void PageFloor::addMeter(Cells &cells, const QRect &place, int length) const
{
    const qreal ratio = m_window.devicePixelRatio();
    const QRect pixels = inPixels(place, ratio);
    const QRect lit = inPixels(place.adjusted(0, place.height() - length, 0, 0), ratio);
    const QRect unlit = m_translucent ? pixels : pixels.adjusted(0, 0, 0, -lit.height());
    addGround(cells, pixels);
    cells.push_back({&m_unlit, unlit.translated(-pixels.topLeft()), unlit.topLeft()});
    cells.push_back({&m_lit, lit.translated(-pixels.topLeft()), lit.topLeft()});
}

double PageFloor::frame(int number)
{
    const double start = processSeconds();
    QBackingStore &store = *m_window.backingStore();
    store.beginPaint(m_window.rect());
    auto *shown = static_cast<QImage *>(store.paintDevice());
    QImage pixels(shown->bits(), shown->width(), shown->height(), shown->bytesPerLine(),
                  shown->format());
    std::optional<QPainter> painter;
    if (m_translucent)
        painter.emplace(&pixels);
    for (const Cell &each : m_frames[static_cast<size_t>(number % 2)]) {
        if (each.picture->hasAlphaChannel())
            painter->drawImage(each.at, *each.picture, each.source);
        else
            copyLines(pixels, each.at, *each.picture, each.source);
    }
    painter.reset();
    store.endPaint();
    store.flush(m_window.rect());
    return processSeconds() - start;
}

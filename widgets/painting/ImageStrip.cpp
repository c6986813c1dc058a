// SPDX-License-Identifier: MIT
#include "widgets/painting/ImageStrip.h"

#include "interfaces/utilities/NS_Utilities.h"
#include "widgets/painting/Picture.h"

#include <QDebug>
#include <QImage>
#include <QtMath>

QRect picturecells::cell(const QPixmap &picture, const QSize &grid, const QPoint &at)
{
    return NS_Utilities::partialPixmapRect(at, picture, grid);
}

QSizeF picturecells::exactSize(const QPixmap &picture, const QSize &grid)
{
    return QSizeF(cell(picture, grid, {0, 0}).size()) / picture.devicePixelRatio();
}

QSize picturecells::size(const QPixmap &picture, const QSize &grid)
{
    const QSizeF exact = exactSize(picture, grid);
    return {qCeil(exact.width()), qCeil(exact.height())};
}

void ImageStrip::setPicture(const QPixmap &picture)
{
    m_picture = picture;
    gridChanged();
}

void ImageStrip::setRows(int rows)
{
    m_rows = rows;
    gridChanged();
}

void ImageStrip::setCategories(int categories)
{
    // Deliberate: three bits, so 9 is 1 and 8 is none.
    m_categories = static_cast<unsigned>(categories) & 7U;
    gridChanged();
}

bool ImageStrip::setCurrentCategory(int category)
{
    if (category >= categories())
        return false;
    m_currentCategory = category;
    return true;
}

bool ImageStrip::covers(const QSize &size) const
{
    const QSizeF cell = cellSize();
    return m_opaque && cell.width() >= size.width() && cell.height() >= size.height();
}

bool ImageStrip::outlineContains(int row, bool enabled, const QPoint &point) const
{
    const QPoint at = shownCell(row, enabled);
    const QRect source = cell(at.x(), at.y());
    const qreal ratio = m_picture.devicePixelRatio();
    const QPoint pixel = source.topLeft() + (QPointF(point) * ratio).toPoint();
    if (!source.contains(pixel))
        return false;
    if (!m_picture.hasAlphaChannel())
        return true;
    const QImage line = m_picture.copy(source.x(), pixel.y(), source.width(), 1).toImage();
    int first = 0;
    int last = line.width() - 1;
    while (first <= last && qAlpha(line.pixel(first, 0)) == 0)
        ++first;
    while (last >= first && qAlpha(line.pixel(last, 0)) == 0)
        --last;
    const int x = pixel.x() - source.x();
    return first <= x && x <= last;
}

void ImageStrip::describe(Picture &picture, int row, bool enabled) const
{
    const QPoint at = shownCell(row, enabled);
    const QRect source = cell(at.x(), at.y());
    if (enabled || m_disabledRow >= 0)
        picture.add(m_picture, source);
    else if (!source.isEmpty())
        picture.add(grey(row), grey(row).rect());
}

void ImageStrip::warnIfUneven(const QObject &owner) const
{
    if (m_picture.isNull() || m_rows < 1 || m_categories < 1)
        return;
    if (m_picture.height() % m_rows == 0 && m_picture.width() % categories() == 0)
        return;
    qWarning().noquote().nospace()
        << owner.metaObject()->className() << " \"" << owner.objectName() << "\": a picture of "
        << m_picture.width() << " x " << m_picture.height() << " pixels does not divide into "
        << categories() << " columns and " << m_rows << " rows; the rest is cut off.";
}

void ImageStrip::gridChanged()
{
    m_greyRow = -1;
    m_grey.reset();
    m_cellSize = QSizeF(0, 0);
    m_opaque = !m_picture.isNull() && !m_picture.hasAlphaChannel();
}

/// Every paint asks for it; the picture changes hardly ever.
void ImageStrip::measure() const
{
    m_cellSize = picturecells::exactSize(m_picture, {categories(), m_rows});
}

QRect ImageStrip::cell(int category, int row) const
{
    return picturecells::cell(m_picture, {categories(), m_rows}, {category, row});
}

QPoint ImageStrip::shownCell(int row, bool enabled) const
{
    if (enabled)
        return {m_currentCategory, row};
    if (m_disabledRow >= 0)
        return {m_currentCategory, m_disabledRow};
    // Deliberate: a control without a disabled picture turns column 0 grey, whatever its category.
    return {0, row};
}

const QPixmap &ImageStrip::grey(int row) const
{
    if (row != m_greyRow || !m_grey) {
        QPixmap colour = m_picture.copy(cell(0, row));
        colour.setDevicePixelRatio(m_picture.devicePixelRatio());
        m_grey = QPixmap::fromImage(NS_Utilities::applyGreyTransformation(colour));
        m_greyRow = row;
    }
    return *m_grey;
}

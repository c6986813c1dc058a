// SPDX-License-Identifier: MIT
#include "widgets/buttons/COnOffButton_PD.h"

#include "interfaces/utilities/NS_Utilities.h"
#include "widgets/painting/ImageStrip.h"

#include <QPainter>

#include <algorithm>

namespace {

/// The number of rows at which the last one is the disabled picture without being asked for.
constexpr int RowsWithDisabledPicture = 4;
constexpr int RowsWithTrackingPicture = 3;
constexpr int OnRow = 0;
constexpr int OffRow = 1;
constexpr int TrackingRow = 2;

QPixmap startImage(const QSize &size, qreal ratio, const QPixmap &plain)
{
    QPixmap image((QSizeF(size) * ratio).toSize());
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    if (!plain.isNull() && !image.isNull())
        QPainter(&image).drawPixmap(0, 0, plain);
    return image;
}

} // namespace

QSize COnOffButton::COnOffButton_PD::cellSize() const
{
    return picturecells::size(combinedImage, {categories, subImages});
}

bool COnOffButton::COnOffButton_PD::isOpaque() const
{
    const QPixmap *all[] = {&onImage, &offImage, &trackingImage, &disabledImage};
    const auto end = std::end(all) - (hasDisabledCell ? 0 : 1);
    return std::all_of(std::begin(all), end, [](const QPixmap *image) {
        return !image->isNull() && !image->hasAlphaChannel();
    });
}

void COnOffButton::COnOffButton_PD::cut(int category, const QSize &size, const QPixmap &plain)
{
    const QPixmap start = startImage(size, combinedImage.devicePixelRatio(), plain);
    onImage = cutRow(category, OnRow, start);
    offImage = cutRow(category, OffRow, start);
    trackingImage = subImages >= RowsWithTrackingPicture ? cutRow(category, TrackingRow, start)
                                                         : stateImage(true);
    hasDisabledCell = hasDisableImage || subImages == RowsWithDisabledPicture;
    disabledImage = hasDisabledCell ? cutRow(category, subImages - 1, start) : start;
}

QPixmap COnOffButton::COnOffButton_PD::cutRow(int category, int row, const QPixmap &start) const
{
    const QRect source =
        picturecells::cell(combinedImage, {categories, subImages}, {category, row});
    if (source.isEmpty())
        return start;
    const QSize cell = source.size();
    // A cell that is the whole picture keeps what it is, opaque above all.
    if (start.size() == cell && combinedImage.rect().contains(source)) {
        QPixmap image = combinedImage.copy(source);
        image.setDevicePixelRatio(combinedImage.devicePixelRatio());
        return image;
    }
    QPixmap image = start;
    QPainter painter(&image);
    painter.scale(1 / image.devicePixelRatio(), 1 / image.devicePixelRatio());
    const QPoint corner((image.width() - cell.width()) / 2, (image.height() - cell.height()) / 2);
    painter.drawPixmap(QRect(corner, cell), combinedImage, source);
    return image;
}

QPixmap COnOffButton::COnOffButton_PD::greyImage(bool on)
{
    const QPixmap &colour = stateImage(on);
    if (m_greyOf[on] != colour.cacheKey()) {
        m_grey[on] = QPixmap::fromImage(NS_Utilities::applyGreyTransformation(colour));
        m_greyOf[on] = colour.cacheKey();
    }
    return m_grey[on];
}

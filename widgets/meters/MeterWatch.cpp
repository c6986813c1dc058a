// SPDX-License-Identifier: MIT
#include "widgets/meters/MeterWatch.h"

#include "widgets/binding/Binding.h"

#include <QWidget>

QString metering::levelText(const TMemProxy &proxy, int code)
{
    if (!binding::ready(proxy) || !proxy.isAttached())
        return {};
    return binding::display(proxy, code, binding::range(proxy)).text;
}

bool metering::hides(const QPixmap &picture, const QSizeF &size, const QWidget &widget)
{
    return !picture.isNull() && !picture.hasAlphaChannel() && size.width() >= widget.width()
           && size.height() >= widget.height();
}

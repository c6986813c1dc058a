// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/TMemProxy.h"

#include <QWidget>

/// The proxy that a widget is; null when it is no bound control.
inline TMemProxy *proxyOf(QWidget *widget)
{
    return dynamic_cast<TMemProxy *>(widget);
}

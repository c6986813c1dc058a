// SPDX-License-Identifier: MIT
#include "designer/DesignerWidgets.h"

DesignerWidgets::DesignerWidgets(QObject *parent) : QObject(parent)
{
    for (const WidgetRegistry::Entry &entry : WidgetRegistry::entries())
        m_widgets.push_back(std::make_unique<DesignerWidget>(entry));
}

QList<QDesignerCustomWidgetInterface *> DesignerWidgets::customWidgets() const
{
    QList<QDesignerCustomWidgetInterface *> all;
    for (const std::unique_ptr<DesignerWidget> &widget : m_widgets)
        all << widget.get();
    return all;
}

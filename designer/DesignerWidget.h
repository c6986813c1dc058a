// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/forms/WidgetRegistry.h"

#include <QtUiPlugin/QDesignerCustomWidgetInterface>

/// One class of the registry, as Qt Designer asks about it.
class DesignerWidget : public QDesignerCustomWidgetInterface
{
public:
    explicit DesignerWidget(const WidgetRegistry::Entry &entry) : m_entry(entry) {}

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    /// Called by Designer, not by those that only load forms.
    void initialize(QDesignerFormEditorInterface *core) override;
    bool isInitialized() const override { return m_inEditor; }
    QWidget *createWidget(QWidget *parent) override;
    /// What is dropped onto a form, and what Designer says of the class's properties.
    QString domXml() const override;

private:
    const WidgetRegistry::Entry &m_entry;
    bool m_inEditor = false;
};

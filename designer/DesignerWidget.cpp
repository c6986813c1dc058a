// SPDX-License-Identifier: MIT
#include "designer/DesignerWidget.h"

#include "designer/LampPreview.h"
#include "widgets/buttons/StateDisplayBit.h"
#include "widgets/forms/PropertyNotes.h"

#include <QMetaProperty>
#include <QXmlStreamWriter>

namespace {

/// Texts that people read are translated; addresses, lists and names are not.
bool isForPeople(const QMetaProperty &property)
{
    static const QByteArrayList texts{"caption", "channelTitles", "fieldTitles", "menuItemList"};
    return texts.contains(property.name());
}

void writeNotes(QXmlStreamWriter &xml, const QMetaObject &meta)
{
    for (int index = 0; index < meta.propertyCount(); ++index) {
        const QMetaProperty property = meta.property(index);
        const QString note = propertynotes::of(meta, QLatin1StringView(property.name()));
        if (note.isEmpty())
            continue;
        xml.writeStartElement("tooltip");
        xml.writeAttribute("name", QLatin1StringView(property.name()));
        xml.writeCharacters(note);
        xml.writeEndElement();
        if (property.typeId() != QMetaType::QString)
            continue;
        xml.writeStartElement("stringpropertyspecification");
        xml.writeAttribute("name", QLatin1StringView(property.name()));
        xml.writeAttribute("type", "singleline");
        xml.writeAttribute("notr", isForPeople(property) ? "false" : "true");
        xml.writeEndElement();
    }
}

} // namespace

QString DesignerWidget::name() const
{
    return QLatin1StringView(m_entry.className());
}

QString DesignerWidget::group() const
{
    return QString::fromUtf8(m_entry.group);
}

QString DesignerWidget::toolTip() const
{
    return QString::fromUtf8(m_entry.toolTip);
}

QString DesignerWidget::whatsThis() const
{
    return QString::fromUtf8(m_entry.whatsThis);
}

QString DesignerWidget::includeFile() const
{
    return m_entry.header();
}

QIcon DesignerWidget::icon() const
{
    return m_entry.icon();
}

bool DesignerWidget::isContainer() const
{
    return m_entry.isContainer;
}

void DesignerWidget::initialize(QDesignerFormEditorInterface *)
{
    m_inEditor = true;
}

QWidget *DesignerWidget::createWidget(QWidget *parent)
{
    QWidget *widget = m_entry.make(parent);
    if (auto *lamps = qobject_cast<StateDisplayBit *>(widget); lamps && m_inEditor)
        new LampPreview(*lamps);
    return widget;
}

QString DesignerWidget::domXml() const
{
    QString text;
    QXmlStreamWriter xml(&text);
    xml.writeStartElement("ui");
    xml.writeAttribute("language", "c++");
    m_entry.writeWidget(xml);
    xml.writeStartElement("customwidgets");
    xml.writeStartElement("customwidget");
    xml.writeTextElement("class", name());
    xml.writeTextElement("extends", QLatin1StringView(m_entry.baseClass()));
    xml.writeStartElement("propertyspecifications");
    writeNotes(xml, *m_entry.metaObject);
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeEndElement();
    return text;
}

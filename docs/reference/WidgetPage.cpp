// SPDX-License-Identifier: MIT
#include "WidgetPage.h"

#include <QColor>
#include <QHash>
#include <QMetaEnum>
#include <QMetaProperty>
#include <QPixmap>
#include <QWidget>

#include <memory>

namespace {

QString unitOf(const QString &property)
{
    static const QHash<QString, QString> units{
        {"boolClipValue", "stored value, from 1"},
        {"cellHeights", "pixels"},
        {"cellWidths", "pixels"},
        {"channels", "strips"},
        {"cmpValue", "stored value"},
        {"cursorThickness", "pixels"},
        {"disabledImageIndex", "row of the strip"},
        {"firstChannel", "channel, from 1"},
        {"gridHeights", "pixels"},
        {"gridWidths", "pixels"},
        {"groupIndexStart", "bit, from 0"},
        {"horCount", "rows"},
        {"meterTableId", "number of a table"},
        {"meterThresholdTableId", "number of a table"},
        {"nImageCategories", "columns of the strip"},
        {"nSubImages", "rows of the strip"},
        {"numDefaultKind", "0 or 1"},
        {"selBaseOffset", "channel, from 0"},
        {"spacing", "pixels"},
        {"tableId", "number of a table"},
        {"thresholdLevel", "14-bit level code"},
        {"updateFrequency", "times a second"},
        {"verCount", "columns"},
    };
    return units.value(property);
}

/// The nearest class that is not ours.
const QMetaObject *toolkitBase(const QMetaObject *type)
{
    while (type->className()[0] != 'Q')
        type = type->superClass();
    return type;
}

QString declaringClass(const QMetaObject *type, int property)
{
    while (type->propertyOffset() > property)
        type = type->superClass();
    return type->className();
}

QString shown(const QMetaProperty &property, const QObject &object)
{
    const QVariant value = property.read(&object);
    if (property.isEnumType())
        return property.enumerator().valueToKey(value.toInt());
    if (value.metaType() == QMetaType::fromType<QPixmap>())
        return value.value<QPixmap>().isNull() ? "none" : "a picture";
    if (value.metaType() == QMetaType::fromType<QColor>())
        return value.value<QColor>().isValid() ? value.value<QColor>().name() : "none";
    return value.toString().isEmpty() ? "empty" : value.toString();
}

/// A property or signal of a class, by its name and what its header says first.
QString linked(const QString &type, const QString &member)
{
    return QString("<td>@ref %1::%2 \"%2\"</td>").arg(type, member);
}

QString argumentsOf(const QMetaMethod &signal)
{
    QStringList texts;
    for (int i = 0; i < signal.parameterCount(); ++i)
        texts << signal.parameterTypes().at(i) + ' ' + signal.parameterNames().at(i);
    return texts.join(", ");
}

QString cell(const QString &text)
{
    // Colours begin as a link would.
    return "<td>" + text.toHtmlEscaped().replace('#', "\\#") + "</td>";
}

} // namespace

QString WidgetPage::picture(int width) const
{
    return QString("@image html %1.png width=%2px\n").arg(m_entry.className()).arg(width);
}

QString WidgetPage::text(int width) const
{
    return QString("/** @class %1\n"
                   "%2"
                   "<h3>How it reads and writes</h3>\n"
                   "@snippetdoc reading-and-writing.txt %1\n"
                   "<h3>Example</h3>\n"
                   "@snippet Specimens.cpp %1\n"
                   "<h3>Properties</h3>\n%3"
                   "<h3>Signals</h3>\n%4"
                   "*/\n")
        .arg(m_entry.className(), picture(width), properties(), signalTable());
}

QString WidgetPage::properties() const
{
    const std::unique_ptr<QWidget> fresh(m_entry.make(nullptr));
    const QMetaObject *type = m_entry.metaObject;
    const QMetaObject *base = toolkitBase(type);
    QString rows;
    for (int i = base->propertyCount(); i < type->propertyCount(); ++i) {
        const QMetaProperty property = type->property(i);
        const QString owner = declaringClass(type, i);
        rows += "<tr>" + linked(owner, property.name()) + cell(property.typeName())
                + cell(shown(property, *fresh)) + cell(unitOf(property.name()))
                + QString("<td>@copybrief %1::%2\n</td></tr>\n").arg(owner, property.name());
    }
    return "<table><tr><th>Property<th>Type<th>Default<th>Unit<th>Meaning</tr>\n" + rows
           + "</table>\n" + QString("And those of the toolkit's %1.\n").arg(base->className());
}

QString WidgetPage::signalTable() const
{
    const QMetaObject *type = m_entry.metaObject;
    const QMetaObject *base = toolkitBase(type);
    QString rows;
    for (int i = base->methodCount(); i < type->methodCount(); ++i) {
        const QMetaMethod method = type->method(i);
        if (method.methodType() != QMetaMethod::Signal)
            continue;
        const QMetaObject *owner = type;
        while (owner->methodOffset() > i)
            owner = owner->superClass();
        rows += "<tr>" + linked(owner->className(), method.name()) + cell(argumentsOf(method))
                + QString("<td>@copybrief %1::%2\n</td></tr>\n")
                      .arg(owner->className(), QString(method.name()));
    }
    const QString own =
        rows.isEmpty()
            ? "None of its own.\n"
            : "<table><tr><th>Signal<th>Arguments<th>What it tells</tr>\n" + rows + "</table>\n";
    return own + QString("And those of the toolkit's %1.\n").arg(base->className());
}

QStringList WidgetPage::withoutUnit() const
{
    QStringList names;
    const QMetaObject *type = m_entry.metaObject;
    for (int i = toolkitBase(type)->propertyCount(); i < type->propertyCount(); ++i) {
        const QMetaProperty property = type->property(i);
        const bool isNumber =
            !property.isEnumType() && property.metaType().id() != QMetaType::Bool
            && QMetaType::canConvert(property.metaType(), QMetaType::fromType<int>())
            && property.metaType().id() != QMetaType::QString;
        if (isNumber && unitOf(property.name()).isEmpty())
            names << QString("%1::%2").arg(type->className(), property.name());
    }
    return names;
}

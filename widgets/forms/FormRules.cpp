// SPDX-License-Identifier: MIT
#include "widgets/forms/FormRules.h"

#include "interfaces/TMemProxy.h"
#include "widgets/forms/FormBuilder.h"
#include "widgets/forms/WidgetRegistry.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <QMetaProperty>

namespace {

QString tr(const char *source)
{
    return QCoreApplication::translate("FormCheck", source);
}

/// What a widget of a form says that has a property as `text`, in the words of the form.
QString takenText(const QMetaProperty &property, const QVariant &value)
{
    const char *key =
        property.isEnumType() ? property.enumerator().valueToKey(value.toInt()) : nullptr;
    return key ? QString::fromLatin1(key) : value.toString();
}

bool taken(const QMetaProperty &property, const QVariant &value, const QString &text)
{
    if (property.isEnumType()) {
        bool known = false;
        const int choice =
            property.enumerator().keyToValue(text.section("::", -1).toLatin1(), &known);
        return known && choice == value.toInt();
    }
    switch (property.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt: return value.toLongLong() == text.toLongLong();
    default: return true;
    }
}

/// Qt's controls that an operator works.
bool isQtControl(const QWidget &widget)
{
    return qobject_cast<const QAbstractButton *>(&widget)
           || qobject_cast<const QAbstractSlider *>(&widget)
           || qobject_cast<const QAbstractSpinBox *>(&widget)
           || qobject_cast<const QComboBox *>(&widget) || qobject_cast<const QLineEdit *>(&widget);
}

} // namespace

QString CheckedWidget::text(const char *property) const
{
    const FormObject::Property *found = m_source.property(QLatin1String(property));
    return found ? FormBuilder::forChannel(found->text, m_channel) : QString();
}

bool CheckedWidget::writesBefore(const char *property, const char *other) const
{
    const FormObject::Property *one = m_source.property(QLatin1String(property));
    const FormObject::Property *two = m_source.property(QLatin1String(other));
    return one && two && one < two;
}

int CheckedWidget::line(const QString &property) const
{
    const FormObject::Property *found = m_source.property(property);
    return found ? found->line : m_source.line;
}

void CheckedWidget::report(FormFinding::Kind kind, const QString &property, const QString &reason,
                           const QString &nearest) const
{
    if (m_findings.size() >= MostFormFindings)
        return;
    FormFinding finding;
    finding.kind = kind;
    finding.line = line(property);
    finding.widget = m_widget.objectName();
    finding.property = property;
    finding.reason = reason;
    finding.nearest = nearest;
    m_findings << finding;
}

// Properties of Qt's own are Qt's matter: some of them mean something else in a form.
void formrules::checkValues(const CheckedWidget &widget)
{
    const QMetaObject &meta = *widget.widget().metaObject();
    for (const FormObject::Property &written : widget.written()) {
        const QByteArray name = written.name.toUtf8();
        const int index = meta.indexOfProperty(name);
        if (index < 0 || written.text.isEmpty())
            continue;
        const QMetaProperty property = meta.property(index);
        if (!WidgetRegistry::find(QLatin1String(property.enclosingMetaObject()->className())))
            continue;
        const QVariant value = widget.widget().property(name);
        const QString text = widget.text(name);
        if (!taken(property, value, text))
            widget.report(
                FormFinding::Property, written.name,
                tr("\"%1\" is not taken; it is %2").arg(text, takenText(property, value)));
    }
}

void formrules::checkAccessibility(const CheckedWidget &checked)
{
    QWidget &widget = checked.widget();
    bool named = !widget.accessibleName().trimmed().isEmpty();
    if (!named && !checked.as<TMemProxy>()) {
        if (!isQtControl(widget) || widget.focusPolicy() == Qt::NoFocus)
            return;
        const QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(&widget);
        named = spoken && !spoken->text(QAccessible::Name).trimmed().isEmpty();
    }
    if (!named)
        checked.report(FormFinding::Accessibility, "accessibleName",
                       tr("the control has no name for people"));
}

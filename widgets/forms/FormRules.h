// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/forms/FormCheck.h"
#include "widgets/forms/FormReader.h"

#include <QWidget>

/// A widget of a form that is being checked: what the file says of it, and what became of that.
class CheckedWidget
{
public:
    /// `channel` counts from 1; 0: no channel's form.
    CheckedWidget(const FormObject &source, QWidget &widget, int channel, FormFindings &findings)
        : m_source(source), m_widget(widget), m_findings(findings), m_channel(channel)
    {
    }

    QWidget &widget() const { return m_widget; }
    template<class Class>
    Class *as() const
    {
        return dynamic_cast<Class *>(&m_widget);
    }

    const QList<FormObject::Property> &written() const { return m_source.properties; }
    bool writes(const char *property) const { return m_source.property(QLatin1String(property)); }
    /// Whether both are there, `property` first.
    bool writesBefore(const char *property, const char *other) const;
    /// What the file says; empty when nothing.
    QString text(const char *property) const;
    /// A line of the file, of the property if it is written; the widget's otherwise.
    int line(const QString &property = {}) const;
    /// What the widget has.
    int number(const char *property) const { return m_widget.property(property).toInt(); }

    void report(FormFinding::Kind kind, const QString &property, const QString &reason,
                const QString &nearest = {}) const;

private:
    const FormObject &m_source;
    QWidget &m_widget;
    FormFindings &m_findings;
    int m_channel;
};

/// What each widget of a form is held against. Widgets of classes that a rule does not know pass it.
namespace formrules {

/// Numbers and choices that the widget did not take as they stand.
void checkValues(const CheckedWidget &widget);
/// The size of its pictures, and of those that belong together.
void checkPictures(const CheckedWidget &widget);
/// The items of its lists.
void checkLists(const CheckedWidget &widget);
/// The keys and the other list that a library list names, among the widgets of its form.
void checkKeys(const CheckedWidget &widget, const QWidget &form);
/// A name for people.
void checkAccessibility(const CheckedWidget &widget);
/// The addresses in its properties; `element` is the one that holds where the widget stands.
void checkAddresses(const CheckedWidget &widget, int element, const IParameterNames &names);
/// How many pictures, items or lamps it has for the values of its parameter.
void checkRange(const CheckedWidget &widget, int element, const FormConsole &console);

} // namespace formrules

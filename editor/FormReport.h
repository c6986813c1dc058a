// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/forms/FormCheck.h"

#include <QString>
#include <QStringList>

/// What is wrong with some forms, for people and for programs.
class FormReport
{
public:
    /// Checks the forms. Those that several of them hold are told of once.
    FormReport(const QStringList &forms, const FormConsole &console);

    const FormFindings &findings() const { return m_findings; }
    bool anyUnreadable() const;

    /// One line per finding, "file:line: place: reason", and one that says how many there are.
    QString lines() const;
    /// {"forms": number, "findings": [{"file", "line", "widget", "property", "kind", "reason",
    /// "nearest"}...]}, without the members that are not known.
    QString json() const;

private:
    FormFindings m_findings;
    qsizetype m_forms;
};

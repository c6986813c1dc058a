// SPDX-License-Identifier: MIT
#include "editor/FormReport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

QJsonObject toJson(const FormFinding &finding)
{
    QJsonObject object{
        {"file", finding.file}, {"kind", finding.kindName()}, {"reason", finding.reason}};
    if (finding.line > 0)
        object.insert("line", finding.line);
    if (!finding.widget.isEmpty())
        object.insert("widget", finding.widget);
    if (!finding.property.isEmpty())
        object.insert("property", finding.property);
    if (!finding.nearest.isEmpty())
        object.insert("nearest", finding.nearest);
    return object;
}

} // namespace

FormReport::FormReport(const QStringList &forms, const FormConsole &console) : m_forms(forms.size())
{
    for (const QString &form : forms) {
        for (const FormFinding &finding : checkForm(form, console)) {
            if (!m_findings.contains(finding))
                m_findings << finding;
        }
    }
}

bool FormReport::anyUnreadable() const
{
    return std::any_of(m_findings.begin(), m_findings.end(), [](const FormFinding &finding) {
        return finding.kind == FormFinding::Unreadable;
    });
}

QString FormReport::lines() const
{
    QString text;
    for (const FormFinding &finding : m_findings)
        text += finding.located() + '\n';
    return text + QString("Forms checked: %1; findings: %2\n").arg(m_forms).arg(m_findings.size());
}

QString FormReport::json() const
{
    QJsonArray findings;
    for (const FormFinding &finding : m_findings)
        findings.append(toJson(finding));
    const QJsonObject report{{"forms", m_forms}, {"findings", findings}};
    return QString::fromUtf8(QJsonDocument(report).toJson());
}

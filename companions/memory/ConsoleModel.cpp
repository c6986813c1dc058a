// SPDX-License-Identifier: MIT
#include "companions/memory/ConsoleModel.h"

#include "companions/memory/ModelReader.h"

#include <QFile>

std::optional<ConsoleModel> ConsoleModel::read(const QString &fileName, QString *error)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QStringLiteral("%1: %2").arg(fileName, file.errorString());
        return {};
    }
    return parse(file.readAll(), fileName, error);
}

std::optional<ConsoleModel> ConsoleModel::parse(const QByteArray &json, const QString &fileName,
                                                QString *error)
{
    try {
        return ModelReader().read(json);
    } catch (const JsonFault &fault) {
        if (error)
            *error = QStringLiteral("%1: %2").arg(fileName, fault.message);
    }
    return {};
}

QString ConsoleModel::addressOf(const Parameter &parameter) const
{
    return blockOf(parameter).name + u'/' + parameter.name;
}

QString ConsoleModel::labelOf(const Parameter &parameter, int element) const
{
    const QString &block = blockOf(parameter).label;
    if (parameter.elements == 1)
        return QStringLiteral("%1 %2").arg(block, parameter.label);
    return QStringLiteral("%1 %2 %3").arg(block).arg(element + 1).arg(parameter.label);
}

const TextTable *ConsoleModel::textTable(int id) const
{
    const auto table = m_textTables.constFind(id);
    return table == m_textTables.constEnd() ? nullptr : &*table;
}

const std::vector<quint16> *ConsoleModel::meterTable(int number) const
{
    const auto table = m_meterTables.constFind(number);
    return table == m_meterTables.constEnd() ? nullptr : &*table;
}
